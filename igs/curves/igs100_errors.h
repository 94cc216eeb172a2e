#pragma once

#include "igs/errors/igsErrorClass.h"

/// The centre, an end point or the z level is undefined.
using igs100NoConstruct = igsNamedError<"igs100NoConstruct">;
/// The mean radius is not above 0.
using igs100ZeroRadius = igsNamedError<"igs100ZeroRadius">;

/// The end points' distances from the centre differ, relative to their sum, by more than kelTolRadiusDiff.
class IGS_API igs100InconsistRad : public igsErrorClass<igs100InconsistRad, "igs100InconsistRad", igsObjectError> {
 public:
  /// Moves the centre, and nothing else, onto the bisector of the chord, so that both end points are at the mean of the
  /// two radii; of the two places the one nearer to the old centre. 0 when there is no such place: the end points are
  /// the same, or not finite.
  int fix() override;
};
