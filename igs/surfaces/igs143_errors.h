#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs143.h"

// Positions of boundaries are 0-based.

/// TYPE is neither 0 nor 1; carries it.
using igs143InvalidSurfaceRepresentation = igsNamedError<"igs143InvalidSurfaceRepresentation", igsObjectError, int>;

/// There is no basis surface.
class IGS_API igs143NullSurfacePtr
    : public igsErrorClass<igs143NullSurfacePtr, "igs143NullSurfacePtr", igsObjectError> {
 public:
  /// Adopts the surface of the boundaries when all of them that name one name the same; 0 otherwise.
  int fix() override;
};

/// What should be the basis surface is no surface.
using igs143InvalidSurfaceType = igsNamedError<"igs143InvalidSurfaceType">;
/// The basis surface fails its own check.
using igs143InvalidSurfaceData = igsNamedError<"igs143InvalidSurfaceData", igsReferenceDataError>;
/// There is no boundary.
using igs143NoBoundaries = igsNamedError<"igs143NoBoundaries">;
/// A pointer to a boundary is null; carries its position.
using igs143NullBoundaryPtr = igsNamedError<"igs143NullBoundaryPtr", igsObjectError, int>;
/// A boundary is no Boundary entity (type 141); carries its position.
using igs143InvalidBoundaryType = igsNamedError<"igs143InvalidBoundaryType", igsObjectError, int>;
/// A boundary fails its own check; carries its position.
using igs143InvalidBoundaryData = igsNamedError<"igs143InvalidBoundaryData", igsReferenceDataError, int>;

/// A boundary lies on another surface; carries its position.
class IGS_API igs143SurfacePointerMismatch
    : public igsErrorClass<igs143SurfacePointerMismatch, "igs143SurfacePointerMismatch", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Changes nothing; 1 when the basis surface has become the boundary's.
  int fix() override;
};
