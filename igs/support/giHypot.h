#pragma once

#include <cmath>

/// The length of the vector x, y, z, which overflows only where it is no double itself: what std::hypot gives where
/// that takes care, which not all standard libraries do.
inline double gi_hypot(double x, double y, double z) {
  x = std::abs(x);
  y = std::abs(y);
  z = std::abs(z);
  const double larger = x < y ? y : x;
  const double largest = larger < z ? z : larger;
  if (largest == 0) return 0;
  return largest *
         std::sqrt((x / largest) * (x / largest) + (y / largest) * (y / largest) + (z / largest) * (z / largest));
}
