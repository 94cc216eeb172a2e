#include "igs/curves/igsCurveConversion.h"

#include "igs/curves/igsConvert.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/errors/private/igsRepairRun.h"
#include "igs/file/igsFile.h"

int igsCurveTypeError::obj() {
  if (m_obj == 0) {
    const igsObjectPtr target = reference();
    m_obj = target.object() != nullptr && target->isa(igsPointset::type()) ? target.de_number() : key();
  }
  return m_obj;
}

namespace {
std::size_t bytes_taken(const igsObject& curve) {
  constexpr std::size_t entity = 1024, point = 24;
  const igsPolyline* const polyline = igs_cast<igsPolyline>(&curve);
  return entity + (polyline != nullptr ? point * static_cast<std::size_t>(polyline->number_of_points()) : 0);
}
}  // namespace

int igsCurveTypeError::fix() {
  const igsObject* const target = reference().object();
  return target != nullptr && target->num_logged_errors() == 0 ? convert() : 0;
}

int igsCurveTypeError::convert() {
  constexpr int unshared = 2;  // the reference that is faulty, and the one held here
  igsObjectPtr target = reference();
  igsObject* const old = target.object();
  if (old == nullptr) return 0;
  igsRepairRun* const run = igsRepairRun::current();
  const int de = old->de_number();
  igsObject* const shared = run != nullptr ? run->shared_conversion(de) : nullptr;
  igsObject* const curve = shared != nullptr ? shared : igsConvert::to_curve(old);
  if (curve == nullptr) return 0;
  if (old->num_references() == unshared) {
    if (run != nullptr) run->forget(de);
    old->file().replace_entity(old, curve);
  } else {
    set_reference(igsObjectPtr(curve));
    if (run != nullptr && shared == nullptr) run->converted(de, curve, bytes_taken(*curve));
  }
  return 1;
}
