#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsSurface.h"
#include "igs/support/giVector.h"
#include "igs/support/undefined.h"

/// Offset Surface (IGES 5.3, type 140): runs at a constant distance beside another surface.
class IGS_API igs140 : public igsEntity<igs140, "igs140", igsParameterizedSurface> {
 public:
  igs140();

  /// A vector whose side of the surface is the one that positive distances lead to.
  const giVector3& indicator() const { return m_indicator; }
  /// Returns 1; returns 0 and stores nothing for an undefined vector.
  int set_indicator(const giVector3& indicator) { return igs_set_defined(m_indicator, indicator); }
  /// In model units, of any sign; -DBL_MAX until it is set.
  double distance() const { return m_distance; }
  void set_distance(double distance) { m_distance = distance; }
  const igsObjectPtr& surface() const { return m_surface; }
  void set_surface(const igsObjectPtr& surface) { m_surface = surface; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Indicator", entity.m_indicator);
    visit("Distance", entity.m_distance);
    visit("Surface", entity.m_surface);
  }

 private:
  giVector3 m_indicator;
  double m_distance = igs_undefined_real;
  igsObjectPtr m_surface;
};
