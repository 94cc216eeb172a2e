#pragma once

#include "igs/curves/igs123.h"
#include "igs/errors/igsErrorClass.h"

/// The direction is undefined.
using igs123NoConstruct = igsNamedError<"igs123NoConstruct">;
