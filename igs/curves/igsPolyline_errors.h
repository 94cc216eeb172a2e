#pragma once

#include "igs/errors/igsErrorClass.h"

/// The dimensionality is none of 1, 2 and 3; carries it.
class IGS_API igsPolylineInvalidDimensionality
    : public igsErrorClass<igsPolylineInvalidDimensionality, "igsPolylineInvalidDimensionality", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Takes the dimensionality that the form tells.
  int fix() override;
};

/// The form tells another dimensionality than the data have; carries the form and the dimensionality.
class IGS_API igsPolylineInconsistForm
    : public igsErrorClass<igsPolylineInconsistForm, "igsPolylineInconsistForm", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets the form to match.
  int fix() override;
};

/// There are fewer than 2 points; carries their number.
class IGS_API igsPolylineTooFewPoints
    : public igsErrorClass<igsPolylineTooFewPoints, "igsPolylineTooFewPoints", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Planar points without a z level.
class IGS_API igsPolylineInvalidZLevel
    : public igsErrorClass<igsPolylineInvalidZLevel, "igsPolylineInvalidZLevel", igsObjectError> {};

/// A point is undefined; carries its index, 0-based.
class IGS_API igsPolylineInvalidPoint
    : public igsErrorClass<igsPolylineInvalidPoint, "igsPolylineInvalidPoint", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The number of points is negative or out of proportion to the record; carries it.
class IGS_API igsPolylineBadNumPoints
    : public igsErrorClass<igsPolylineBadNumPoints, "igsPolylineBadNumPoints", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
