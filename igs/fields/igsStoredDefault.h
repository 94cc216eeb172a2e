#pragma once

#include "igs/errors/igsError.h"
#include "igs/objects/igsCast.h"

/// Kind of the errors that say that a field of a `T` has a value without a meaning: `fix` stores the value `Default`
/// with the setter `Set`, and answers 1; 0 when there is no such entity any more. To be named as the kind of an
/// igsErrorClass.
template <class T, auto Set, int Default>
class igsStoredDefault : public igsObjectError {
 public:
  int fix() override {
    return igs_repair<T>(object_at_key(), [](T& entity) { igs_call(entity, Set, Default); });
  }

 protected:
  igsStoredDefault() = default;
};
