#pragma once

#include "igs/errors/igsErrorClass.h"

/// The start point is undefined.
class IGS_API igs110InvalidStartPoint
    : public igsErrorClass<igs110InvalidStartPoint, "igs110InvalidStartPoint", igsObjectError> {};

/// The end point is undefined.
class IGS_API igs110InvalidEndPoint
    : public igsErrorClass<igs110InvalidEndPoint, "igs110InvalidEndPoint", igsObjectError> {};

/// The end points are at most kelTolZeroLength apart; carries that tolerance.
class IGS_API igs110CoincidentPoints
    : public igsErrorClass<igs110CoincidentPoints, "igs110CoincidentPoints", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Replaces the line in its file by a polyline through the same two points, which may coincide.
  int fix() override;
};
