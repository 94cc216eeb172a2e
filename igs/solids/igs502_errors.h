#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/solids/igs502.h"

/// A vertex is undefined; carries its position, 0-based.
using igs502InvalidVertex = igsNamedError<"igs502InvalidVertex", igsObjectError, int>;
