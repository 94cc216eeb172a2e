#pragma once

#include <cstdint>

/// A point of a grid, with coordinates between -2^28 and 2^30 + 2^28, so that what follows is exact.
struct igsGridPoint {
  std::int32_t x, y;
  bool operator==(const igsGridPoint&) const = default;
};

/// Twice the area of the triangle: above 0 where it runs counterclockwise, 0 where the points lie on a line.
inline std::int64_t igs_turn(const igsGridPoint& a, const igsGridPoint& b, const igsGridPoint& c) {
  return (std::int64_t{b.x} - a.x) * (std::int64_t{c.y} - a.y) - (std::int64_t{b.y} - a.y) * (std::int64_t{c.x} - a.x);
}

/// True when `d` lies within the circle of a triangle that runs counterclockwise.
bool igs_in_circle(const igsGridPoint& a, const igsGridPoint& b, const igsGridPoint& c, const igsGridPoint& d);
