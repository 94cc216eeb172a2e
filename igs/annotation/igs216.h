#pragma once

#include "igs/annotation/igsDimension.h"

/// Linear Dimension (IGES 5.3, type 216): a distance (form 0), a diameter (1) or a radius (2) that is measured between
/// two lines.
class IGS_API igs216 : public igsEntity<igs216, "igs216", igsDimension>, public igsTwoSidedLines {
 public:
  /// Form 0.
  igs216();

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Note", entity.m_note);
    visit("Leader1", entity.m_leader1);
    visit("Leader2", entity.m_leader2);
    visit("Witness1", entity.m_witness1);
    visit("Witness2", entity.m_witness2);
  }
};
