#pragma once

#include "igs/support/undefined.h"
#include "igs/surfaces/igsAnalyticSurface.h"

/// Spherical Surface (IGES 5.3, type 196): all points at the distance `radius` from the location. Form 0 has no axis.
/// Model units.
template <class Self, igsName Name, int Form>
class IGS_API_TEMPLATE igs196Base : public igsAnalyticSurface<Self, Name, Form, Form == 1> {
 public:
  /// Above 0. Unset (-DBL_MAX) at first.
  double radius() const { return m_radius; }
  void set_radius(double radius) { m_radius = radius; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Location", entity.m_location);
    visit.parametric([&] { visit("Radius", entity.m_radius); });
    if constexpr (Form == 1) {
      visit("Axis", entity.m_axis);
      visit("RefDirection", entity.m_ref_direction);
    }
  }

 protected:
  igs196Base();

 private:
  double m_radius = igs_undefined_real;
};

/// Form 0, without parameters.
class IGS_API igs196_0 : public igs196Base<igs196_0, "igs196_0", 0> {
 public:
  igs196_0();
};

/// Form 1, with parameters.
class IGS_API igs196_1 : public igs196Base<igs196_1, "igs196_1", 1> {
 public:
  igs196_1();
};
