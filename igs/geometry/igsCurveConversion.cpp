#include "igs/geometry/igsCurveConversion.h"

#include "igs/file/igsFile.h"
#include "igs/geometry/igsPointset.h"
#include "igs/objects/igsConvert.h"

int igsCurveTypeError::obj() {
  if (m_obj == 0) {
    const igsObjectPtr target = reference();
    m_obj = target.object() != nullptr && target->isa(igsPointset::type()) ? target.de_number() : key();
  }
  return m_obj;
}

int igsCurveTypeError::fix() {
  constexpr int unshared = 2;  // the reference that is faulty, and the one held here
  igsObjectPtr target = reference();
  igsObject* const old = target.object();
  if (old == nullptr || old->num_logged_errors() != 0) return 0;
  igsObject* const curve = igsConvert::to_curve(old);
  if (curve == nullptr) return 0;
  if (old->num_references() == unshared) {
    old->file().replace_entity(old, curve);
  } else {
    set_reference(igsObjectPtr(curve));
  }
  return 1;
}
