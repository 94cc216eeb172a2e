#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of a Loop (igs508). Positions are 0-based; the faults of a loop's edge carry the edge's position. What fails
// its own check is repaired for the loop when it has been repaired itself, unless told otherwise.

/// The loop has no edges, or the number of its edges, or of the parameter-space curves of one, is negative or out of
/// proportion to the record.
class IGS_API igs508NoOrientatedEdges
    : public igsErrorClass<igs508NoOrientatedEdges, "igs508NoOrientatedEdges", igsObjectError> {};

/// A pointer to a list is null.
class IGS_API igs508OrientatedEdgeNullList
    : public igsErrorClass<igs508OrientatedEdgeNullList, "igs508OrientatedEdgeNullList", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be a list is neither an edge list nor a vertex list.
class IGS_API igs508OrientatedEdgeWrongListType
    : public igsErrorClass<igs508OrientatedEdgeWrongListType, "igs508OrientatedEdgeWrongListType", igsObjectError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The list is one of vertices, the edge type says otherwise.
class IGS_API igs508OrientatedEdgeWrong502EdgeType
    : public igsErrorClass<igs508OrientatedEdgeWrong502EdgeType, "igs508OrientatedEdgeWrong502EdgeType", igsObjectError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets the edge type to 1.
  int fix() override;
};

/// The vertex list has no such vertex.
class IGS_API igs508OrientatedEdge502OffsetOutOfRange
    : public igsErrorClass<igs508OrientatedEdge502OffsetOutOfRange, "igs508OrientatedEdge502OffsetOutOfRange",
                           igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The vertex list fails its own check.
class IGS_API igs508OrientatedEdge502InvalidList
    : public igsErrorClass<igs508OrientatedEdge502InvalidList, "igs508OrientatedEdge502InvalidList",
                           igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Changes nothing; 1 when the one vertex that is used here is defined.
  int fix() override;
};

/// The list is one of edges, the edge type says otherwise.
class IGS_API igs508OrientatedEdgeWrong504EdgeType
    : public igsErrorClass<igs508OrientatedEdgeWrong504EdgeType, "igs508OrientatedEdgeWrong504EdgeType", igsObjectError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets the edge type to 0.
  int fix() override;
};

/// The edge list has no such edge.
class IGS_API igs508OrientatedEdge504OffsetOutOfRange
    : public igsErrorClass<igs508OrientatedEdge504OffsetOutOfRange, "igs508OrientatedEdge504OffsetOutOfRange",
                           igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The edge list fails its own check.
class IGS_API igs508OrientatedEdge504InvalidList
    : public igsErrorClass<igs508OrientatedEdge504InvalidList, "igs508OrientatedEdge504InvalidList",
                           igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The orientation is neither 0 nor 1.
class IGS_API igs508OrientatedEdgeInvalidEdgeDirection
    : public igsErrorClass<igs508OrientatedEdgeInvalidEdgeDirection, "igs508OrientatedEdgeInvalidEdgeDirection",
                           igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 1.
  int fix() override;
};

// Of the edge in an edge list that a loop uses; these carry the position in the loop and the one in the list.

/// The edge has no curve.
class IGS_API igs508OrientatedEdge504EdgeNullCurve
    : public igsErrorClass<igs508OrientatedEdge504EdgeNullCurve, "igs508OrientatedEdge504EdgeNullCurve", igsObjectError,
                           int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be the edge's curve is not a curve.
class IGS_API igs508OrientatedEdge504EdgeWrongCurveType
    : public igsErrorClass<igs508OrientatedEdge504EdgeWrongCurveType, "igs508OrientatedEdge504EdgeWrongCurveType",
                           igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The edge's curve fails its own check.
class IGS_API igs508OrientatedEdge504EdgeInvalidCurve
    : public igsErrorClass<igs508OrientatedEdge504EdgeInvalidCurve, "igs508OrientatedEdge504EdgeInvalidCurve",
                           igsReferenceDataError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The edge has no first vertex list.
class IGS_API igs508OrientatedEdge504EdgeNullFirstList
    : public igsErrorClass<igs508OrientatedEdge504EdgeNullFirstList, "igs508OrientatedEdge504EdgeNullFirstList",
                           igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be the first vertex list is something else.
class IGS_API igs508OrientatedEdge504EdgeWrongFirstListType
    : public igsErrorClass<igs508OrientatedEdge504EdgeWrongFirstListType,
                           "igs508OrientatedEdge504EdgeWrongFirstListType", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The first vertex list fails its own check.
class IGS_API igs508OrientatedEdge504EdgeInvalidFirstList
    : public igsErrorClass<igs508OrientatedEdge504EdgeInvalidFirstList, "igs508OrientatedEdge504EdgeInvalidFirstList",
                           igsReferenceDataError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The edge has no second vertex list.
class IGS_API igs508OrientatedEdge504EdgeNullSecondList
    : public igsErrorClass<igs508OrientatedEdge504EdgeNullSecondList, "igs508OrientatedEdge504EdgeNullSecondList",
                           igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be the second vertex list is something else.
class IGS_API igs508OrientatedEdge504EdgeWrongSecondListType
    : public igsErrorClass<igs508OrientatedEdge504EdgeWrongSecondListType,
                           "igs508OrientatedEdge504EdgeWrongSecondListType", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The second vertex list fails its own check.
class IGS_API igs508OrientatedEdge504EdgeInvalidSecondList
    : public igsErrorClass<igs508OrientatedEdge504EdgeInvalidSecondList, "igs508OrientatedEdge504EdgeInvalidSecondList",
                           igsReferenceDataError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The first vertex list has no such vertex.
class IGS_API igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset
    : public igsErrorClass<igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset,
                           "igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The second vertex list has no such vertex.
class IGS_API igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset
    : public igsErrorClass<igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset,
                           "igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

// Of a loop edge's curves in parameter space; these carry the edge's position and the curve's.

/// There is no curve in parameter space.
class IGS_API igs508HalfEdgeNullCurve
    : public igsErrorClass<igs508HalfEdgeNullCurve, "igs508HalfEdgeNullCurve", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be the curve in parameter space is not a curve.
class IGS_API igs508HalfEdgeWrongCurveType
    : public igsErrorClass<igs508HalfEdgeWrongCurveType, "igs508HalfEdgeWrongCurveType", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The curve in parameter space fails its own check.
class IGS_API igs508HalfEdgeInvalidCurve
    : public igsErrorClass<igs508HalfEdgeInvalidCurve, "igs508HalfEdgeInvalidCurve", igsReferenceDataError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The isoparametric flag is neither 0 nor 1.
class IGS_API igs508HalfEdgeInvalidCurveFlag
    : public igsErrorClass<igs508HalfEdgeInvalidCurveFlag, "igs508HalfEdgeInvalidCurveFlag", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 1.
  int fix() override;
};
