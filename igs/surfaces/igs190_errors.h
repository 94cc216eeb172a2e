#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs190_0NullLocation = igsReferenceErrors<"igs190_0", "Location">::Null;
using igs190_0WrongLocationType = igsReferenceErrors<"igs190_0", "Location">::WrongType;
using igs190_0InvalidLocation = igsReferenceErrors<"igs190_0", "Location">::Invalid;
using igs190_0NullNormal = igsReferenceErrors<"igs190_0", "Normal">::Null;
using igs190_0WrongNormalType = igsReferenceErrors<"igs190_0", "Normal">::WrongType;
using igs190_0InvalidNormal = igsReferenceErrors<"igs190_0", "Normal">::Invalid;

using igs190_1NullLocation = igsReferenceErrors<"igs190_1", "Location">::Null;
using igs190_1WrongLocationType = igsReferenceErrors<"igs190_1", "Location">::WrongType;
using igs190_1InvalidLocation = igsReferenceErrors<"igs190_1", "Location">::Invalid;
using igs190_1NullNormal = igsReferenceErrors<"igs190_1", "Normal">::Null;
using igs190_1WrongNormalType = igsReferenceErrors<"igs190_1", "Normal">::WrongType;
using igs190_1InvalidNormal = igsReferenceErrors<"igs190_1", "Normal">::Invalid;
using igs190_1NullRefDirection = igsReferenceErrors<"igs190_1", "RefDirection">::Null;
using igs190_1WrongRefDirectionType = igsReferenceErrors<"igs190_1", "RefDirection">::WrongType;
using igs190_1InvalidRefDirection = igsReferenceErrors<"igs190_1", "RefDirection">::Invalid;
/// The reference direction is parallel to the normal.
using igs190_1ParallelRefDirection = igsNamedError<"igs190_1ParallelRefDirection">;
