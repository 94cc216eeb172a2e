#pragma once

#include "igs/errors/igsErrorClass.h"

/// The direction is undefined.
using igs123NoConstruct = igsNamedError<"igs123NoConstruct">;
