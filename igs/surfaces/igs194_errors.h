#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs194_0NullLocation = igsReferenceErrors<"igs194_0", "Location">::Null;
using igs194_0WrongLocationType = igsReferenceErrors<"igs194_0", "Location">::WrongType;
using igs194_0InvalidLocation = igsReferenceErrors<"igs194_0", "Location">::Invalid;
using igs194_0NullAxis = igsReferenceErrors<"igs194_0", "Axis">::Null;
using igs194_0WrongAxisType = igsReferenceErrors<"igs194_0", "Axis">::WrongType;
using igs194_0InvalidAxis = igsReferenceErrors<"igs194_0", "Axis">::Invalid;
using igs194_0InvalidRadius = igsRealErrors<"igs194_0", "Radius">::Invalid;
using igs194_0InvalidSemiAngle = igsRealErrors<"igs194_0", "SemiAngle">::Invalid;

using igs194_1NullLocation = igsReferenceErrors<"igs194_1", "Location">::Null;
using igs194_1WrongLocationType = igsReferenceErrors<"igs194_1", "Location">::WrongType;
using igs194_1InvalidLocation = igsReferenceErrors<"igs194_1", "Location">::Invalid;
using igs194_1NullAxis = igsReferenceErrors<"igs194_1", "Axis">::Null;
using igs194_1WrongAxisType = igsReferenceErrors<"igs194_1", "Axis">::WrongType;
using igs194_1InvalidAxis = igsReferenceErrors<"igs194_1", "Axis">::Invalid;
using igs194_1NullRefDirection = igsReferenceErrors<"igs194_1", "RefDirection">::Null;
using igs194_1WrongRefDirectionType = igsReferenceErrors<"igs194_1", "RefDirection">::WrongType;
using igs194_1InvalidRefDirection = igsReferenceErrors<"igs194_1", "RefDirection">::Invalid;
using igs194_1InvalidRadius = igsRealErrors<"igs194_1", "Radius">::Invalid;
using igs194_1InvalidSemiAngle = igsRealErrors<"igs194_1", "SemiAngle">::Invalid;
/// The reference direction is parallel to the axis.
using igs194_1ParallelRefDirection = igsNamedError<"igs194_1ParallelRefDirection">;
