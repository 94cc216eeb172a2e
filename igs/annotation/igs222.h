#pragma once

#include "igs/annotation/igsDimension.h"

/// Radius Dimension (IGES 5.3, type 222), with one leader (form 0) or with one or two (form 1).
class IGS_API igs222 : public igsEntity<igs222, "igs222", igsDimension> {
 public:
  /// Form 0.
  igs222();

  const igsObjectPtr& leader() const { return m_leader; }
  void set_leader(const igsObjectPtr& leader) { m_leader = leader; }
  /// Of the arc. Undefined at first.
  const giPoint2& centre() const { return m_centre; }
  void set_centre(const giPoint2& centre) { m_centre = centre; }
  /// Form 1 only, where it may be null; form 0 does not have this field.
  const igsObjectPtr& leader2() const { return m_leader2; }
  void set_leader2(const igsObjectPtr& leader) { m_leader2 = leader; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Note", entity.m_note);
    visit("Leader", entity.m_leader);
    visit("Centre", entity.m_centre);
    if (entity.form() == 1 || std::is_same_v<V, igsFieldPointers>) visit("Leader2", entity.m_leader2);
  }

 private:
  igsObjectPtr m_leader;
  giPoint2 m_centre;
  igsObjectPtr m_leader2;
};
