#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/shape/export.h"

// What igsShapeCheck finds. Positions are 0-based. Entities are named by their DE numbers. Those of the kind
// igsShapeDistanceError begin with the distance (or length, in model units) and the tolerance that it is held against;
// how much they matter follows from both (igsShapeCheckOptions::tolerance).

/// Base of the errors that carry a distance and a tolerance as their first values.
class IGS_SHAPE_API igsShapeDistanceError
    : public igsTyped<igsShapeDistanceError, "igsShapeDistanceError", igsObjectError> {
 protected:
  igsShapeDistanceError() = default;
};

/// An error of that kind. `Values`: behind the distance and the tolerance.
template <igsName Name, class... Values>
using igsShapeDistance = igsNamedError<Name, igsShapeDistanceError, double, double, Values...>;

// Of the Global section.

/// The minimum resolution (parameter 19) cannot be meant: below 1e-10 or above 1e-3 of the size of what the file shows.
/// Carries it and that size, the diagonal of a box.
using igsShapeImplausibleResolution = igsNamedError<"igsShapeImplausibleResolution", igsGlobalError, double, double>;
/// A coordinate is larger than the largest one that the section announces (parameter 20). Carries both.
using igsShapeBeyondLargestCoordinate =
    igsNamedError<"igsShapeBeyondLargestCoordinate", igsGlobalError, double, double>;
/// What the file shows is so far from the origin that its coordinates lose digits. Carries the distance of its centre
/// and its size.
using igsShapeFarFromOrigin = igsNamedError<"igsShapeFarFromOrigin", igsGlobalError, double, double>;

// Of entities.
//
// Members of a loop are the curves that it consists of, those of composite curves (igs102) one by one; positions are
// among them. Loops are igs142, igs141 and igs508; an edge is named by its igs504 and its position there.

/// Of a loop: the end of a member does not meet the start of the next one. Carries the position of the first and the DE
/// numbers of both. Above the tolerance each joint is told, below it the widest of a loop.
class IGS_SHAPE_API igsShapeLoopGap
    : public igsErrorClass<igsShapeLoopGap, "igsShapeLoopGap", igsShapeDistanceError, double, double, int, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Gives both the point between their ends, where these are at most the tolerance apart, each of an igs110, igs106
  /// (forms 12 and 13) or igs126 to which nothing else refers, in a loop of an igs142 or igs141 in model space alone.
  int fix() override;
};

/// Of a loop: its end does not meet its start. Carries the DE numbers of the last and the first member, and the
/// position of the last.
class IGS_SHAPE_API igsShapeOpenLoop
    : public igsErrorClass<igsShapeOpenLoop, "igsShapeOpenLoop", igsShapeDistanceError, double, double, int, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// As that of igsShapeLoopGap.
  int fix() override;
};

/// Of a loop: a member runs the other way than those that it joins. Carries its position and its DE number.
class IGS_SHAPE_API igsShapeWrongSense
    : public igsErrorClass<igsShapeWrongSense, "igsShapeWrongSense", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Turns the flag of an igs141 or igs508 round. A member of an igs102 that nothing else refers to is reversed itself:
  /// igs110, igs106 and igs126.
  int fix() override;
};

/// Of a loop: its curves in parameter space, put on the surface, lie off those in model space. Carries the DE numbers
/// of the members, in parameter space and in model space, and the point on the surface.
using igsShapeTrimFormsDiffer = igsShapeDistance<"igsShapeTrimFormsDiffer", int, int, double, double, double>;
/// Of a loop: a curve in model space leaves the surface. Carries the DE numbers of the curve and the face, and the
/// point of the curve.
using igsShapeOffSurface = igsShapeDistance<"igsShapeOffSurface", int, int, double, double, double>;
/// Of a loop: a curve in parameter space leaves the ranges of the surface. Carries the DE number of the curve, its
/// parameter there, and u and v.
using igsShapeOutsideDomain = igsShapeDistance<"igsShapeOutsideDomain", int, double, double, double>;

/// Of a loop: it crosses itself. Carries the DE numbers of the members that cross, which may be one, and the point.
using igsShapeSelfIntersection =
    igsNamedError<"igsShapeSelfIntersection", igsObjectError, int, int, double, double, double>;
/// Of a face: two of its loops cross. Carries their DE numbers and the point.
using igsShapeLoopsCross = igsNamedError<"igsShapeLoopsCross", igsObjectError, int, int, double, double, double>;
/// Of a face: an inner loop lies outside the outer one. Carries their DE numbers.
using igsShapeLoopOutside = igsNamedError<"igsShapeLoopOutside", igsObjectError, int, int>;
/// Of a face: an inner loop lies inside another one. Carries their DE numbers.
using igsShapeLoopInLoop = igsNamedError<"igsShapeLoopInLoop", igsObjectError, int, int>;

/// Of an igs508: it does not have the face at its left. Carries the DE number of the face, 1 for an outer loop, and 1
/// when its edges, too, run against those of the neighbours, or have none: then it is the loop that is to be turned.
class IGS_SHAPE_API igsShapeLoopOrientation
    : public igsErrorClass<igsShapeLoopOrientation, "igsShapeLoopOrientation", igsObjectError, int, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Reverses the order and the orientations of the loop's edges where the third value is 1.
  int fix() override;
};

