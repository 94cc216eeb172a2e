#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "igs/support/private/powersOfTen.h"

/// A positive decimal number: `digits` has as many digits as were asked for, the first of which stands for 10^exponent.
struct SignificantDigits {
  std::uint64_t digits = 0;
  int exponent = 0;
};

/// Most digits that significant_digits gives: those that tell any two doubles apart.
inline constexpr int max_significant_digits = 17;

/// 10^0 to 10^17.
inline constexpr std::array<std::uint64_t, max_significant_digits + 1> small_powers_of_ten = [] {
  std::array<std::uint64_t, max_significant_digits + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// The value with the bits `value` (positive and finite) rounded to `count` (1 to max_significant_digits) decimal
/// digits, to nearest. No digits, 0, where 128 bits of precision do not tell on which side of a tie the value lies,
/// which hardly ever happens except with real ties, and where the compiler has no 128-bit integers: the general
/// conversion has to decide then.
///
/// The value, m * 2^e with a 64-bit m, is multiplied by a power of ten that brings `count` digits before the decimal
/// point. The power is known to 128 bits, rounded down, so the product is known up to a small error, and so is its
/// distance from the tie that rounding turns on. Inline, as nearly every real goes this way.
inline SignificantDigits significant_digits([[maybe_unused]] std::uint64_t value, [[maybe_unused]] int count) {
#ifdef __SIZEOF_INT128__
  constexpr int mantissa_bits = 52, bias = 1075 + 11;
  std::uint64_t m = value << 11 | std::uint64_t{1} << 63;
  int e = static_cast<int>(value >> mantissa_bits) - bias;
  if (e == -bias) {
    const int shift = std::countl_zero(value);
    m = value << shift;
    e = 12 - bias - shift;
  }
  // 2^63 <= m < 2^64: the value's exponent is this one or, from the next power of ten on, the next. That power itself
  // counts as below it.
  int exponent = ((e + 63) * 315653) >> 20;
  const bool in_doubt = igs_power_of_ten::log2(exponent + 1) == e + 63;
  exponent += (in_doubt & (m > igs_power_of_ten::mantissa(exponent + 1).high)) ? 1 : 0;
  const int k = count - 1 - exponent;
  const igs_power_of_ten::uint128 product = igs_power_of_ten::high_bits_of_product(m, igs_power_of_ten::mantissa(k));
  const auto high = static_cast<std::uint64_t>(product >> 64), low = static_cast<std::uint64_t>(product);
  // In [2^126, 2^128), and the value times 10^k in [1, 10^17]: of `high` 7 to 63 bits stand behind the point.
  const int fraction_bits = -1 - e - igs_power_of_ten::log2(k);

  // The product is up to 2 units too small. Which way to round is as good as random: no branch depends on it.
  if (low + 1 <= 1) {  // a tie may lie in these
    const std::uint64_t one = std::uint64_t{1} << fraction_bits;
    if (((high + (low != 0 ? 1 : 0)) & (one - 1)) == one >> 1) return {};
  }
  const std::uint64_t digits = ((high >> (fraction_bits - 1)) + 1) >> 1;
  if (digits == small_powers_of_ten[static_cast<std::size_t>(count)]) return {digits / 10, exponent + 1};
  return {digits, exponent};
#else
  return {};
#endif
}

/// The fewest digits that read back as `value` (positive and finite), zeros behind them up to max_significant_digits.
SignificantDigits shortest_digits(double value);
