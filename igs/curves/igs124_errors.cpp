#include "igs/curves/igs124_errors.h"

#include <cmath>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/support/coResourceTable.h"

namespace {
constexpr int right_handed_form = 0;
constexpr int left_handed_form = 1;

int form_for(double determinant) { return determinant < 0 ? left_handed_form : right_handed_form; }

int make_rigid(igs124& matrix, double determinant) {
  const double tolerance = 100 * kel_resource_table_inquire().value(kelTolRigidTransformDeterminant);
  if (!(std::abs(std::abs(determinant) - 1) < tolerance)) return 0;
  return matrix.make_rigid(determinant < 0);
}

bool repairs_rigid_transforms() { return kel_resource_table_inquire().value(kelOptRigidTransforms); }
}  // namespace

int igs_repair_hand(igs124& matrix, double determinant) {
  if (determinant == 0) return 0;
  if (repairs_rigid_transforms() && make_rigid(matrix, determinant) == 0) return 0;
  matrix.directory_entry().set_form_number(form_for(determinant));
  return 1;
}

int igs124InvalidUnitVectors::fix() {
  return igs_repair<igs124>(object_at_key(), [](igs124& matrix) {
    return repairs_rigid_transforms() ? make_rigid(matrix, matrix.transform().rotation_determinant()) : 0;
  });
}
