#pragma once

#include "igs/objects/igsObject.h"

/// Base of the entities that are a subfigure instance, view or external reference.
class IGS_API igsDefinition : public igsTyped<igsDefinition, "igsDefinition", igsObject> {
 protected:
  igsDefinition() = default;
};
