#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsSurface.h"

/// Ruled Surface (IGES 5.3, type 118): the straight pieces that join points of two curves, those of equal relative arc
/// length (form 0) or of equal relative parameter value (form 1). One of the curves may be a point.
class IGS_API igs118 : public igsEntity<igs118, "igs118", igsParameterizedSurface> {
 public:
  igs118();

  const igsObjectPtr& first_curve() const { return m_first_curve; }
  void set_first_curve(const igsObjectPtr& curve) { m_first_curve = curve; }
  const igsObjectPtr& second_curve() const { return m_second_curve; }
  void set_second_curve(const igsObjectPtr& curve) { m_second_curve = curve; }
  /// DIRFLG: 0 joins the start of the first curve to the start of the second, 1 to its end.
  int direction_flag() const { return m_direction_flag; }
  void set_direction_flag(int flag) { m_direction_flag = flag; }
  /// DEVFLG: 1 for a developable surface, 0 where that is not known.
  int developable_flag() const { return m_developable_flag; }
  void set_developable_flag(int flag) { m_developable_flag = flag; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("FirstCurve", entity.m_first_curve);
    visit("SecondCurve", entity.m_second_curve);
    visit("DirectionFlag", entity.m_direction_flag);
    visit("DevelopableFlag", entity.m_developable_flag);
  }

 private:
  igsObjectPtr m_first_curve;
  igsObjectPtr m_second_curve;
  int m_direction_flag = 0;
  int m_developable_flag = 0;
};
