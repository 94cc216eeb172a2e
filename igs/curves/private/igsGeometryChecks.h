#pragma once

#include "igs/curves/igs116.h"
#include "igs/objects/igsCurve.h"

// What the checks of several geometry entities ask. Private to the library: included by their source files.

/// The value of a flag that says yes or no.
inline bool igs_is_flag(int value) { return value == 0 || value == 1; }

/// What may stand where a curve may shrink to a point.
inline bool igs_is_curve_or_point(const igsObject& object) {
  return object.typeof(igsCurve::type()) || object.isa(igs116::type());
}
