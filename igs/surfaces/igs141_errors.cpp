#include "igs/surfaces/igs141_errors.h"

#include "igs/objects/igsCast.h"
#include "igs/surfaces/igs141.h"

namespace {
igsModelSpaceCurve* model_space_curve_of(igsObject* object, int i) {
  igsModelSpaceCurve* curve = nullptr;
  igs141* const boundary = igs_cast<igs141>(object);
  if (boundary != nullptr) boundary->model_space_curve(i, &curve);
  return curve;
}
}  // namespace

int igs141InvalidReversalFlag::fix() {
  igsModelSpaceCurve* const curve = model_space_curve_of(object_at_key(), value<0>());
  if (curve == nullptr) return 0;
  curve->set_sense(igsModelSpaceCurve::agrees);
  return 1;
}

igsObjectPtr igs141InvalidModelSpaceCurveType::reference() const {
  const igsModelSpaceCurve* const owner = model_space_curve_of(object_at_key(), value<0>());
  return owner != nullptr ? owner->curve() : igsObjectPtr();
}

void igs141InvalidModelSpaceCurveType::set_reference(const igsObjectPtr& curve) const {
  igsModelSpaceCurve* const owner = model_space_curve_of(object_at_key(), value<0>());
  if (owner != nullptr) owner->set_curve(curve);
}

igsObjectPtr igs141InvalidParameterCurveType::reference() const {
  igsObjectPtr curve;
  const igsModelSpaceCurve* const owner = model_space_curve_of(object_at_key(), value<0>());
  if (owner != nullptr) owner->parameter_curve(value<1>(), curve);
  return curve;
}

void igs141InvalidParameterCurveType::set_reference(const igsObjectPtr& curve) const {
  igsModelSpaceCurve* const owner = model_space_curve_of(object_at_key(), value<0>());
  if (owner != nullptr) owner->set_parameter_curve(value<1>(), curve);
}
