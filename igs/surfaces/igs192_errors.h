#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs192_0NullLocation = igsReferenceErrors<"igs192_0", "Location">::Null;
using igs192_0WrongLocationType = igsReferenceErrors<"igs192_0", "Location">::WrongType;
using igs192_0InvalidLocation = igsReferenceErrors<"igs192_0", "Location">::Invalid;
using igs192_0NullAxis = igsReferenceErrors<"igs192_0", "Axis">::Null;
using igs192_0WrongAxisType = igsReferenceErrors<"igs192_0", "Axis">::WrongType;
using igs192_0InvalidAxis = igsReferenceErrors<"igs192_0", "Axis">::Invalid;
using igs192_0InvalidRadius = igsRealErrors<"igs192_0", "Radius">::Invalid;

using igs192_1NullLocation = igsReferenceErrors<"igs192_1", "Location">::Null;
using igs192_1WrongLocationType = igsReferenceErrors<"igs192_1", "Location">::WrongType;
using igs192_1InvalidLocation = igsReferenceErrors<"igs192_1", "Location">::Invalid;
using igs192_1NullAxis = igsReferenceErrors<"igs192_1", "Axis">::Null;
using igs192_1WrongAxisType = igsReferenceErrors<"igs192_1", "Axis">::WrongType;
using igs192_1InvalidAxis = igsReferenceErrors<"igs192_1", "Axis">::Invalid;
using igs192_1NullRefDirection = igsReferenceErrors<"igs192_1", "RefDirection">::Null;
using igs192_1WrongRefDirectionType = igsReferenceErrors<"igs192_1", "RefDirection">::WrongType;
using igs192_1InvalidRefDirection = igsReferenceErrors<"igs192_1", "RefDirection">::Invalid;
using igs192_1InvalidRadius = igsRealErrors<"igs192_1", "Radius">::Invalid;
/// The reference direction is parallel to the axis.
using igs192_1ParallelRefDirection = igsNamedError<"igs192_1ParallelRefDirection">;
