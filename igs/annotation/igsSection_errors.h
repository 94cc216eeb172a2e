#pragma once

#include "igs/annotation/igsSection.h"

// See igsPlanarPointsErrors.

using igsSectionInvalidDimensionality = igsSectionErrors::InvalidDimensionality;
using igsSectionInvalidZLevel = igsSectionErrors::InvalidZLevel;
using igsSectionBadNumPoints = igsSectionErrors::BadNumPoints;
using igsSectionInvalidPoint = igsSectionErrors::InvalidPoint;
