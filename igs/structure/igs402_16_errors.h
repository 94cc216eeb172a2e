#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igs402_16.h"

// Faults of a planar associativity (igs402_16) beside those of every group (igsGroup_errors.h).

/// The number of transforms is not 1; carries it. Repaired to 1: matrices behind the first are dropped, a missing one
/// is the identity.
using igs402_16InvalidNumberOfTransforms =
    igsNamedError<"igs402_16InvalidNumberOfTransforms",
                  igsStoredDefault<igs402_16, &igs402_16::set_number_of_transforms, 1>, int>;

using igs402_16WrongMatrixType = igsReferenceErrors<"igs402_16", "Matrix">::WrongType;
using igs402_16InvalidMatrix = igsReferenceErrors<"igs402_16", "Matrix">::Invalid;
