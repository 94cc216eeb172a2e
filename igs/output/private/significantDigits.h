#pragma once

#include <cstdint>

/// A positive decimal number: `digits` has as many digits as were asked for, the first of which stands for 10^exponent.
struct SignificantDigits {
  std::uint64_t digits = 0;
  int exponent = 0;
};

/// Most digits that significant_digits gives: those that tell any two doubles apart.
inline constexpr int max_significant_digits = 17;

/// `value` (positive and finite) rounded to `count` (1 to max_significant_digits) decimal digits, to nearest. No
/// digits, 0, where 128 bits of precision do not tell on which side of a tie the value lies, which hardly ever happens
/// except with real ties, and where the compiler has no 128-bit integers: the general conversion has to decide then.
SignificantDigits significant_digits(double value, int count);

/// The fewest digits that read back as `value` (positive and finite), zeros behind them up to max_significant_digits.
SignificantDigits shortest_digits(double value);
