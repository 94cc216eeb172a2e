#pragma once

#include "igs/objects/igsObject.h"

/// Base of the entities that are a curve in space or in parameter space.
class IGS_API igsCurve : public igsTyped<igsCurve, "igsCurve", igsObject> {
 protected:
  igsCurve() = default;
};
