#include "igs/curves/igs102_errors.h"

#include "igs/curves/igs102.h"
#include "igs/objects/igsCast.h"

namespace {
igsObjectPtr* sub_curve_of(igsObject* object, int original) {
  igs102* const composite = igs_cast<igs102>(object);
  return composite != nullptr ? composite->at_original(original) : nullptr;
}
}  // namespace

igsObjectPtr igs102InvalidSubCurveType::reference() const {
  const igsObjectPtr* const sub_curve = sub_curve_of(object_at_key(), value<0>());
  return sub_curve != nullptr ? *sub_curve : igsObjectPtr();
}

void igs102InvalidSubCurveType::set_reference(const igsObjectPtr& curve) const {
  if (igsObjectPtr* const sub_curve = sub_curve_of(object_at_key(), value<0>())) *sub_curve = curve;
}

int igs102InvalidSubCurveData::fix() {
  const igsObjectPtr* const sub_curve = sub_curve_of(object_at_key(), value<0>());
  if (sub_curve == nullptr || sub_curve->object() == nullptr) return 0;
  if (sub_curve->object()->num_logged_errors() == 0) return 1;
  message("Warning : sub curve DE %d has been removed from composite curve DE %d\n", sub_curve->de_number(), key());
  return igs_cast<igs102>(object_at_key())->remove_original(value<0>());
}
