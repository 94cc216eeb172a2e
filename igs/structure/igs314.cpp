#include "igs/structure/igs314.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs314_errors.h"

namespace {
bool is_percentage(double value) {
  constexpr double rounding = 1e-6;
  return value >= -rounding && value <= 100 + rounding;
}
}  // namespace

igs314::igs314() { set_directory_entry_type(igsEntity314, 0); }

void igs314::check_pd() const {
  if (!is_percentage(m_red)) tag<igs314InvalidRed>(m_red);
  if (!is_percentage(m_green)) tag<igs314InvalidGreen>(m_green);
  if (!is_percentage(m_blue)) tag<igs314InvalidBlue>(m_blue);
}
