#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs140.h"

// Faults of an Offset Surface (igs140).

/// The offset indicator is undefined or shorter than kelTolMinValue.
class IGS_API igs140ZeroIndicator : public igsErrorClass<igs140ZeroIndicator, "igs140ZeroIndicator", igsObjectError> {};

/// The distance is undefined.
class IGS_API igs140InvalidDistance
    : public igsErrorClass<igs140InvalidDistance, "igs140InvalidDistance", igsObjectError> {};

/// The pointer to the surface is null.
class IGS_API igs140NullSurface : public igsErrorClass<igs140NullSurface, "igs140NullSurface", igsObjectError> {};

/// The surface is not a surface.
class IGS_API igs140WrongSurfaceType
    : public igsErrorClass<igs140WrongSurfaceType, "igs140WrongSurfaceType", igsObjectError> {};

/// The surface fails its own check.
class IGS_API igs140InvalidSurface
    : public igsErrorClass<igs140InvalidSurface, "igs140InvalidSurface", igsReferenceDataError> {};
