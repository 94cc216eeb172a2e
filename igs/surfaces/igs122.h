#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsSurface.h"
#include "igs/support/giPoint.h"

/// Tabulated Cylinder (IGES 5.3, type 122): a straight piece, the generatrix, moved along a curve, the directrix.
class IGS_API igs122 : public igsEntity<igs122, "igs122", igsParameterizedSurface> {
 public:
  igs122();

  const igsObjectPtr& directrix() const { return m_directrix; }
  void set_directrix(const igsObjectPtr& curve) { m_directrix = curve; }
  /// The end, in model units, of the generatrix that begins at the start of the directrix.
  const giPoint3& terminate_point() const { return m_terminate_point; }
  /// Returns 1; returns 0 and stores nothing for an undefined point.
  int set_terminate_point(const giPoint3& point) { return igs_set_defined(m_terminate_point, point); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Directrix", entity.m_directrix);
    visit("TerminatePoint", entity.m_terminate_point);
  }

 private:
  igsObjectPtr m_directrix;
  giPoint3 m_terminate_point;
};
