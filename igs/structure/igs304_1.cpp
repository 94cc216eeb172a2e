#include "igs/structure/igs304_1.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs304_1_errors.h"
#include "igs/structure/igs308.h"

igs304_1::igs304_1() { set_directory_entry_type(igsEntity304, 1); }

void igs304_1::check_pd() const {
  if (m_orientation < 1 || m_orientation > 2) tag<igs304_1InvalidOrientation>(m_orientation);
  igsReferenceErrors<"igs304_1", "Template">::Test::check(*this, m_subfigure, igsExactly<igs308>());
  if (!(m_spacing > 0)) tag<igs304_1InvalidSpacing>(m_spacing);
  if (!(m_scale > 0)) tag<igs304_1InvalidScale>(m_scale);
}
