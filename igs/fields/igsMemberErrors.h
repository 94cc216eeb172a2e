#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"

// Faults of the members of lists. The errors carry the member's position in the list as it was when the entity was
// checked, 0-based.

/// The fault `Name` of a member of a list in a `T`, repaired by `Drop`, a member function of T that takes all members
/// with that fault out of the list and that is given the member's position; 1 then, or what `Drop` returns.
template <igsName Name, class T, auto Drop>
using igsDroppedMemberError = igsNamedError<Name, igsRepairedBy<T, Drop>, int>;

/// The faults of the references in a list of the entity class `Owner`, which is `T` or derived from it: what
/// igsReferenceErrors are to a single one. `DropNulls` is the repair of null ones.
template <igsName Owner, igsName Member, class T, auto DropNulls>
struct igsMemberErrors {
  /// The three error classes ...
  using Null = igsDroppedMemberError<igs_joined(Owner, igsName("Null"), Member), T, DropNulls>;
  /// ... each with the position ...
  using WrongType = typename igsReferenceErrors<Owner, Member, int>::WrongType;
  using Invalid = typename igsReferenceErrors<Owner, Member, int>::Invalid;

  /// ... and the test of a reference that tags them.
  using Test = igsReferenceTest<Null, WrongType, Invalid>;
};
