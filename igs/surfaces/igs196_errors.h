#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs196_0NullLocation = igsReferenceErrors<"igs196_0", "Location">::Null;
using igs196_0WrongLocationType = igsReferenceErrors<"igs196_0", "Location">::WrongType;
using igs196_0InvalidLocation = igsReferenceErrors<"igs196_0", "Location">::Invalid;
using igs196_0InvalidRadius = igsRealErrors<"igs196_0", "Radius">::Invalid;

using igs196_1NullLocation = igsReferenceErrors<"igs196_1", "Location">::Null;
using igs196_1WrongLocationType = igsReferenceErrors<"igs196_1", "Location">::WrongType;
using igs196_1InvalidLocation = igsReferenceErrors<"igs196_1", "Location">::Invalid;
using igs196_1NullAxis = igsReferenceErrors<"igs196_1", "Axis">::Null;
using igs196_1WrongAxisType = igsReferenceErrors<"igs196_1", "Axis">::WrongType;
using igs196_1InvalidAxis = igsReferenceErrors<"igs196_1", "Axis">::Invalid;
using igs196_1NullRefDirection = igsReferenceErrors<"igs196_1", "RefDirection">::Null;
using igs196_1WrongRefDirectionType = igsReferenceErrors<"igs196_1", "RefDirection">::WrongType;
using igs196_1InvalidRefDirection = igsReferenceErrors<"igs196_1", "RefDirection">::Invalid;
using igs196_1InvalidRadius = igsRealErrors<"igs196_1", "Radius">::Invalid;
/// The reference direction is parallel to the axis.
using igs196_1ParallelRefDirection = igsNamedError<"igs196_1ParallelRefDirection">;
