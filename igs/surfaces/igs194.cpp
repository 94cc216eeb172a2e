#include "igs/surfaces/igs194.h"

#include "igs/surfaces/private/igsAnalyticCheck.h"

template <class Self, igsName Name, int Form>
igs194Base<Self, Name, Form>::igs194Base() : igsAnalyticSurface<Self, Name, Form>(igsEntity194) {}

template <class Self, igsName Name, int Form>
void igs194Base<Self, Name, Form>::check_pd() const {
  this->check_references();
  this->template check_real<"Radius">(m_radius, m_radius >= 0);
  this->template check_real<"SemiAngle">(m_semi_angle, m_semi_angle > 0 && m_semi_angle < 90);
  this->check_ref_direction();
}

igs194_0::igs194_0() = default;
igs194_1::igs194_1() = default;
