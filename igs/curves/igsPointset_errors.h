#pragma once

#include "igs/curves/igsPointset.h"
#include "igs/errors/igsErrorClass.h"

// See igsCopiousErrors.

using igsPointsetInvalidDimensionality = igsPointsetErrors::InvalidDimensionality;
using igsPointsetInconsistForm = igsPointsetErrors::InconsistForm;
using igsPointsetInvalidZLevel = igsPointsetErrors::InvalidZLevel;
using igsPointsetInvalidPoint = igsPointsetErrors::InvalidPoint;
using igsPointsetBadNumPoints = igsPointsetErrors::BadNumPoints;
/// There is no point.
using igsPointsetNoPoints = igsNamedError<"igsPointsetNoPoints">;
