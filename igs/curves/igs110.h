#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsCurve.h"
#include "igs/support/giPoint.h"

/// Line (IGES 5.3, type 110) through two points, in model units. Form 0 is the straight piece between them, form 1
/// begins at the start point and goes through the end point without end, form 2 has no end either way. Files have forms
/// 1 and 2 where they are asked for them (igsFileOptions::unbounded_lines); what is written has the directory entry's
/// form.
class IGS_API igs110 : public igsEntity<igs110, "igs110", igsCurve> {
 public:
  igs110();

  const giPoint3& start_point() const { return m_start_point; }
  const giPoint3& end_point() const { return m_end_point; }
  /// Store a defined point, ignore an undefined one; 1 in either case.
  int set_start_point(const giPoint3& start);
  int set_end_point(const giPoint3& end);
  /// True for form 0: the line ends at both points. A form that the standard does not have counts as 0.
  bool is_bounded() const { return form() != semi_bounded && form() != unbounded; }
  /// True for forms 0 and 1: the line begins at the start point.
  bool has_start() const { return form() != unbounded; }

  /// True when the end points are at most `tolerance` apart.
  bool coincident_end_points(double tolerance) const;

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("StartPoint", entity.m_start_point);
    visit("EndPoint", entity.m_end_point);
  }

 private:
  static constexpr int semi_bounded = 1;
  static constexpr int unbounded = 2;
  int form() const;

  giPoint3 m_start_point;
  giPoint3 m_end_point;
};
