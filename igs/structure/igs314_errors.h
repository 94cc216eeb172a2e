#pragma once

#include <algorithm>
#include <cmath>

#include "igs/errors/igsRepairs.h"
#include "igs/structure/igs314.h"

// Faults of a Color Definition (igs314).

/// The repair of a component, with its getter and its setter.
template <auto Get, auto Set>
void igs_clamp_component(igs314& colour) {
  const double component = (colour.*Get)();
  (colour.*Set)(std::isnan(component) ? 0 : std::clamp(component, 0.0, 100.0));
}

/// A colour component is outside 0 to 100; carries it. It becomes the nearer end, an undefined one and one that is no
/// number 0.
using igs314InvalidRed =
    igsNamedError<"igs314InvalidRed", igsRepairedBy<igs314, &igs_clamp_component<&igs314::red, &igs314::set_red>>,
                  double>;
using igs314InvalidGreen =
    igsNamedError<"igs314InvalidGreen", igsRepairedBy<igs314, &igs_clamp_component<&igs314::green, &igs314::set_green>>,
                  double>;
using igs314InvalidBlue =
    igsNamedError<"igs314InvalidBlue", igsRepairedBy<igs314, &igs_clamp_component<&igs314::blue, &igs314::set_blue>>,
                  double>;
