#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "igs/shape/igsShapeCurve.h"

/// Which of the spans between ascending values, at least two, `t` lies in: the position of the lower one. Where `t` is
/// one of the values, the span on its `side`, as far as the ends allow.
inline std::size_t igs_span_of(const std::vector<double>& values, double t, igsSide side) {
  const auto inner = values.begin() + 1, last = values.end() - 1;
  const auto next = side == igsSide::after ? std::upper_bound(inner, last, t) : std::lower_bound(inner, last, t);
  return static_cast<std::size_t>(next - inner);
}
