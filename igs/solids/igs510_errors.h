#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/solids/igs510.h"

// Faults of a Face (igs510). Those of a loop carry its position, 0-based. See igsNamedError.h for what each family of
// errors says.

using igs510NullSurface = igsReferenceErrors<"igs510", "Surface">::Null;
using igs510WrongSurfaceType = igsReferenceErrors<"igs510", "Surface">::WrongType;
using igs510InvalidSurface = igsReferenceErrors<"igs510", "Surface">::Invalid;
/// The outer loop flag is neither 0 nor 1. It becomes 0.
using igs510InvalidOuterLoopFlag =
    igsNamedError<"igs510InvalidOuterLoopFlag", igsStoredDefault<igs510, &igs510::set_outer_loop_flag, 0>>;
using igs510NullLoop = igsReferenceErrors<"igs510", "Loop", int>::Null;
using igs510WrongLoopType = igsReferenceErrors<"igs510", "Loop", int>::WrongType;
using igs510InvalidLoop = igsReferenceErrors<"igs510", "Loop", int>::Invalid;
