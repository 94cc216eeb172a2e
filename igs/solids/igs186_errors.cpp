#include "igs/solids/igs186_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/solids/igs514.h"

int igs186OuterShellWrongShellType::fix() {
  return igs_repair<igs186>(object_at_key(), [](igs186& solid) {
    solid.set_outer_shell({new igs514, 0});
    return 0;
  });
}
