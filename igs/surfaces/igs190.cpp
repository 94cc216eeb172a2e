#include "igs/surfaces/igs190.h"

#include "igs/surfaces/private/igsAnalyticCheck.h"

template <class Self, igsName Name, int Form>
igs190Base<Self, Name, Form>::igs190Base() : igsAnalyticSurface<Self, Name, Form>(igsEntity190) {}

template <class Self, igsName Name, int Form>
void igs190Base<Self, Name, Form>::check_pd() const {
  this->template check_references<"Normal">();
  this->check_ref_direction();
}

igs190_0::igs190_0() = default;
igs190_1::igs190_1() = default;
