#pragma once

#include "igs/errors/igsErrorClass.h"

/// The point is undefined.
class IGS_API igs116InvalidPoint : public igsErrorClass<igs116InvalidPoint, "igs116InvalidPoint", igsObjectError> {};
