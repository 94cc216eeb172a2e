#include "igs/solids/igs510_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/solids/igs510.h"

int igs510InvalidOuterLoopFlag::fix() {
  return igs_repair<igs510>(object_at_key(), [](igs510& face) { face.set_outer_loop_flag(0); });
}
