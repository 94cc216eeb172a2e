#include "igs/geometry/igs186_errors.h"

#include "igs/geometry/igs186.h"
#include "igs/geometry/igs514.h"
#include "igs/objects/igsCast.h"

int igs186OuterShellWrongShellType::fix() {
  return igs_repair<igs186>(object_at_key(), [](igs186& solid) {
    const igsObject* const shell = solid.outer_shell().shell().object();
    if (shell == nullptr || !shell->isa(igs514::type())) solid.set_outer_shell({new igs514, 0});
    return 0;
  });
}
