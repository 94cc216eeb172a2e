#pragma once

#include "igs/errors/igsErrorClass.h"

/// The point is undefined.
using igs116InvalidPoint = igsNamedError<"igs116InvalidPoint">;
