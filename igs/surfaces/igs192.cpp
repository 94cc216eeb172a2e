#include "igs/surfaces/igs192.h"

#include "igs/surfaces/private/igsAnalyticCheck.h"

template <class Self, igsName Name, int Form>
igs192Base<Self, Name, Form>::igs192Base() : igsAnalyticSurface<Self, Name, Form>(igsEntity192) {}

template <class Self, igsName Name, int Form>
void igs192Base<Self, Name, Form>::check_pd() const {
  this->check_references();
  this->template check_real<"Radius">(m_radius, m_radius > 0);
  this->check_ref_direction();
}

igs192_0::igs192_0() = default;
igs192_1::igs192_1() = default;
