#include "diff/reals.h"

#include <cmath>

#include "text/text.h"

namespace {

/// Some odd number of tolerances: few of the numbers that people choose lie on the border of two cells.
constexpr double cell_in_tolerances = 61.803398875;

}  // namespace

bool equal_reals(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool RealRule::same(double a, double b) const {
  if (equal_reals(a, b)) return true;
  if (m_kind == Kind::tolerance) return std::abs(a - b) <= m_tolerance;
  return m_kind == Kind::digits && representative(a) == representative(b);
}

double RealRule::representative(double value) const {
  if (value == 0 || !std::isfinite(value)) return value == 0 ? 0 : value;  // the sign of 0 makes no difference
  if (m_kind == Kind::digits) return rounded_to_digits(value, m_digits);
  if (m_kind == Kind::tolerance && m_tolerance > 0) return std::nearbyint(value / (m_tolerance * cell_in_tolerances));
  return value;
}
