#pragma once

#include "igs/structure/igsGroup.h"

/// Unordered Group without Back Pointers (IGES 5.3, type 402 form 7).
class IGS_API igs402_7 : public igsEntity<igs402_7, "igs402_7", igsGroup> {
 public:
  igs402_7();
};
