#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/solids/igs508.h"

// Faults of a Loop (igs508). Positions are 0-based; the faults of a loop's edge carry the edge's position. What fails
// its own check is repaired for the loop when it has been repaired itself, unless told otherwise.

/// A pointer to a list is null.
using igs508OrientatedEdgeNullList = igsNamedError<"igs508OrientatedEdgeNullList", igsObjectError, int>;
/// What should be a list is neither an edge list nor a vertex list.
using igs508OrientatedEdgeWrongListType = igsNamedError<"igs508OrientatedEdgeWrongListType", igsObjectError, int>;

/// Kind of the errors that say that a flag of a loop's edge has a value that it cannot have there: it becomes `Value`.
template <void (igsOrientedEdge::*Set)(int), int Value>
using igs508StoredFlag = igsStoredElementDefault<igs508, &igs508::oriented_edge_at, Set, Value>;
/// The list is one of vertices, the edge type says otherwise. It becomes 1.
using igs508OrientatedEdgeWrong502EdgeType =
    igsNamedError<"igs508OrientatedEdgeWrong502EdgeType", igs508StoredFlag<&igsOrientedEdge::set_edge_type, 1>, int>;
/// The vertex list has no such vertex.
using igs508OrientatedEdge502OffsetOutOfRange =
    igsNamedError<"igs508OrientatedEdge502OffsetOutOfRange", igsObjectError, int>;

/// The vertex list fails its own check.
class IGS_API igs508OrientatedEdge502InvalidList
    : public igsErrorClass<igs508OrientatedEdge502InvalidList, "igs508OrientatedEdge502InvalidList",
                           igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Changes nothing; 1 when the one vertex that is used here is defined.
  int fix() override;
};

/// The list is one of edges, the edge type says otherwise. It becomes 0.
using igs508OrientatedEdgeWrong504EdgeType =
    igsNamedError<"igs508OrientatedEdgeWrong504EdgeType", igs508StoredFlag<&igsOrientedEdge::set_edge_type, 0>, int>;
/// The edge list has no such edge.
using igs508OrientatedEdge504OffsetOutOfRange =
    igsNamedError<"igs508OrientatedEdge504OffsetOutOfRange", igsObjectError, int>;
/// The edge list fails its own check.
using igs508OrientatedEdge504InvalidList =
    igsNamedError<"igs508OrientatedEdge504InvalidList", igsReferenceDataError, int>;
/// The orientation is neither 0 nor 1. It becomes 1.
using igs508OrientatedEdgeInvalidEdgeDirection =
    igsNamedError<"igs508OrientatedEdgeInvalidEdgeDirection", igs508StoredFlag<&igsOrientedEdge::set_orientation, 1>,
                  int>;

// Of the edge in an edge list that a loop uses; these carry the position in the loop and the one in the list.

using igs508EdgeCurveErrors = igsReferenceErrors<"igs508OrientatedEdge504Edge", "Curve", int, int>;
using igs508OrientatedEdge504EdgeNullCurve = igs508EdgeCurveErrors::Null;
using igs508OrientatedEdge504EdgeWrongCurveType = igs508EdgeCurveErrors::WrongType;
using igs508OrientatedEdge504EdgeInvalidCurve = igs508EdgeCurveErrors::Invalid;
using igs508EdgeFirstListErrors = igsReferenceErrors<"igs508OrientatedEdge504Edge", "FirstList", int, int>;
using igs508OrientatedEdge504EdgeNullFirstList = igs508EdgeFirstListErrors::Null;
using igs508OrientatedEdge504EdgeWrongFirstListType = igs508EdgeFirstListErrors::WrongType;
using igs508OrientatedEdge504EdgeInvalidFirstList = igs508EdgeFirstListErrors::Invalid;
using igs508EdgeSecondListErrors = igsReferenceErrors<"igs508OrientatedEdge504Edge", "SecondList", int, int>;
using igs508OrientatedEdge504EdgeNullSecondList = igs508EdgeSecondListErrors::Null;
using igs508OrientatedEdge504EdgeWrongSecondListType = igs508EdgeSecondListErrors::WrongType;
using igs508OrientatedEdge504EdgeInvalidSecondList = igs508EdgeSecondListErrors::Invalid;
/// The first or the second vertex list has no such vertex.
using igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset =
    igsNamedError<"igs508OrientatedEdge504EdgeOutOfRangeFirstListOffset", igsObjectError, int, int>;
using igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset =
    igsNamedError<"igs508OrientatedEdge504EdgeOutOfRangeSecondListOffset", igsObjectError, int, int>;

// Of a loop edge's curves in parameter space; these carry the edge's position and the curve's.

using igs508HalfEdgeCurveErrors = igsReferenceErrors<"igs508HalfEdge", "Curve", int, int>;
using igs508HalfEdgeNullCurve = igs508HalfEdgeCurveErrors::Null;
using igs508HalfEdgeWrongCurveType = igs508HalfEdgeCurveErrors::WrongType;
using igs508HalfEdgeInvalidCurve = igs508HalfEdgeCurveErrors::Invalid;

/// The isoparametric flag is neither 0 nor 1.
class IGS_API igs508HalfEdgeInvalidCurveFlag
    : public igsErrorClass<igs508HalfEdgeInvalidCurveFlag, "igs508HalfEdgeInvalidCurveFlag", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 1.
  int fix() override;
};
