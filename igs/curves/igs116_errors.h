#pragma once

#include "igs/curves/igs116.h"
#include "igs/errors/igsErrorClass.h"

/// The point is undefined.
using igs116InvalidPoint = igsNamedError<"igs116InvalidPoint">;
