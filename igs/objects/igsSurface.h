#pragma once

#include "igs/objects/igsObject.h"

/// Base of the entities that are a surface.
class IGS_API igsSurface : public igsTyped<igsSurface, "igsSurface", igsObject> {
 protected:
  igsSurface() = default;
};

/// Base of the surfaces that have parameters (u, v).
class IGS_API igsParameterizedSurface
    : public igsTyped<igsParameterizedSurface, "igsParameterizedSurface", igsSurface> {
 protected:
  igsParameterizedSurface() = default;
};

/// Base of the surfaces that have none.
class IGS_API igsUnparameterizedSurface
    : public igsTyped<igsUnparameterizedSurface, "igsUnparameterizedSurface", igsSurface> {
 protected:
  igsUnparameterizedSurface() = default;
};
