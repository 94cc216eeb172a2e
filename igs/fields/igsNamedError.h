#pragma once

#include <algorithm>
#include <cstddef>

#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsReferenceTest.h"

// Families of error classes whose names follow a rule. The classes' public names are aliases:
// using igs192_1NullAxis = igsReferenceErrors<"igs192_1", "Axis">::Null.

/// The names one behind the other.
template <std::size_t... N>
constexpr auto igs_joined(const igsName<N>&... names) {
  char text[(... + (N - 1)) + 1] = {};
  char* end = text;
  ((end = std::copy_n(names.text, N - 1, end)), ...);
  return igsName(text);
}

/// The faults of the reference `Field` of the entity class `Owner`: it is null, it is to an entity of another class
/// than it should be, or that entity fails its own check. `Values` tell which reference it is.
template <igsName Owner, igsName Field, class... Values>
struct igsReferenceErrors {
  using Null = igsNamedError<igs_joined(Owner, igsName("Null"), Field), igsObjectError, Values...>;
  using WrongType =
      igsNamedError<igs_joined(Owner, igsName("Wrong"), Field, igsName("Type")), igsObjectError, Values...>;
  using Invalid = igsNamedError<igs_joined(Owner, igsName("Invalid"), Field), igsReferenceDataError, Values...>;

  /// The test of a reference that may not be null, and of one that may.
  using Test = igsReferenceTest<Null, WrongType, Invalid>;
  using TestUnlessNull = igsReferenceTest<igsNullIsLegal, WrongType, Invalid>;
};

/// The fault of the real or point `Field` of the entity class `Owner`: it is undefined.
template <igsName Owner, igsName Field>
struct igsUndefinedErrors {
  using Invalid = igsNamedError<igs_joined(Owner, igsName("Invalid"), Field)>;
};

/// The fault of the real `Field` of the entity class `Owner`: it has an impossible value, which the error carries.
template <igsName Owner, igsName Field>
struct igsRealErrors {
  using Invalid = igsNamedError<igs_joined(Owner, igsName("Invalid"), Field), igsObjectError, double>;
};

/// The fault of the number of `Elements` of the entity class `Owner`: it is negative or out of proportion to the
/// record; carries it. Stands beside the list, in the header of the entity class.
template <igsName Owner, igsName Elements>
struct igsCountErrors {
  using BadNum = igsNamedError<igs_joined(Owner, igsName("BadNum"), Elements), igsObjectError, int>;
};
