#include "igs/surfaces/igs190.h"

#include "igs/surfaces/private/igsAnalyticCheck.h"

template <class Self, igsName Name, int Form>
igs190Base<Self, Name, Form>::igs190Base() : igsAnalyticSurface<Self, Name, Form>(igsEntity190) {}

template <class Self, igsName Name, int Form>
void igs190Base<Self, Name, Form>::check_surface() const {
  this->template check_references<"Normal">();
  this->check_ref_direction();
}

igs190_0::igs190_0() = default;
igs190_1::igs190_1() = default;

void igs190_0::check_pd() const { check_surface(); }
void igs190_1::check_pd() const { check_surface(); }
