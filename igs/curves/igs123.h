#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/support/giVector.h"

/// Direction (IGES 5.3, type 123): a vector that only its direction matters of.
class IGS_API igs123 : public igsEntity<igs123, "igs123", igsObject> {
 public:
  igs123();

  /// As given, of whatever length.
  const giVector3& direction() const { return m_direction; }
  void set_direction(const giVector3& direction) { m_direction = direction; }

  void check_pd() const override;
  void check_de() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit.parametric([&] { visit("Direction", entity.m_direction); });
  }

 private:
  giVector3 m_direction;
};
