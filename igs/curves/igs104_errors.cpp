#include "igs/curves/igs104_errors.h"

#include "igs/curves/igs104.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"

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

int adopt_form(igsObject* object) {
  const igs104* const conic = igs_cast<igs104>(object);
  const int form = conic != nullptr ? form_of(conic->coeffs().conic_type()) : 0;
  if (form == 0) return 0;
  conic->directory_entry().set_form_number(form);
  return 1;
}
}  // namespace

int igs104NotEllipse::fix() { return adopt_form(object_at_key()); }

int igs104NotHyperbola::fix() { return adopt_form(object_at_key()); }

int igs104NotParabola::fix() { return adopt_form(object_at_key()); }
