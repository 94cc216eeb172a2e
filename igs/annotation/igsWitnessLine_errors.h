#pragma once

#include "igs/annotation/igsWitnessLine.h"
#include "igs/errors/igsErrorClass.h"

// See igsPlanarPointsErrors.

using igsWitnessLineInvalidDimensionality = igsWitnessLineErrors::InvalidDimensionality;
using igsWitnessLineInvalidZLevel = igsWitnessLineErrors::InvalidZLevel;
using igsWitnessLineBadNumPoints = igsWitnessLineErrors::BadNumPoints;
using igsWitnessLineInvalidPoint = igsWitnessLineErrors::InvalidPoint;

/// The first and the last point are at most kelTolCoincPoint2d apart; carries that tolerance.
class IGS_API igsWitnessLineCoincidentPoints
    : public igsErrorClass<igsWitnessLineCoincidentPoints, "igsWitnessLineCoincidentPoints", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Accepts it: 1, nothing is changed. A suppressed witness line is drawn so.
  int fix() override { return 1; }
};

/// Points are farther than kelTolCoincPoint2d from the line through the first and the last; carries the index (0-based)
/// of the farthest and its distance.
class IGS_API igsWitnessLineNotCollinear
    : public igsErrorClass<igsWitnessLineNotCollinear, "igsWitnessLineNotCollinear", igsObjectError, int, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Accepts it: 1, nothing is changed.
  int fix() override { return 1; }
};
