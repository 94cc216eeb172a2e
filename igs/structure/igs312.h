#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsStructure.h"
#include "igs/structure/igsTextStyle.h"

/// Text Display Template (IGES 5.3, type 312): how the text that belongs to other entities is shown. start() is a place
/// (form 0), or the step to it from the place that the other entity gives (form 1).
class IGS_API igs312 : public igsEntity<igs312, "igs312", igsStructure>, public igsTextStyle {
 public:
  igs312();

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    style_fields(entity, visit, "CharacterWidth", "CharacterHeight");
  }
};
