#include "igs/curves/igs104.h"

#include "igs/curves/igs104_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/file/igsDirectoryEntry.h"

igs104::igs104() { set_directory_entry_type(igsEntity104, 0); }

void igs104::check_pd() const {
  if (!valid_pd() || !m_coeffs.valid()) tag<igs104NoConstruct>();
  const igsConicType type = m_coeffs.conic_type();
  const int form = directory_entry().form_number();
  if (form == 0 && type == igsConicUnknown) tag<igs104UnknownType>();
  if (form == 1 && type != igsConicEllipse) tag<igs104NotEllipse>();
  if (form == 2 && type != igsConicHyperbola) tag<igs104NotHyperbola>();
  if (form == 3 && type != igsConicParabola) tag<igs104NotParabola>();
}
