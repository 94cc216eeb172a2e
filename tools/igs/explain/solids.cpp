#include "explain/rows.h"

Rows solid_texts() {
  using enum Severity;
  constexpr Repair with_curve = in_turn("The curve is repaired; if that fails, the loop keeps its fault.");
  constexpr Repair with_list = in_turn("The list is repaired; if that fails, the loop keeps its fault.");
  constexpr Repair with_shell = in_turn("The shell is repaired; if that fails, the solid keeps its fault.");
  constexpr Repair without_face = removal(
      "The face is repaired; every entry of the shell that is not a sound face then is taken out of the shell.");
  return {
      entity("igs186OuterShell", "the solid's outer shell"),
      {error, "NullShell", "the solid has no outer shell"},
      optional(reference(
          "Shell", "@", "is not a shell",
          {with_shell, removal("An empty shell takes its place; the solid stays without faces and keeps the fault.")})),
      {warning, "InvalidOrientation", "the outer shell's orientation is neither 0 nor 1"},
      entity("igs186InnerShell", "void shell {#0}"),
      reference("Shell", "@", "is not a shell", {with_shell}),
      {warning, "InvalidOrientation", "the orientation of @ is neither 0 nor 1"},
      entity("igs186", "the solid"),
      {error, "BadNumInnerShells", "the record cannot hold {0} void shells; the entity was left out"},
      entity("igs502"),
      {error, "NoVertices", "the vertex list has no vertices, or a count that its record cannot hold"},
      {error, "InvalidVertex", "vertex {#0} is undefined"},
      entity("igs504"),
      {error, "NoEdges", "the edge list has no edges, or a count that its record cannot hold"},
      entity("igs508", "the loop"),
      {error, "NoOrientatedEdges", "@ has no edges, or a count that its record cannot hold"},
      entity("igs508OrientatedEdge", "edge {0} of the loop (counted from 0)"),
      {error, "NullList", "@ has no edge or vertex list"},
      {error, "WrongListType", "@ refers to neither an edge list nor a vertex list"},
      {warning, "Wrong502EdgeType", "@ refers to a vertex list, but its type is not 1", value("The type is set to 1.")},
      {error, "502OffsetOutOfRange", "@ uses a vertex that the vertex list does not have"},
      consequence("502InvalidList", "the vertex list of @ has faults of its own",
                  in_turn("It is accepted when the vertex in use is defined; nothing is changed.")),
      {warning, "Wrong504EdgeType", "@ refers to an edge list, but its type is not 0", value("The type is set to 0.")},
      {error, "504OffsetOutOfRange", "@ uses an edge that the edge list does not have"},
      consequence("504InvalidList", "the edge list of @ has faults of its own", with_list),
      {warning, "InvalidEdgeDirection", "the orientation of @ is neither 0 nor 1", value("It is set to 1.")},
      entity("igs508OrientatedEdge504Edge", "edge {1} of the edge list (counted from 0), used as edge {0} of the loop"),
      {error, "NullCurve", "@, has no curve"},
      optional(reference("Curve", "the curve of @,", "is not a curve", {with_curve})),
      {error, "NullFirstList", "@, has no first vertex list"},
      optional(reference("FirstList", "the first vertex list of @,", "is not one", {with_list})),
      {error, "NullSecondList", "@, has no second vertex list"},
      optional(reference("SecondList", "the second vertex list of @,", "is not one", {with_list})),
      {error, "OutOfRangeFirstListOffset", "@, starts at a vertex that its list does not have"},
      {error, "OutOfRangeSecondListOffset", "@, ends at a vertex that its list does not have"},
      entity("igs508HalfEdge", "parameter-space curve {1} of edge {0} of the loop (counted from 0)"),
      reference("Curve", "@", "is not a curve", {with_curve}),
      {warning, "InvalidCurveFlag", "the isoparametric flag of @ is neither 0 nor 1", value("It is set to 1.")},
      entity("igs510", "the face"),
      {error, "NullSurface", "@ has no surface"},
      optional(reference("Surface", "@'s surface", "is not a surface",
                         {in_turn("The surface is repaired; if that fails, the face keeps its fault.")})),
      {warning, "InvalidOuterLoopFlag", "@'s outer loop flag is neither 0 nor 1", value("It is set to 0.")},
      {error, "NoLoops", "@ has no loops, or a count that its record cannot hold"},
      reference("Loop", "loop {#0} of @", "is not a loop",
                {in_turn("The loop is repaired; if that fails, the face keeps its fault.")}),
      entity("igs514", "the shell"),
      {error, "NoFaces", "@ has no faces, or a count that its record cannot hold"},
      entity("igs514OrientatedFace", "face {#0} of the shell"),
      reference("Face", "@", "is not a face", {without_face, without_face}),
      {warning, "InvalidOrientation", "the orientation of @ is neither 0 nor 1", value("It is set to 1.")},
  };
}
