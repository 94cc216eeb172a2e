#pragma once

#include "igs/errors/igsErrorClass.h"

/// The dimensionality is none of 1, 2 and 3; carries it.
class IGS_API igsPointsetInvalidDimensionality
    : public igsErrorClass<igsPointsetInvalidDimensionality, "igsPointsetInvalidDimensionality", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Takes the dimensionality that the form tells.
  int fix() override;
};

/// The form tells another dimensionality than the data have; carries the form and the dimensionality.
class IGS_API igsPointsetInconsistForm
    : public igsErrorClass<igsPointsetInconsistForm, "igsPointsetInconsistForm", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets the form to match.
  int fix() override;
};

/// There is no point.
class IGS_API igsPointsetNoPoints : public igsErrorClass<igsPointsetNoPoints, "igsPointsetNoPoints", igsObjectError> {};

/// Planar points without a z level.
class IGS_API igsPointsetInvalidZLevel
    : public igsErrorClass<igsPointsetInvalidZLevel, "igsPointsetInvalidZLevel", igsObjectError> {};

/// A point is undefined; carries its index, 0-based.
class IGS_API igsPointsetInvalidPoint
    : public igsErrorClass<igsPointsetInvalidPoint, "igsPointsetInvalidPoint", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The number of points is negative or out of proportion to the record; carries it.
class IGS_API igsPointsetBadNumPoints
    : public igsErrorClass<igsPointsetBadNumPoints, "igsPointsetBadNumPoints", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
