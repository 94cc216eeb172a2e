#pragma once

#include <limits>

#include "igs/shape/igsVec.h"

/// A point or vector of an entity (giPoint3, giVector3), to calculate with; not finite where it is undefined.
template <class Given>
igsVec3 igs_vec_of(const Given& given) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  return given.is_undefined() ? igsVec3{none, none, none} : igsVec3{given.x(), given.y(), given.z()};
}
