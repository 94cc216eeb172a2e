// The value, m * 2^e with a 64-bit m, is multiplied by a power of ten that brings `count` digits before the decimal
// point. The power is known to 128 bits, rounded down, so the product is known up to a small error, and so is its
// distance from the tie that rounding turns on.

#include "igs/output/private/significantDigits.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>

#include "igs/support/private/powersOfTen.h"

#ifdef __SIZEOF_INT128__

namespace {

using igs_power_of_ten::uint128;

constexpr std::array<std::uint64_t, 18> small_powers = [] {
  std::array<std::uint64_t, 18> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// floor(log10(2^n)), for the exponents that doubles have.
constexpr int log10_of_power_of_2(int n) { return (n * 315653) >> 20; }

/// A positive double as m * 2^e, the first bit of m set.
struct Binary {
  std::uint64_t m;
  int e;
};

Binary decompose(double value) {
  constexpr int fraction_bits = 52, bias = 1075;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const std::uint64_t fraction = bits & ((std::uint64_t{1} << fraction_bits) - 1);
  const int exponent = static_cast<int>(bits >> fraction_bits);
  if (exponent == 0) {
    const int shift = std::countl_zero(fraction);
    return {fraction << shift, 1 - bias - shift};
  }
  return {(fraction | std::uint64_t{1} << fraction_bits) << 11, exponent - bias - 11};
}

}  // namespace

SignificantDigits significant_digits(double value, int count) {
  const auto [m, e] = decompose(value);
  // 2^63 <= m < 2^64: the value's exponent is this one or the next.
  int exponent = log10_of_power_of_2(e + 63);
  const int k = count - 1 - exponent;
  const uint128 product = igs_power_of_ten::high_bits_of_product(m, igs_power_of_ten::mantissa(k));
  // In [2^126, 2^128), and the value times 10^k in [1, 10^18): 67 to 127 of the bits stand behind the point.
  const int fraction_bits = -(e + igs_power_of_ten::log2(k) - 127) - 64;
  const uint128 one = static_cast<uint128>(1) << fraction_bits;
  auto digits = static_cast<std::uint64_t>(product >> fraction_bits);
  const uint128 fraction = product & (one - 1);
  const std::uint64_t limit = small_powers[static_cast<std::size_t>(count)];

  // The fraction is up to 2 units too small. Which way to round is as good as random: no branch depends on it.
  bool up = false, known = false;
  if (digits < limit) {
    const uint128 half = one >> 1;
    up = fraction > half;
    known = up | (fraction + 2 <= half);
  } else {  // one digit too many; only with a 4 or a 5 its fraction matters, the tie being 5.000...
    const std::uint64_t last = digits % 10;
    digits /= 10;
    ++exponent;
    up = (last > 5) | ((last == 5) & (fraction > 0));
    known = up | (last < 4) | ((last == 4) & (fraction + 2 <= one));
  }
  if (!known) return {};
  digits += up ? 1 : 0;
  if (digits == limit) {
    digits /= 10;
    ++exponent;
  }
  return {digits, exponent};
}

#else

SignificantDigits significant_digits(double, int) { return {}; }

#endif

SignificantDigits shortest_digits(double value) {
  std::array<char, max_significant_digits + 8> text;
  const char* const end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
  const char* const exponent = std::find<const char*>(text.data(), end, 'e');
  SignificantDigits number;
  int missing = max_significant_digits;
  for (const char* c = text.data(); c != exponent; ++c) {
    if (*c == '.') continue;
    number.digits = number.digits * 10 + static_cast<std::uint64_t>(*c - '0');
    --missing;
  }
  for (; missing > 0; --missing) number.digits *= 10;
  std::from_chars(exponent + (exponent[1] == '+' ? 2 : 1), end, number.exponent);
  return number;
}
