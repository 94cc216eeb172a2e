#pragma once

#include "igs/shape/igsPlacement.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsShapeSurface.h"

/// The shape where a placement puts it; the shape itself where that moves nothing. Null for null.
igsShapeCurvePtr igs_placed(igsShapeCurvePtr curve, const igsPlacement& placement);
igsShapeSurfacePtr igs_placed(igsShapeSurfacePtr surface, const igsPlacement& placement);
