#pragma once

#include "igs/annotation/igsCentreLine.h"

// See igsPlanarPointsErrors.

using igsCentreLineInvalidDimensionality = igsCentreLineErrors::InvalidDimensionality;
using igsCentreLineInvalidZLevel = igsCentreLineErrors::InvalidZLevel;
using igsCentreLineBadNumPoints = igsCentreLineErrors::BadNumPoints;
using igsCentreLineInvalidPoint = igsCentreLineErrors::InvalidPoint;
