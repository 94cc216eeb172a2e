#include "igs/curves/igs100.h"

#include <cmath>

#include "igs/curves/igs100_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"

igs100::igs100() { set_directory_entry_type(igsEntity100, 0); }

void igs100::check_pd() const {
  if (m_centre.is_undefined() || !valid_pd()) {
    tag<igs100NoConstruct>();
    return;
  }
  const double start_radius = m_centre.distance(m_start_point);
  const double end_radius = m_centre.distance(m_end_point);
  const double tolerance = kel_resource_table_inquire().value(kelTolRadiusDiff);
  if (!((start_radius + end_radius) / 2 > 0)) {
    tag<igs100ZeroRadius>();
  } else if (std::abs(start_radius - end_radius) / (start_radius + end_radius) > tolerance) {
    tag<igs100InconsistRad>();
  }
}
