#pragma once

#include "igs/annotation/igsDimension.h"

/// Curve Dimension (IGES 5.3, type 204): a length along a curve, or between two.
class IGS_API igs204 : public igsEntity<igs204, "igs204", igsDimension>, public igsTwoSidedLines {
 public:
  igs204();

  const igsObjectPtr& curve1() const { return m_curve1; }
  void set_curve1(const igsObjectPtr& curve) { m_curve1 = curve; }
  /// Null where one curve is measured.
  const igsObjectPtr& curve2() const { return m_curve2; }
  void set_curve2(const igsObjectPtr& curve) { m_curve2 = curve; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Note", entity.m_note);
    visit("Curve1", entity.m_curve1);
    visit("Curve2", entity.m_curve2);
    visit("Leader1", entity.m_leader1);
    visit("Leader2", entity.m_leader2);
    visit("Witness1", entity.m_witness1);
    visit("Witness2", entity.m_witness2);
  }

 private:
  igsObjectPtr m_curve1;
  igsObjectPtr m_curve2;
};
