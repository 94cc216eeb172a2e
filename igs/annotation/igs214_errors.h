#pragma once

#include "igs/annotation/igs214.h"
#include "igs/fields/igsNamedError.h"

// Faults of a Leader (igs214).

using igs214NoSegments = igsNamedError<"igs214NoSegments">;
/// A size of the arrowhead is negative.
using igs214InvalidArrowHeight = igsRealErrors<"igs214", "ArrowHeight">::Invalid;
using igs214InvalidArrowWidth = igsRealErrors<"igs214", "ArrowWidth">::Invalid;
/// The level, the head or a tail is undefined; the last carries the position, 0-based.
using igs214InvalidZLevel = igsUndefinedErrors<"igs214", "ZLevel">::Invalid;
using igs214InvalidArrowHead = igsUndefinedErrors<"igs214", "ArrowHead">::Invalid;
using igs214InvalidTail = igsNamedError<"igs214InvalidTail", igsObjectError, int>;
