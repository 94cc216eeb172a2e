#include "igs/curves/igs124_errors.h"

#include <cmath>

#include "igs/curves/igs124.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/support/coResourceTable.h"

namespace {
constexpr int right_handed_form = 0;
constexpr int left_handed_form = 1;

int form_for(double determinant) { return determinant < 0 ? left_handed_form : right_handed_form; }

int make_rigid(igs124* entity, double determinant) {
  const double tolerance = 100 * kel_resource_table_inquire().value(kelTolRigidTransformDeterminant);
  if (entity == nullptr || !(std::abs(std::abs(determinant) - 1) < tolerance)) return 0;
  return entity->make_rigid(determinant < 0);
}

bool repairs_rigid_transforms() { return kel_resource_table_inquire().value(kelOptRigidTransforms); }

int fix_hand(igs124* entity, double determinant) {
  if (entity == nullptr || determinant == 0) return 0;
  if (repairs_rigid_transforms() && make_rigid(entity, determinant) == 0) return 0;
  entity->directory_entry().set_form_number(form_for(determinant));
  return 1;
}
}  // namespace

int igs124InvalidRHS::fix() { return fix_hand(igs_cast<igs124>(object_at_key()), value<0>()); }

int igs124InvalidLHS::fix() { return fix_hand(igs_cast<igs124>(object_at_key()), value<0>()); }

int igs124InvalidUnitVectors::fix() {
  igs124* const entity = igs_cast<igs124>(object_at_key());
  if (entity == nullptr || !repairs_rigid_transforms()) return 0;
  return make_rigid(entity, entity->transform().rotation_determinant());
}
