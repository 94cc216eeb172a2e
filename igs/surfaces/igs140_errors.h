#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs140.h"

// Faults of an Offset Surface (igs140).

/// The offset indicator is undefined or shorter than kelTolMinValue.
using igs140ZeroIndicator = igsNamedError<"igs140ZeroIndicator">;
/// The distance is undefined.
using igs140InvalidDistance = igsNamedError<"igs140InvalidDistance">;
/// The pointer to the surface is null.
using igs140NullSurface = igsNamedError<"igs140NullSurface">;
/// The surface is not a surface.
using igs140WrongSurfaceType = igsNamedError<"igs140WrongSurfaceType">;
/// The surface fails its own check.
using igs140InvalidSurface = igsNamedError<"igs140InvalidSurface", igsReferenceDataError>;
