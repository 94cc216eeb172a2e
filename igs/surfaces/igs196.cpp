#include "igs/surfaces/igs196.h"

#include "igs/surfaces/private/igsAnalyticCheck.h"

template <class Self, igsName Name, int Form>
igs196Base<Self, Name, Form>::igs196Base() : igsAnalyticSurface<Self, Name, Form, Form == 1>(igsEntity196) {}

template <class Self, igsName Name, int Form>
void igs196Base<Self, Name, Form>::check_pd() const {
  this->check_references();
  this->template check_real<"Radius">(m_radius, m_radius > 0);
  this->check_ref_direction();
}

igs196_0::igs196_0() = default;
igs196_1::igs196_1() = default;
