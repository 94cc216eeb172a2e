#pragma once

#include <algorithm>
#include <cstddef>

#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsReferenceTest.h"

// Error classes whose names follow a rule, for entity classes that share their faults. The classes' public names are
// aliases: using igs192_1NullAxis = igsReferenceErrors<"igs192_1", "Axis">::Null.

/// The names one behind the other.
template <std::size_t... N>
constexpr auto igs_joined(const igsName<N>&... names) {
  char text[(... + (N - 1)) + 1] = {};
  char* end = text;
  ((end = std::copy_n(names.text, N - 1, end)), ...);
  return igsName(text);
}

/// The error class `Name`: all that an igsErrorClass is, where nothing but its kind tells how it is repaired.
template <igsName Name, class Kind = igsObjectError, class... Values>
class IGS_API_TEMPLATE igsNamedError
    : public igsErrorClass<igsNamedError<Name, Kind, Values...>, Name, Kind, Values...> {
 public:
  using igsErrorClass<igsNamedError, Name, Kind, Values...>::igsErrorClass;
};

/// The faults of the reference `Field` of the entity class `Owner`: it is null, it is to an entity of another class
/// than it should be, or that entity fails its own check.
template <igsName Owner, igsName Field>
struct igsReferenceErrors {
  using Null = igsNamedError<igs_joined(Owner, igsName("Null"), Field)>;
  using WrongType = igsNamedError<igs_joined(Owner, igsName("Wrong"), Field, igsName("Type"))>;
  using Invalid = igsNamedError<igs_joined(Owner, igsName("Invalid"), Field), igsReferenceDataError>;

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
