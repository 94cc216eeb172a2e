#include "igs/curves/igs112_errors.h"

#include "igs/support/coResourceTable.h"

int igs112BreakPointOutOfSequence::fix() {
  return igs_repair<igs112>(object_at_key(), [this](igs112& curve) {
    const double tolerance = kel_resource_table_inquire().value(kelTolCoincBreakPoints);
    return curve.raise_break_point(value<0>(), value<2>(), tolerance);
  });
}
