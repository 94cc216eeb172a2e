#include "igs/curves/igsConicCoeffs.h"

#include <algorithm>
#include <cmath>

#include "igs/support/coResourceTable.h"

igsConicCoeffs::igsConicCoeffs(const double coeffs[6]) : m_values{} {
  std::copy_n(coeffs, m_values.size(), m_values.begin());
}

bool igsConicCoeffs::valid() const { return std::none_of(m_values.begin(), m_values.end(), igs_is_undefined_real); }

void igsConicCoeffs::coeffs(double coeffs[6]) const { std::copy(m_values.begin(), m_values.end(), coeffs); }

igsConicType igsConicCoeffs::conic_type() const {
  const auto [a, b, c, d, e, f] = m_values;
  const double q1 =
      a * (c * f - e / 2 * (e / 2)) - b / 2 * (b / 2 * f - d / 2 * (e / 2)) + d / 2 * (b / 2 * (e / 2) - d / 2 * c);
  const double q2 = a * c - b / 2 * (b / 2);
  const double q3 = a + c;
  const double tolerance = kel_resource_table_inquire().value(kelTolConicIsParabola);

  if (q2 > tolerance && q3 * q1 < tolerance) return igsConicEllipse;
  if (q2 < -tolerance && std::abs(q1) > tolerance) return igsConicHyperbola;
  if (-tolerance <= q2 && q2 <= tolerance && std::abs(q1) > tolerance) return igsConicParabola;

  const bool is_degenerate = !(q1 < 0 || q1 > 0);  // also when it is no number
  if (q2 > 0 && q3 * q1 < 0) return igsConicEllipse;
  if (q2 < 0 && !is_degenerate) return igsConicHyperbola;
  if (q2 != 0 || is_degenerate) return igsConicUnknown;
  return igsConicParabola;
}
