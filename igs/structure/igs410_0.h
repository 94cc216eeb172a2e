#pragma once

#include <array>

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsDefinition.h"
#include "igs/support/undefined.h"

/// Orthographic Parallel View (IGES 5.3, type 410 form 0): a projection on the XY plane of the space that the entity's
/// matrix maps to, scaled, and clipped by up to six planes.
class IGS_API igs410_0 : public igsEntity<igs410_0, "igs410_0", igsDefinition> {
 public:
  /// The planes that bound the view volume, by position.
  enum Plane { left_plane, top_plane, right_plane, bottom_plane, back_plane, front_plane, number_of_planes };

  igs410_0();

  /// Different from those of all other views of the file; -2147483647 where none is given. Numbers are compared by
  /// igsFile::check: they are no matter of the view alone.
  int view_number() const { return m_view_number; }
  void set_view_number(int number) { m_view_number = number; }
  /// Above 0; 1 where the record does not give it.
  double scale() const { return m_scale; }
  void set_scale(double scale) { m_scale = scale; }
  /// The plane (igs108) on that side; null for a side without one.
  const igsObjectPtr& plane(Plane side) const { return m_planes.at(side); }
  void set_plane(Plane side, const igsObjectPtr& plane) { m_planes.at(side) = plane; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("ViewNumber", entity.m_view_number, igs_unset_int);
    visit("Scale", entity.m_scale, 1.0);
    visit("LeftPlane", entity.m_planes[left_plane]);
    visit("TopPlane", entity.m_planes[top_plane]);
    visit("RightPlane", entity.m_planes[right_plane]);
    visit("BottomPlane", entity.m_planes[bottom_plane]);
    visit("BackPlane", entity.m_planes[back_plane]);
    visit("FrontPlane", entity.m_planes[front_plane]);
  }

 private:
  int m_view_number = igs_unset_int;
  double m_scale = 1;
  std::array<igsObjectPtr, number_of_planes> m_planes;
};
