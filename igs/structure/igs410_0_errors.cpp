#include "igs/structure/igs410_0_errors.h"

namespace {
int renumber(igsObject* object, int number) {
  return igs_repair<igs410_0>(object, [number](igs410_0& view) { view.set_view_number(number); });
}
}  // namespace

int igs410_0NoViewNumberDefined::fix() { return renumber(object_at_key(), value<0>()); }

int igs410_0InvalidViewNumber::fix() { return renumber(object_at_key(), value<0>()); }

int igs410_0RepeatedView::fix() { return renumber(object_at_key(), value<0>()); }
