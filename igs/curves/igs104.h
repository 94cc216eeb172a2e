#pragma once

#include "igs/curves/igsConicCoeffs.h"
#include "igs/curves/igsTrimmedConic.h"
#include "igs/fields/igsEntity.h"

/// Conic Arc (IGES 5.3, type 104): a piece of the curve that igsConicCoeffs describes. Form 0 leaves the kind of curve
/// open, form 1 is an ellipse, 2 a hyperbola, 3 a parabola.
class IGS_API igs104 : public igsEntity<igs104, "igs104", igsTrimmedConic> {
 public:
  igs104();

  const igsConicCoeffs& coeffs() const { return m_coeffs; }
  void set_coeffs(const igsConicCoeffs& coeffs) { m_coeffs.become(coeffs); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    igsConicCoeffs::fields(entity.m_coeffs, visit);
    visit("ZLevel", entity.m_z_level);
    visit("StartPoint", entity.m_start_point);
    visit("EndPoint", entity.m_end_point);
  }

 private:
  igsConicCoeffs m_coeffs;
};
