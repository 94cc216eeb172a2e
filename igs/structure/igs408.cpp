#include "igs/structure/igs408.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igs408_errors.h"

igs408::igs408() { set_directory_entry_type(igsEntity408, 0); }

void igs408::check_pd() const {
  igsReferenceErrors<"igs408", "Subfigure">::Test::check(*this, m_subfigure, igsExactly<igs308>());
  if (m_translation.is_undefined()) tag<igs408InvalidTranslation>();
  if (m_scale == 0 || igs_is_undefined_real(m_scale)) tag<igs408InvalidScale>(m_scale);
}
