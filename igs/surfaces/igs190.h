#pragma once

#include "igs/surfaces/igsAnalyticSurface.h"

/// Plane Surface (IGES 5.3, type 190): the plane through the location, square to the normal.
template <class Self, igsName Name, int Form>
class IGS_API_TEMPLATE igs190Base : public igsAnalyticSurface<Self, Name, Form> {
 public:
  const igsObjectPtr& normal() const { return this->axis(); }
  void set_normal(const igsObjectPtr& normal) { this->set_axis(normal); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Location", entity.m_location);
    visit("Normal", entity.m_axis);
    if constexpr (Form == 1) visit("RefDirection", entity.m_ref_direction);
  }

 protected:
  igs190Base();
};

/// Form 0, without parameters.
class IGS_API igs190_0 : public igs190Base<igs190_0, "igs190_0", 0> {
 public:
  igs190_0();
};

/// Form 1, with parameters.
class IGS_API igs190_1 : public igs190Base<igs190_1, "igs190_1", 1> {
 public:
  igs190_1();
};
