#pragma once

#include <algorithm>
#include <cmath>

#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsCast.h"
#include "igs/structure/igs314.h"

// Faults of a Color Definition (igs314).

/// Kind of the errors that say that a colour component, with its getter and its setter, is outside 0 to 100: `fix` sets
/// it to the nearer end, an undefined one and one that is no number to 0, and answers 1; 0 when there is no colour.
template <auto Get, auto Set>
class igsComponentOutOfRange : public igsObjectError {
 public:
  int fix() override {
    return igs_repair<igs314>(object_at_key(), [](igs314& colour) {
      const double component = (colour.*Get)();
      (colour.*Set)(std::isnan(component) ? 0 : std::clamp(component, 0.0, 100.0));
    });
  }

 protected:
  igsComponentOutOfRange() = default;
};

/// These carry the component.
using igs314InvalidRed =
    igsNamedError<"igs314InvalidRed", igsComponentOutOfRange<&igs314::red, &igs314::set_red>, double>;
using igs314InvalidGreen =
    igsNamedError<"igs314InvalidGreen", igsComponentOutOfRange<&igs314::green, &igs314::set_green>, double>;
using igs314InvalidBlue =
    igsNamedError<"igs314InvalidBlue", igsComponentOutOfRange<&igs314::blue, &igs314::set_blue>, double>;
