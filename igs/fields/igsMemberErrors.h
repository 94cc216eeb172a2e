#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsCast.h"

// Faults of the members of lists. The errors carry the member's position in the list as it was when the entity was
// checked, 0-based.

/// The fault `Name` of a member of a list in a `T`, repaired by `Drop`, a member function of T that takes all members
/// with that fault out of the list and that is given the member's position; 1 then, or what `Drop` returns.
template <igsName Name, class T, auto Drop>
class IGS_API_TEMPLATE igsDroppedMemberError
    : public igsErrorClass<igsDroppedMemberError<Name, T, Drop>, Name, igsObjectError, int> {
 public:
  using igsErrorClass<igsDroppedMemberError, Name, igsObjectError, int>::igsErrorClass;
  int fix() override {
    return igs_repair<T>(this->object_at_key(),
                         [this](T& entity) { return igs_call(entity, Drop, this->template value<0>()); });
  }
};

/// The faults of the references in a list of the entity class `Owner`, which is `T` or derived from it: what
/// igsReferenceErrors are to a single one. `DropNulls` is the repair of null ones.
template <igsName Owner, igsName Member, class T, auto DropNulls>
struct igsMemberErrors {
  /// The three error classes ...
  using Null = igsDroppedMemberError<igs_joined(Owner, igsName("Null"), Member), T, DropNulls>;
  using WrongType = igsNamedError<igs_joined(Owner, igsName("Wrong"), Member, igsName("Type")), igsObjectError, int>;
  using Invalid = igsNamedError<igs_joined(Owner, igsName("Invalid"), Member), igsReferenceDataError, int>;

  /// ... and the test of a reference that tags them.
  using Test = igsReferenceTest<Null, WrongType, Invalid>;
};
