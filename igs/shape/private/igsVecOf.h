#pragma once

#include <limits>

#include "igs/curves/igsCopiousData.h"
#include "igs/shape/igsVec.h"

/// A point or vector of an entity (giPoint3, giVector3), to calculate with; not finite where it is undefined.
template <class Given>
igsVec3 igs_vec_of(const Given& given) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  return given.is_undefined() ? igsVec3{none, none, none} : igsVec3{given.x(), given.y(), given.z()};
}

/// A point in a plane that a file gives by its z level; 0 counts where there is none.
inline igsVec3 igs_vec_of(const giPoint2& point, double z_level) {
  if (point.is_undefined()) return igs_vec_of(giPoint3());
  return {point.x(), point.y(), igs_is_undefined_real(z_level) ? 0 : z_level};
}

/// Point `i`, which there is, of whatever layout.
inline igsVec3 igs_vec_of(const igsCopiousData& data, int i) {
  const bool is_planar = data.layout() == igsCopiousData::planar;
  return is_planar ? igs_vec_of(data.planar_point(i), data.z_level()) : igs_vec_of(data.point(i));
}
