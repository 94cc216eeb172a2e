#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igs304_1.h"

// Faults of a Line Font Definition of form 1 (igs304_1).

/// The orientation is neither 1 nor 2; carries it. It becomes 1.
using igs304_1InvalidOrientation =
    igsNamedError<"igs304_1InvalidOrientation", igsStoredDefault<igs304_1, &igs304_1::set_orientation, 1>, int>;
using igs304_1NullTemplate = igsReferenceErrors<"igs304_1", "Template">::Null;
using igs304_1WrongTemplateType = igsReferenceErrors<"igs304_1", "Template">::WrongType;
using igs304_1InvalidTemplate = igsReferenceErrors<"igs304_1", "Template">::Invalid;
/// The spacing is not above 0.
using igs304_1InvalidSpacing = igsRealErrors<"igs304_1", "Spacing">::Invalid;
/// The scale is not above 0; carries it. It becomes 1.
using igs304_1InvalidScale =
    igsNamedError<"igs304_1InvalidScale", igsStoredDefault<igs304_1, &igs304_1::set_scale, 1>, double>;
