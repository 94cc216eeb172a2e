#include "igs/solids/igs186_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs514.h"

int igs186OuterShellWrongShellType::fix() {
  return igs_repair<igs186>(object_at_key(), [](igs186& solid) {
    const igsObject* const shell = solid.outer_shell().shell().object();
    if (shell == nullptr || !shell->isa(igs514::type())) solid.set_outer_shell({new igs514, 0});
    return 0;
  });
}
