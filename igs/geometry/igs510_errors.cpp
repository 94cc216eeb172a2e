#include "igs/geometry/igs510_errors.h"

#include "igs/geometry/igs510.h"
#include "igs/objects/igsCast.h"

int igs510InvalidOuterLoopFlag::fix() {
  return igs_repair<igs510>(object_at_key(), [](igs510& face) { face.set_outer_loop_flag(0); });
}
