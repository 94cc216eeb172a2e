#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs198_0NullLocation = igsReferenceErrors<"igs198_0", "Location">::Null;
using igs198_0WrongLocationType = igsReferenceErrors<"igs198_0", "Location">::WrongType;
using igs198_0InvalidLocation = igsReferenceErrors<"igs198_0", "Location">::Invalid;
using igs198_0NullAxis = igsReferenceErrors<"igs198_0", "Axis">::Null;
using igs198_0WrongAxisType = igsReferenceErrors<"igs198_0", "Axis">::WrongType;
using igs198_0InvalidAxis = igsReferenceErrors<"igs198_0", "Axis">::Invalid;
using igs198_0InvalidMajorRadius = igsRealErrors<"igs198_0", "MajorRadius">::Invalid;
using igs198_0InvalidMinorRadius = igsRealErrors<"igs198_0", "MinorRadius">::Invalid;
/// The minor radius is not below the major one; carries the major and the minor radius.
using igs198_0RadiiOutOfSequence = igsNamedError<"igs198_0RadiiOutOfSequence", igsObjectError, double, double>;

using igs198_1NullLocation = igsReferenceErrors<"igs198_1", "Location">::Null;
using igs198_1WrongLocationType = igsReferenceErrors<"igs198_1", "Location">::WrongType;
using igs198_1InvalidLocation = igsReferenceErrors<"igs198_1", "Location">::Invalid;
using igs198_1NullAxis = igsReferenceErrors<"igs198_1", "Axis">::Null;
using igs198_1WrongAxisType = igsReferenceErrors<"igs198_1", "Axis">::WrongType;
using igs198_1InvalidAxis = igsReferenceErrors<"igs198_1", "Axis">::Invalid;
using igs198_1NullRefDirection = igsReferenceErrors<"igs198_1", "RefDirection">::Null;
using igs198_1WrongRefDirectionType = igsReferenceErrors<"igs198_1", "RefDirection">::WrongType;
using igs198_1InvalidRefDirection = igsReferenceErrors<"igs198_1", "RefDirection">::Invalid;
using igs198_1InvalidMajorRadius = igsRealErrors<"igs198_1", "MajorRadius">::Invalid;
using igs198_1InvalidMinorRadius = igsRealErrors<"igs198_1", "MinorRadius">::Invalid;
/// The minor radius is not below the major one; carries the major and the minor radius.
using igs198_1RadiiOutOfSequence = igsNamedError<"igs198_1RadiiOutOfSequence", igsObjectError, double, double>;
/// The reference direction is parallel to the axis.
using igs198_1ParallelRefDirection = igsNamedError<"igs198_1ParallelRefDirection">;
