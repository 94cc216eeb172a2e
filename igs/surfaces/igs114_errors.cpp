#include "igs/surfaces/igs114_errors.h"

#include "igs/support/coResourceTable.h"

namespace {
double tolerance() { return kel_resource_table_inquire().value(kelTolCoincBreakPoints); }
}  // namespace

int igs114UBreakPointOutOfSequence::fix() {
  return igs_repair<igs114>(object_at_key(), [this](igs114& surface) {
    return surface.raise_break_point_u(value<0>(), value<2>(), tolerance());
  });
}

int igs114VBreakPointOutOfSequence::fix() {
  return igs_repair<igs114>(object_at_key(), [this](igs114& surface) {
    return surface.raise_break_point_v(value<0>(), value<2>(), tolerance());
  });
}
