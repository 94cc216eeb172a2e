#pragma once

#include "igs/fields/igsNamedError.h"

// Faults of a Leader (igs214).

/// The number of segments is negative or out of proportion to the record; carries it.
class IGS_API igs214BadNumSegments
    : public igsErrorClass<igs214BadNumSegments, "igs214BadNumSegments", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

using igs214NoSegments = igsNamedError<"igs214NoSegments">;
/// A size of the arrowhead is negative.
using igs214InvalidArrowHeight = igsRealErrors<"igs214", "ArrowHeight">::Invalid;
using igs214InvalidArrowWidth = igsRealErrors<"igs214", "ArrowWidth">::Invalid;
/// The level, the head or a tail is undefined; the last carries the position, 0-based.
using igs214InvalidZLevel = igsUndefinedErrors<"igs214", "ZLevel">::Invalid;
using igs214InvalidArrowHead = igsUndefinedErrors<"igs214", "ArrowHead">::Invalid;
using igs214InvalidTail = igsNamedError<"igs214InvalidTail", igsObjectError, int>;
