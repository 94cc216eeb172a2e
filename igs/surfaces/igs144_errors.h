#pragma once

#include "igs/fields/igsMemberErrors.h"
#include "igs/surfaces/igs144.h"

// Positions of inner boundaries are 0-based, as they were when the surface was checked.

/// N1 is neither 0 nor 1; carries it.
class IGS_API igs144InvalidOuterBoundaryFlag
    : public igsErrorClass<igs144InvalidOuterBoundaryFlag, "igs144InvalidOuterBoundaryFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// There is no surface.
class IGS_API igs144NullSurfacePtr
    : public igsErrorClass<igs144NullSurfacePtr, "igs144NullSurfacePtr", igsObjectError> {
 public:
  /// Adopts the surface of the inner boundaries when all of them that name one name the same; 0 otherwise.
  int fix() override;
};

/// What should be the surface is none.
class IGS_API igs144InvalidSurfaceType
    : public igsErrorClass<igs144InvalidSurfaceType, "igs144InvalidSurfaceType", igsObjectError> {};

/// The surface fails its own check.
class IGS_API igs144InvalidSurfaceData
    : public igsErrorClass<igs144InvalidSurfaceData, "igs144InvalidSurfaceData", igsReferenceDataError> {};

/// The outer boundary is no curve on a surface (type 142).
class IGS_API igs144InvalidOuterBoundType
    : public igsErrorClass<igs144InvalidOuterBoundType, "igs144InvalidOuterBoundType", igsObjectError> {};

/// The outer boundary fails its own check.
class IGS_API igs144InvalidOuterBoundData
    : public igsErrorClass<igs144InvalidOuterBoundData, "igs144InvalidOuterBoundData", igsReferenceDataError> {};

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
class IGS_API igs142InvalidInnerBoundType
    : public igsErrorClass<igs142InvalidInnerBoundType, "igs142InvalidInnerBoundType", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// An inner boundary fails its own check; carries its position.
class IGS_API igs144InvalidInnerBoundData
    : public igsErrorClass<igs144InvalidInnerBoundData, "igs144InvalidInnerBoundData", igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// An inner boundary lies on another surface; carries its position.
class IGS_API igs144InnerBoundSurfaceMismatch
    : public igsErrorClass<igs144InnerBoundSurfaceMismatch, "igs144InnerBoundSurfaceMismatch", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Changes nothing; 1 when the surface has become the boundary's.
  int fix() override;
};

/// There is neither an outer nor an inner boundary.
class IGS_API igs144NoBoundaries : public igsErrorClass<igs144NoBoundaries, "igs144NoBoundaries", igsObjectError> {};

/// The number of inner boundaries is negative or out of proportion to the record; carries it.
class IGS_API igs144BadNumInnerBounds
    : public igsErrorClass<igs144BadNumInnerBounds, "igs144BadNumInnerBounds", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
