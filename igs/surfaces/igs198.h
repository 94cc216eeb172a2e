#pragma once

#include "igs/support/undefined.h"
#include "igs/surfaces/igsAnalyticSurface.h"

/// Toroidal Surface (IGES 5.3, type 198): a circle of the minor radius, turned around the axis through the
/// location. Model units.
template <class Self, igsName Name, int Form>
class IGS_API_TEMPLATE igs198Base : public igsAnalyticSurface<Self, Name, Form> {
 public:
  /// Of the circle that the centre of the turned circle describes; above the minor radius. Unset (-DBL_MAX) at first.
  double major_radius() const { return m_major_radius; }
  void set_major_radius(double major_radius) { m_major_radius = major_radius; }
  /// Of the turned circle; above 0. Unset (-DBL_MAX) at first.
  double minor_radius() const { return m_minor_radius; }
  void set_minor_radius(double minor_radius) { m_minor_radius = minor_radius; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Location", entity.m_location);
    visit("Axis", entity.m_axis);
    visit("MajorRadius", entity.m_major_radius);
    visit("MinorRadius", entity.m_minor_radius);
    if constexpr (Form == 1) visit("RefDirection", entity.m_ref_direction);
  }

 protected:
  igs198Base();

 private:
  double m_major_radius = igs_undefined_real;
  double m_minor_radius = igs_undefined_real;
};

/// Form 0, without parameters.
class IGS_API igs198_0 : public igs198Base<igs198_0, "igs198_0", 0> {
 public:
  igs198_0();
};

/// Form 1, with parameters.
class IGS_API igs198_1 : public igs198Base<igs198_1, "igs198_1", 1> {
 public:
  igs198_1();
};
