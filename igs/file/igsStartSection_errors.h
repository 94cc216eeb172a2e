#pragma once

#include "igs/errors/igsErrorClass.h"

/// Sequence numbers of the Start section were out of order. `fix` warns and returns 1.
class IGS_API igsStartSectionInvalid
    : public igsErrorClass<igsStartSectionInvalid, "igsStartSectionInvalid", igsStartError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};
