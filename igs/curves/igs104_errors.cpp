#include "igs/curves/igs104_errors.h"

#include "igs/file/igsDirectoryEntry.h"

namespace {
int form_of(igsConicType type) {
  switch (type) {
    case igsConicEllipse:
      return 1;
    case igsConicHyperbola:
      return 2;
    case igsConicParabola:
      return 3;
    default:
      return 0;
  }
}

}  // namespace

int igs_adopt_conic_form(igs104& conic) {
  const int form = form_of(conic.coeffs().conic_type());
  if (form == 0) return 0;
  conic.directory_entry().set_form_number(form);
  return 1;
}
