#pragma once

#include "igs/support/undefined.h"
#include "igs/surfaces/igsAnalyticSurface.h"

/// Right Circular Cylindrical Surface (IGES 5.3, type 192): all points at the distance `radius` from the axis through
/// the location. Model units.
template <class Self, igsName Name, int Form>
class IGS_API_TEMPLATE igs192Base : public igsAnalyticSurface<Self, Name, Form> {
 public:
  /// Above 0. Unset (-DBL_MAX) at first.
  double radius() const { return m_radius; }
  void set_radius(double radius) { m_radius = radius; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Location", entity.m_location);
    visit("Axis", entity.m_axis);
    visit.parametric([&] { visit("Radius", entity.m_radius); });
    if constexpr (Form == 1) visit("RefDirection", entity.m_ref_direction);
  }

 protected:
  igs192Base();

 private:
  double m_radius = igs_undefined_real;
};

/// Form 0, without parameters.
class IGS_API igs192_0 : public igs192Base<igs192_0, "igs192_0", 0> {
 public:
  igs192_0();
};

/// Form 1, with parameters.
class IGS_API igs192_1 : public igs192Base<igs192_1, "igs192_1", 1> {
 public:
  igs192_1();
};
