#pragma once

#include "igs/support/undefined.h"
#include "igs/surfaces/igsAnalyticSurface.h"

/// Right Circular Conical Surface (IGES 5.3, type 194): around the axis through the location, with a radius at the
/// location that grows in the direction of the axis. Model units.
template <class Self, igsName Name, int Form>
class IGS_API_TEMPLATE igs194Base : public igsAnalyticSurface<Self, Name, Form> {
 public:
  /// At the location; 0 or more. Unset (-DBL_MAX) at first.
  double radius() const { return m_radius; }
  void set_radius(double radius) { m_radius = radius; }
  /// Between the axis and the surface, in degrees: above 0 and below 90. Unset (-DBL_MAX) at first.
  double semi_angle() const { return m_semi_angle; }
  void set_semi_angle(double semi_angle) { m_semi_angle = semi_angle; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Location", entity.m_location);
    visit("Axis", entity.m_axis);
    visit.parametric([&] {
      visit("Radius", entity.m_radius);
      visit("SemiAngle", entity.m_semi_angle);
    });
    if constexpr (Form == 1) visit("RefDirection", entity.m_ref_direction);
  }

 protected:
  igs194Base();

 private:
  double m_radius = igs_undefined_real;
  double m_semi_angle = igs_undefined_real;
};

/// Form 0, without parameters.
class IGS_API igs194_0 : public igs194Base<igs194_0, "igs194_0", 0> {
 public:
  igs194_0();
};

/// Form 1, with parameters.
class IGS_API igs194_1 : public igs194Base<igs194_1, "igs194_1", 1> {
 public:
  igs194_1();
};
