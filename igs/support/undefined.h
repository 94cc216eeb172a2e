#pragma once

#include <cfloat>

/// Marks an integer that was never set: Terminate counts, Global number-format parameters, an undefined view number,
/// the key of an untagged error.
inline constexpr int igs_unset_int = -2147483647;

/// Marks a real number that was never set or not supplied by the file.
inline constexpr double igs_undefined_real = -DBL_MAX;

/// True for the value that marks a real number as never set; a NaN is not undefined by this test.
constexpr bool igs_is_undefined_real(double value) { return value == igs_undefined_real; }

/// Stores a defined point or vector in `member` and returns 1; returns 0 and stores nothing for an undefined one.
template <class Value>
int igs_set_defined(Value& member, const Value& value) {
  if (value.is_undefined()) return 0;
  member = value;
  return 1;
}