/// Of a loop (igs142, igs141) or an edge list (igs504): a member is very short. Carries its length, the length below
/// which that counts, its position and the DE number of its curve.
using igsShapeShortEdge = igsNamedError<"igsShapeShortEdge", igsObjectError, double, double, int, int>;
/// Of a face: its area is very small. Carries it and the area below which that counts, in square model units.
using igsShapeTinyFace = igsNamedError<"igsShapeTinyFace", igsObjectError, double, double>;
/// Of a face: it is very narrow. Carries its mean width (twice the area over the perimeter) and the width below which
/// that counts.
using igsShapeNarrowFace = igsNamedError<"igsShapeNarrowFace", igsObjectError, double, double>;

/// Of a shell (igs514) of a solid: an edge is used once. Carries the edge and the DE number of its curve.
using igsShapeFreeEdge = igsNamedError<"igsShapeFreeEdge", igsObjectError, int, int, int>;
/// Of a loose face: edges that those of no other face follow. Carries their number and the DE number of the first.
using igsShapeFreeBoundary = igsNamedError<"igsShapeFreeBoundary", igsObjectError, int, int>;
/// Of a shell: an edge is used more than twice. Carries the edge and the number of uses.
using igsShapeNonManifoldEdge = igsNamedError<"igsShapeNonManifoldEdge", igsObjectError, int, int, int>;
/// Of a shell: both faces at an edge use it in one direction, so that their normals point to different sides. Carries
/// the edge and the DE numbers of the faces.
using igsShapeFaceNormals = igsNamedError<"igsShapeFaceNormals", igsObjectError, int, int, int, int>;

/// Of an edge list (igs504): a vertex lies off the end of the edge's curve. Carries the position of the edge, the DE
/// number of the curve, 0 for the first and 1 for the second vertex, and 1 when the vertex lies on the surfaces of all
/// faces that have the edge: then the curve can be brought to it.
class IGS_SHAPE_API igsShapeVertexOffEdge
    : public igsErrorClass<igsShapeVertexOffEdge, "igsShapeVertexOffEdge", igsShapeDistanceError, double, double, int,
                           int, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Moves the end of an igs110, igs106 (forms 12 and 13) or igs126 to which nothing else refers to the vertex, when
  /// that is at most the tolerance away and the fourth value is 1.
  int fix() override;
};

/// Of an igs508: a vertex of an edge lies off the surface. Carries the DE numbers of the edge list and the face, and
/// the vertex.
using igsShapeVertexOffSurface = igsShapeDistance<"igsShapeVertexOffSurface", int, int, double, double, double>;

/// Of a face: one of its loops has a fault of its own. Carries the DE number of the loop.
using igsShapeFaultyBoundary = igsNamedError<"igsShapeFaultyBoundary", igsReferenceDataError, int>;

/// Of a curve that stands alone: another one runs where it does, that way or the other. Carries the DE number of the
/// first of them.
using igsShapeDuplicateCurve = igsNamedError<"igsShapeDuplicateCurve", igsObjectError, int>;
/// Of a face that belongs to no shell: another one has the same surface and the same boundary. Carries the DE number of
/// the first of them.
using igsShapeDuplicateFace = igsNamedError<"igsShapeDuplicateFace", igsObjectError, int>;

// Of splines (igs112, igs114, igs126, igs128). A direction is 0 of a curve or along u, 1 along v.

/// A knot within the range stands there more often than the degree, so that nothing holds the spline together at it.
/// Carries the direction, the knot, how often it stands there (the most of all knots) and the degree.
using igsShapeKnotMultiplicity = igsNamedError<"igsShapeKnotMultiplicity", igsObjectError, int, double, int, int>;
/// Two different knots are very close. Carries the direction, the position of the first in the list of knots, their
/// difference (the smallest of all) and the range of the knots.
using igsShapeShortSpan = igsNamedError<"igsShapeShortSpan", igsObjectError, int, int, double, double>;
/// The pieces do not meet where one ends and the next begins. Carries the direction and the parameter where the gap is
/// widest.
using igsShapeSplineGap = igsShapeDistance<"igsShapeSplineGap", int, double>;
/// The pieces meet at an angle: of the tangents of a curve, of the normals of a surface. Carries the direction, the
/// angle of the sharpest one and the angle from which on that counts, in radians, and its parameter.
using igsShapeKink = igsNamedError<"igsShapeKink", igsObjectError, int, double, double, double>;
/// A side of a surface is very short, but no point. Carries its length, the length below which that counts and the
/// side: 0 and 1 where u is least and greatest, 2 and 3 where v is.
using igsShapeShortSide = igsNamedError<"igsShapeShortSide", igsObjectError, double, double, int>;
/// As many control points in a row as make a whole span are the same point. Carries the direction in which they follow
/// each other, and the positions of the first of them along u (of a curve: in its list) and along v (of a curve: 0).
using igsShapeCoincidentPoles = igsNamedError<"igsShapeCoincidentPoles", igsObjectError, int, int, int>;
/// A surface has no normal at a point within a span. Carries the parameters u and v of one.
using igsShapeVanishingNormal = igsNamedError<"igsShapeVanishingNormal", igsObjectError, double, double>;
/// A surface folds within a span: its normal turns over. Carries the parameters u and v of one such place.
using igsShapeTurningNormal = igsNamedError<"igsShapeTurningNormal", igsObjectError, double, double>;
/// The degree is higher than most systems take. Carries the direction, the degree and the highest one that is not
/// reported.
using igsShapeHighDegree = igsNamedError<"igsShapeHighDegree", igsObjectError, int, int, int>;
