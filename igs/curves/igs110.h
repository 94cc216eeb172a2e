#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsCurve.h"
#include "igs/support/giPoint.h"

/// Line (IGES 5.3, type 110, form 0): the straight piece between two points, in model units.
class IGS_API igs110 : public igsEntity<igs110, "igs110", igsCurve> {
 public:
  igs110();

  const giPoint3& start_point() const { return m_start_point; }
  const giPoint3& end_point() const { return m_end_point; }
  /// Store a defined point, ignore an undefined one; 1 in either case.
  int set_start_point(const giPoint3& start);
  int set_end_point(const giPoint3& end);
  /// True when the end points are at most `tolerance` apart.
  bool coincident_end_points(double tolerance) const;

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("StartPoint", entity.m_start_point);
    visit("EndPoint", entity.m_end_point);
  }

 private:
  giPoint3 m_start_point;
  giPoint3 m_end_point;
};
