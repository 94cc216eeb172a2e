#pragma once

#include "igs/objects/igsObject.h"

/// Base of the entities that are a part of a drawing's annotation.
class IGS_API igsAnnotation : public igsTyped<igsAnnotation, "igsAnnotation", igsObject> {
 protected:
  igsAnnotation() = default;
};
