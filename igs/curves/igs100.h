#pragma once

#include "igs/curves/igsTrimmedConic.h"
#include "igs/fields/igsEntity.h"

/// Circular Arc (IGES 5.3, type 100): from the start point to the end point about the centre, counterclockwise; a full
/// circle when they are the same.
class IGS_API igs100 : public igsEntity<igs100, "igs100", igsTrimmedConic> {
 public:
  igs100();

  const giPoint2& centre() const { return m_centre; }
  /// Returns 1; returns 0 and stores nothing for an undefined point.
  int set_centre(const giPoint2& centre) { return igs_set_defined(m_centre, centre); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("ZLevel", entity.m_z_level);
    visit("Centre", entity.m_centre);
    visit("StartPoint", entity.m_start_point);
    visit("EndPoint", entity.m_end_point);
  }

 private:
  giPoint2 m_centre;
};
