#pragma once

#include "igs/fields/igsMemberErrors.h"
#include "igs/structure/igs402_3.h"

// Faults of a views visible associativity (igs402_3). See igsMemberErrors.h for the positions of views and members.

/// There are no views.
using igs402_3NoViews = igsNamedError<"igs402_3NoViews">;
/// A pointer to a view is null, or what should be a view is none. Everything that is no view is taken out of the list
/// of views; the others keep their order.
using igs402_3NullView = igsDroppedMemberError<"igs402_3NullView", igs402_3, &igs402_3::drop_unusable_views>;
using igs402_3WrongViewType = igsDroppedMemberError<"igs402_3WrongViewType", igs402_3, &igs402_3::drop_unusable_views>;
/// A view fails its own check.
using igs402_3InvalidView = igsNamedError<"igs402_3InvalidView", igsReferenceDataError, int>;
/// A pointer to a member is null. All null members are taken out; the others keep their order.
using igs402_3NullEntity = igsDroppedMemberError<"igs402_3NullEntity", igs402_3, &igs402_3::drop_null_entities>;
