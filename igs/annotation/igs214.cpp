#include "igs/annotation/igs214.h"

#include "igs/annotation/igs214_errors.h"
#include "igs/fields/igsEntityFields.h"

igs214::igs214() { set_directory_entry_type(igsEntity214, 1); }

void igs214::check_pd() const {
  if (m_tails.empty()) tag<igs214NoSegments>();
  if (!(m_arrow_height >= 0)) tag<igs214InvalidArrowHeight>(m_arrow_height);
  if (!(m_arrow_width >= 0)) tag<igs214InvalidArrowWidth>(m_arrow_width);
  if (igs_is_undefined_real(m_z_level)) tag<igs214InvalidZLevel>();
  if (m_arrow_head.is_undefined()) tag<igs214InvalidArrowHead>();
  for (int i = 0; const giPoint2& tail : m_tails) {
    if (tail.is_undefined()) tag<igs214InvalidTail>(i);
    ++i;
  }
}
