#pragma once

#include "igs/fields/igsMemberErrors.h"
#include "igs/surfaces/igs144.h"

// Positions of inner boundaries are 0-based, as they were when the surface was checked.

/// N1 is neither 0 nor 1; carries it.
using igs144InvalidOuterBoundaryFlag = igsNamedError<"igs144InvalidOuterBoundaryFlag", igsObjectError, int>;

/// There is no surface.
class IGS_API igs144NullSurfacePtr
    : public igsErrorClass<igs144NullSurfacePtr, "igs144NullSurfacePtr", igsObjectError> {
 public:
  /// Adopts the surface of the inner boundaries when all of them that name one name the same; 0 otherwise.
  int fix() override;
};

/// What should be the surface is none.
using igs144InvalidSurfaceType = igsNamedError<"igs144InvalidSurfaceType">;
/// The surface fails its own check.
using igs144InvalidSurfaceData = igsNamedError<"igs144InvalidSurfaceData", igsReferenceDataError>;
/// The outer boundary is no curve on a surface (type 142).
using igs144InvalidOuterBoundType = igsNamedError<"igs144InvalidOuterBoundType">;
/// The outer boundary fails its own check.
using igs144InvalidOuterBoundData = igsNamedError<"igs144InvalidOuterBoundData", igsReferenceDataError>;

/// The outer boundary lies on another surface.
class IGS_API igs144OuterBoundSurfaceMismatch
    : public igsErrorClass<igs144OuterBoundSurfaceMismatch, "igs144OuterBoundSurfaceMismatch", igsObjectError> {
 public:
  /// Changes nothing; 1 when the surface has become the boundary's.
  int fix() override;
};

/// A pointer to an inner boundary is null; carries its position. The repair takes all null ones out of the list.
using igs144NullInnerBoundPtr =
    igsDroppedMemberError<"igs144NullInnerBoundPtr", igs144, &igs144::remove_null_inner_boundaries>;
/// An inner boundary is no curve on a surface (type 142); carries its position. Found by the trimmed surface, whatever
/// the name of the class says.
using igs142InvalidInnerBoundType = igsNamedError<"igs142InvalidInnerBoundType", igsObjectError, int>;
/// An inner boundary fails its own check; carries its position.
using igs144InvalidInnerBoundData = igsNamedError<"igs144InvalidInnerBoundData", igsReferenceDataError, int>;

/// An inner boundary lies on another surface; carries its position.
class IGS_API igs144InnerBoundSurfaceMismatch
    : public igsErrorClass<igs144InnerBoundSurfaceMismatch, "igs144InnerBoundSurfaceMismatch", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Changes nothing; 1 when the surface has become the boundary's.
  int fix() override;
};

/// There is neither an outer nor an inner boundary.
using igs144NoBoundaries = igsNamedError<"igs144NoBoundaries">;
