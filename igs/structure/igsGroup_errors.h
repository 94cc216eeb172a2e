#pragma once

#include "igs/fields/igsMemberErrors.h"
#include "igs/structure/igsGroup.h"

// Faults of the groups (igsGroup, igs402_1, igs402_7, igs402_16). See igsMemberErrors.h for the
// positions of members.

/// The group has no members.
using igsGroupNoEntities = igsNamedError<"igsGroupNoEntities">;
/// A pointer to a member is null. All null members are taken out; the others keep their order.
using igsGroupNullEntity = igsDroppedMemberError<"igsGroupNullEntity", igsGroup, &igsGroup::drop_null_entities>;
