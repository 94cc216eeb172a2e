#include "igs/surfaces/igs198.h"

#include "igs/surfaces/private/igsAnalyticCheck.h"

template <class Self, igsName Name, int Form>
igs198Base<Self, Name, Form>::igs198Base() : igsAnalyticSurface<Self, Name, Form>(igsEntity198) {}

template <class Self, igsName Name, int Form>
void igs198Base<Self, Name, Form>::check_pd() const {
  this->check_references();
  this->template check_real<"MajorRadius">(m_major_radius, m_major_radius > 0);
  this->template check_real<"MinorRadius">(m_minor_radius, m_minor_radius > 0);
  if (m_major_radius > 0 && m_minor_radius >= m_major_radius) {
    using RadiiOutOfSequence =
        igsNamedError<igs_joined(Name, igsName("RadiiOutOfSequence")), igsObjectError, double, double>;
    this->template tag<RadiiOutOfSequence>(m_major_radius, m_minor_radius);
  }
  this->check_ref_direction();
}

igs198_0::igs198_0() = default;
igs198_1::igs198_1() = default;
