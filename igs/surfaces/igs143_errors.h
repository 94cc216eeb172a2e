#pragma once

#include "igs/errors/igsErrorClass.h"

// Positions of boundaries are 0-based.

/// TYPE is neither 0 nor 1; carries it.
class IGS_API igs143InvalidSurfaceRepresentation
    : public igsErrorClass<igs143InvalidSurfaceRepresentation, "igs143InvalidSurfaceRepresentation", igsObjectError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// There is no basis surface.
class IGS_API igs143NullSurfacePtr
    : public igsErrorClass<igs143NullSurfacePtr, "igs143NullSurfacePtr", igsObjectError> {
 public:
  /// Adopts the surface of the boundaries when all of them that name one name the same; 0 otherwise.
  int fix() override;
};

/// What should be the basis surface is no surface.
class IGS_API igs143InvalidSurfaceType
    : public igsErrorClass<igs143InvalidSurfaceType, "igs143InvalidSurfaceType", igsObjectError> {};

/// The basis surface fails its own check.
class IGS_API igs143InvalidSurfaceData
    : public igsErrorClass<igs143InvalidSurfaceData, "igs143InvalidSurfaceData", igsReferenceDataError> {};

/// There is no boundary.
class IGS_API igs143NoBoundaries : public igsErrorClass<igs143NoBoundaries, "igs143NoBoundaries", igsObjectError> {};

/// A pointer to a boundary is null; carries its position.
class IGS_API igs143NullBoundaryPtr
    : public igsErrorClass<igs143NullBoundaryPtr, "igs143NullBoundaryPtr", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A boundary is no Boundary entity (type 141); carries its position.
class IGS_API igs143InvalidBoundaryType
    : public igsErrorClass<igs143InvalidBoundaryType, "igs143InvalidBoundaryType", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A boundary fails its own check; carries its position.
class IGS_API igs143InvalidBoundaryData
    : public igsErrorClass<igs143InvalidBoundaryData, "igs143InvalidBoundaryData", igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A boundary lies on another surface; carries its position.
class IGS_API igs143SurfacePointerMismatch
    : public igsErrorClass<igs143SurfacePointerMismatch, "igs143SurfacePointerMismatch", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Changes nothing; 1 when the basis surface has become the boundary's.
  int fix() override;
};

/// The number of boundaries is negative or out of proportion to the record; carries it.
class IGS_API igs143BadNumBoundaries
    : public igsErrorClass<igs143BadNumBoundaries, "igs143BadNumBoundaries", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
