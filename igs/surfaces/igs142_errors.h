#pragma once

#include "igs/errors/igsErrorClass.h"

/// CRTN is outside 0 to 3; carries it.
using igs142InvalidCurveCreation = igsNamedError<"igs142InvalidCurveCreation", igsObjectError, int>;
/// PREF is outside 0 to 3; carries it.
using igs142InvalidPrefRepresentation = igsNamedError<"igs142InvalidPrefRepresentation", igsObjectError, int>;
/// There is no surface.
using igs142NullSurfacePtr = igsNamedError<"igs142NullSurfacePtr">;
/// What should be the surface is none.
using igs142InvalidSurfaceType = igsNamedError<"igs142InvalidSurfaceType">;
/// The surface fails its own check.
using igs142InvalidSurfaceData = igsNamedError<"igs142InvalidSurfaceData", igsReferenceDataError>;
/// What should be the curve in the parameter space of the surface is no curve.
using igs142InvalidCurve2dType = igsNamedError<"igs142InvalidCurve2dType">;
/// The curve in the parameter space of the surface fails its own check.
using igs142InvalidCurve2dData = igsNamedError<"igs142InvalidCurve2dData", igsReferenceDataError>;
/// There is a curve in the parameter space of a plane (type 108), which has no parameters.
using igs142Trim2DNonParametricSurface = igsNamedError<"igs142Trim2DNonParametricSurface">;
/// What should be the curve in model space is no curve.
using igs142InvalidCurve3dType = igsNamedError<"igs142InvalidCurve3dType">;
/// The curve in model space fails its own check.
using igs142InvalidCurve3dData = igsNamedError<"igs142InvalidCurve3dData", igsReferenceDataError>;
/// There is neither a curve in parameter space nor one in model space.
using igs142NoTrimCurves = igsNamedError<"igs142NoTrimCurves">;
