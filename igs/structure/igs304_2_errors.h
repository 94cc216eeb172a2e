#pragma once

#include "igs/fields/igsNamedError.h"

// Faults of a Line Font Definition of form 2 (igs304_2).

/// The number of segments is negative or out of proportion to the record; carries it.
class IGS_API igs304_2BadNumSegments
    : public igsErrorClass<igs304_2BadNumSegments, "igs304_2BadNumSegments", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

using igs304_2NoSegments = igsNamedError<"igs304_2NoSegments">;
/// The length of a segment is negative or undefined; carries the position, 0-based, and the length.
using igs304_2InvalidLength = igsNamedError<"igs304_2InvalidLength", igsObjectError, int, double>;
/// The pattern is empty, or has a character that is no hexadecimal digit.
using igs304_2InvalidPattern = igsNamedError<"igs304_2InvalidPattern">;
