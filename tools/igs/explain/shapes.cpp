#include "explain/rows.h"

namespace {

Rows extent_texts() {
  using enum Severity;
  return {
      {note, "ImplausibleResolution",
       "parameter 19 (minimum resolution) is {0:short}, which cannot be meant of what measures {1:short}"},
      {note, "BeyondLargestCoordinate",
       "parameter 20 (largest coordinate) is {1:short}, but there are coordinates up to {0:short}"},
      {note, "FarFromOrigin", "what the file shows measures {1:short} and is {0:short} from the origin"},
  };
}

Rows loop_texts() {
  using enum Severity;
  constexpr Repair joined = geometry(
      "Both ends become the point between them, where they are of lines, polylines or B-spline curves that nothing "
      "else uses and move by no more than the tolerance.");
  constexpr Repair turned = geometry(
      "The sense of the member is turned round; where the file has none, the member itself is, if nothing else uses "
      "it.");
  return {
      known_as("G-LO-LG", by_size("LoopGap",
                                  "member {#2} of the loop (DE {3}) ends {0:short} from the next one (DE {4}); the "
                                  "tolerance is {1:short}",
                                  joined)),
      known_as("G-LO-LG", by_size("OpenLoop",
                                  "the end of the loop (DE {2}) is {0:short} from its start (DE {3}); the tolerance is "
                                  "{1:short}",
                                  joined)),
      known_as("G-LO-IT", {warning, "WrongSense", "member {#0} of the loop (DE {1}) runs the wrong way", turned}),
      by_size("TrimFormsDiffer",
              "the loop's curves in parameter space (DE {2}) are {0:short} from those in model space (DE {3}) at "
              "({4:short}, {5:short}, {6:short}); the tolerance is {1:short}"),
      known_as("G-FA-EG",
               by_size("OffSurface",
                       "the curve (DE {2}) is {0:short} from the surface of the face (DE {3}) at ({4:short}, "
                       "{5:short}, {6:short}); the tolerance is {1:short}")),
      by_size("OutsideDomain",
              "the curve (DE {2}) leaves the ranges of the surface by {0:short} at u {4:short}, v {5:short}; the "
              "tolerance is {1:short}"),
      known_as("G-LO-IS", {warning, "SelfIntersection",
                           "the loop crosses itself (DE {0} and DE {1}) at ({2:short}, {3:short}, {4:short})"}),
      {error, "LoopsCross", "the loops DE {0} and DE {1} of the face cross at ({2:short}, {3:short}, {4:short})"},
      {error, "LoopOutside", "the inner loop DE {0} lies outside the outer one, DE {1}"},
      {error, "LoopInLoop", "the inner loop DE {0} lies inside another one, DE {1}"},
      {warning, "LoopOrientation", "the loop does not have the face (DE {0}) at its left",
       geometry("The order and the orientations of its edges are reversed.")},
      consequence("FaultyBoundary", "the face's boundary (DE {0}) has faults of its own",
                  in_turn("It is gone when the boundary is repaired.")),
  };
}

Rows shell_texts() {
  using enum Severity;
  return {
      known_as("G-SH-FR",
               {error, "FreeEdge", "edge {#1} of DE {0} (curve DE {2}) belongs to one face of the shell only"}),
      known_as("G-SH-FR", {note, "FreeBoundary",
                           "the face has free edges, along which there is no other face: {0}, the first is DE {1}"}),
      known_as("G-SH-NM", {warning, "NonManifoldEdge", "edge {#1} of DE {0} is used {2} times in the shell"}),
      known_as("G-SH-IT", {warning, "FaceNormals",
                           "the faces DE {2} and DE {3} of the shell turn to different sides at edge {#1} of DE {0}"}),
      by_size(
          "VertexOffEdge",
          "a vertex of edge {#2} is {0:short} from the end of its curve (DE {3}); the tolerance is {1:short}",
          geometry("The end of a line, a polyline or a B-spline curve that nothing else uses is moved to the vertex "
                   "where that is within the tolerance and on the surfaces of the faces at the edge.")),
      by_size(
          "VertexOffSurface",
          "a vertex of DE {2}, ({4:short}, {5:short}, {6:short}), is {0:short} from the surface of the face (DE {3}); "
          "the tolerance is {1:short}"),
  };
}

Rows size_texts() {
  using enum Severity;
  return {
      known_as("G-CU-TI", {warning, "ShortEdge", "member {#2} (DE {3}) is {0:short} long, less than {1:short}"}),
      known_as("G-FA-TI", {warning, "TinyFace", "the face's area is {0:short}, less than {1:short}"}),
      known_as("G-FA-NA", {warning, "NarrowFace", "the face is {0:short} wide, less than {1:short}"}),
      known_as("G-CU-EM", {note, "DuplicateCurve", "the curve runs where DE {0} runs already"}),
      known_as("G-FA-EM", {note, "DuplicateFace", "the face is the same as DE {0}"}),
  };
}

Rows spline_texts() {
  using enum Severity;
  return {
      known_as("G-CU-IK",
               {warning, "KnotMultiplicity",
                "along {0:direction} the knot {1} stands there {2} times, which is more than the degree, {3}"}),
      known_as("G-CU-IK", {note, "ShortSpan",
                           "along {0:direction} knot {#1} is {2:short} from the next one, of a range of {3:short}"}),
      known_as("G-CU-LG, G-SU-LG", by_size("SplineGap",
                                           "the pieces are {0:short} apart where {2:direction} is {3}; the "
                                           "tolerance is {1:short}")),
      known_as("G-CU-NT, G-SU-NT",
               {note, "Kink", "there is a kink of {1:degrees} where {0:direction} is {3}, more than {2:degrees}"}),
      known_as("G-SU-DC",
               {note, "ShortSide", "the side {2:side} is {0:short} long, less than {1:short}, but no point"}),
      known_as("G-SU-DC", {note, "CoincidentPoles",
                           "along {0:direction} a whole span of control points is one point, from number {1}, {2} "
                           "(counted from 0)"}),
      known_as("G-SU-FO", {warning, "VanishingNormal", "the surface has no normal at u {0}, v {1}"}),
      known_as("G-SU-FO", {warning, "TurningNormal", "the surface folds: its normal turns over at u {0}, v {1}"}),
      known_as("G-CU-HD, G-SU-HD", {note, "HighDegree", "the degree along {0:direction} is {1}, more than {2}"}),
  };
}

}  // namespace

// Of the geometric checks.
Rows shape_texts() {
  return {entity("igsShape"), extent_texts(), loop_texts(), shell_texts(), size_texts(), spline_texts()};
}
