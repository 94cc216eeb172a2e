#pragma once

#include "igs/errors/igsErrorClass.h"

/// The start point is undefined.
using igs110InvalidStartPoint = igsNamedError<"igs110InvalidStartPoint">;
/// The end point is undefined.
using igs110InvalidEndPoint = igsNamedError<"igs110InvalidEndPoint">;

/// The end points are at most kelTolZeroLength apart; carries that tolerance.
class IGS_API igs110CoincidentPoints
    : public igsErrorClass<igs110CoincidentPoints, "igs110CoincidentPoints", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Replaces the line in its file by a polyline through the same two points, which may coincide. 0 for a line without
  /// ends: its direction is lost.
  int fix() override;
};
