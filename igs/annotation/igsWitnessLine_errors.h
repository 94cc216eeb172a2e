#pragma once

#include "igs/annotation/igsWitnessLine.h"
#include "igs/errors/igsRepairs.h"

// See igsPlanarPointsErrors.

using igsWitnessLineInvalidDimensionality = igsWitnessLineErrors::InvalidDimensionality;
using igsWitnessLineInvalidZLevel = igsWitnessLineErrors::InvalidZLevel;
using igsWitnessLineBadNumPoints = igsWitnessLineErrors::BadNumPoints;
using igsWitnessLineInvalidPoint = igsWitnessLineErrors::InvalidPoint;
/// The first and the last point are at most kelTolCoincPoint2d apart; carries that tolerance. Accepted: a suppressed
/// witness line is drawn so.
using igsWitnessLineCoincidentPoints =
    igsNamedError<"igsWitnessLineCoincidentPoints", igsAccepted<igsObjectError>, double>;
/// Points are farther than kelTolCoincPoint2d from the line through the first and the last; carries the index (0-based)
/// of the farthest and its distance. Accepted.
using igsWitnessLineNotCollinear =
    igsNamedError<"igsWitnessLineNotCollinear", igsAccepted<igsObjectError>, int, double>;
