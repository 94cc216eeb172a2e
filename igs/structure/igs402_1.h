#pragma once

#include "igs/structure/igsGroup.h"

/// Unordered Group with Back Pointers (IGES 5.3, type 402 form 1).
class IGS_API igs402_1 : public igsEntity<igs402_1, "igs402_1", igsGroup> {
 public:
  igs402_1();
};
