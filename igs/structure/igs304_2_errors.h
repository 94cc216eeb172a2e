#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/structure/igs304_2.h"

// Faults of a Line Font Definition of form 2 (igs304_2).

using igs304_2NoSegments = igsNamedError<"igs304_2NoSegments">;
/// The length of a segment is negative or undefined; carries the position, 0-based, and the length.
using igs304_2InvalidLength = igsNamedError<"igs304_2InvalidLength", igsObjectError, int, double>;
/// The pattern is empty, or has a character that is no hexadecimal digit.
using igs304_2InvalidPattern = igsNamedError<"igs304_2InvalidPattern">;
