#pragma once

#include "igs/curves/igsPolyline.h"
#include "igs/errors/igsErrorClass.h"

// See igsCopiousErrors.

using igsPolylineInvalidDimensionality = igsPolylineErrors::InvalidDimensionality;
using igsPolylineInconsistForm = igsPolylineErrors::InconsistForm;
using igsPolylineInvalidZLevel = igsPolylineErrors::InvalidZLevel;
using igsPolylineInvalidPoint = igsPolylineErrors::InvalidPoint;
using igsPolylineBadNumPoints = igsPolylineErrors::BadNumPoints;
/// There are fewer than 2 points; carries their number.
using igsPolylineTooFewPoints = igsNamedError<"igsPolylineTooFewPoints", igsObjectError, int>;
