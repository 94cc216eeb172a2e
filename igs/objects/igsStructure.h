#pragma once

#include "igs/objects/igsObject.h"

/// Base of the entities that are a font, template or colour definition.
class IGS_API igsStructure : public igsTyped<igsStructure, "igsStructure", igsObject> {
 protected:
  igsStructure() = default;
};
