#include "igs/shape/private/igsGridPoint.h"

#include <cmath>

namespace {
/// A number of 128 bits, in two's complement; there is no such type everywhere.
struct Wide {
  std::uint64_t high, low;

  Wide operator+(const Wide& other) const {
    const std::uint64_t sum = low + other.low;
    return {high + other.high + (sum < low ? 1U : 0U), sum};
  }
  Wide operator-() const { return {~high + (low == 0 ? 1U : 0U), ~low + 1U}; }
  bool is_positive() const { return high >> 63 == 0 && (high | low) != 0; }
};

Wide product(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t half = 0xffffffffU;
  const std::uint64_t lows = (a & half) * (b & half), left = (a >> 32) * (b & half), right = (a & half) * (b >> 32);
  const std::uint64_t middle = (lows >> 32) + (left & half) + (right & half);
  return {(a >> 32) * (b >> 32) + (left >> 32) + (right >> 32) + (middle >> 32), (middle << 32) | (lows & half)};
}

Wide product(std::uint64_t a, std::int64_t b) {
  return b < 0 ? -product(a, std::uint64_t{0} - static_cast<std::uint64_t>(b))
               : product(a, static_cast<std::uint64_t>(b));
}

/// A point as seen from another.
struct Seen {
  Seen(const igsGridPoint& point, const igsGridPoint& from)
      : x(std::int64_t{point.x} - from.x), y(std::int64_t{point.y} - from.y) {}
  std::uint64_t square() const { return static_cast<std::uint64_t>(x * x + y * y); }
  std::int64_t cross(const Seen& other) const { return x * other.y - y * other.x; }
  std::int64_t x, y;
};
}  // namespace

// The factors are exact. Converting, multiplying and adding them errs by less than six halves of a unit in the last
// place of all sizes together.
bool igs_in_circle(const igsGridPoint& a, const igsGridPoint& b, const igsGridPoint& c, const igsGridPoint& d) {
  const Seen seen_a(a, d), seen_b(b, d), seen_c(c, d);
  const std::uint64_t squares[] = {seen_a.square(), seen_b.square(), seen_c.square()};
  const std::int64_t areas[] = {seen_b.cross(seen_c), seen_c.cross(seen_a), seen_a.cross(seen_b)};
  double sum = 0, size = 0;
  for (int i = 0; i < 3; ++i) {
    const double term = static_cast<double>(squares[i]) * static_cast<double>(areas[i]);
    sum += term;
    size += std::abs(term);
  }
  if (std::abs(sum) > 1e-15 * size) return sum > 0;
  return (product(squares[0], areas[0]) + product(squares[1], areas[1]) + product(squares[2], areas[2])).is_positive();
}
