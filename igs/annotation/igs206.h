#pragma once

#include "igs/annotation/igsDimension.h"

/// Diameter Dimension (IGES 5.3, type 206).
class IGS_API igs206 : public igsEntity<igs206, "igs206", igsDimension> {
 public:
  igs206();

  const igsObjectPtr& leader1() const { return m_leader1; }
  void set_leader1(const igsObjectPtr& leader) { m_leader1 = leader; }
  /// May be null.
  const igsObjectPtr& leader2() const { return m_leader2; }
  void set_leader2(const igsObjectPtr& leader) { m_leader2 = leader; }
  /// Of the circle. Undefined at first.
  const giPoint2& centre() const { return m_centre; }
  void set_centre(const giPoint2& centre) { m_centre = centre; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Note", entity.m_note);
    visit("Leader1", entity.m_leader1);
    visit("Leader2", entity.m_leader2);
    visit("Centre", entity.m_centre);
  }

 private:
  igsObjectPtr m_leader1;
  igsObjectPtr m_leader2;
  giPoint2 m_centre;
};
