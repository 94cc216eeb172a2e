#pragma once

#include "igs/errors/igsErrorClass.h"

/// The direction is undefined.
class IGS_API igs123NoConstruct : public igsErrorClass<igs123NoConstruct, "igs123NoConstruct", igsObjectError> {};
