#pragma once

#include "igs/objects/igsObject.h"

/// Base of the entities that are a solid.
class IGS_API igsSolid : public igsTyped<igsSolid, "igsSolid", igsObject> {
 protected:
  igsSolid() = default;
};
