#include "igs/curves/igsTrimmedConic.h"

void igsTrimmedConic::end_points(giPoint2& start, giPoint2& end) const {
  start = m_start_point;
  end = m_end_point;
}

bool igsTrimmedConic::valid_pd() const {
  return !m_start_point.is_undefined() && !m_end_point.is_undefined() && !igs_is_undefined_real(m_z_level);
}
