#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/support/giPoint.h"

/// Point (IGES 5.3, type 116), in model units.
class IGS_API igs116 : public igsEntity<igs116, "igs116", igsObject> {
 public:
  igs116();

  const giPoint3& point() const { return m_point; }
  /// Stores a defined point, ignores an undefined one; 1 in either case.
  int set_point(const giPoint3& point);
  /// The subfigure instance that shows the point; null for the default symbol.
  const igsObjectPtr& display_symbol() const { return m_display_symbol; }
  void set_display_symbol(const igsObjectPtr& symbol) { m_display_symbol = symbol; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Coordinates", entity.m_point);
    visit("DisplaySymbol", entity.m_display_symbol);
  }

 private:
  giPoint3 m_point;
  igsObjectPtr m_display_symbol;
};
