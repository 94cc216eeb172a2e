// The value, m * 2^e with a 64-bit m, is multiplied by a power of ten that brings `count` digits before the decimal
// point. The power is known to 128 bits, rounded down, so the product is known up to a small error, and so is its
// distance from the tie that rounding turns on.

#include "igs/output/significantDigits.h"

#include <array>
#include <bit>
#include <cstddef>

#ifdef __SIZEOF_INT128__

namespace {

__extension__ using uint128 = unsigned __int128;

/// Powers that bring 1 to 17 digits of any double before the point.
constexpr int min_power = -308;
constexpr int max_power = 340;
constexpr std::size_t num_powers = max_power - min_power + 1;

/// The leading 128 bits of a power of ten; the first bit is set.
struct Mantissa {
  std::uint64_t high, low;
};

/// An integer of up to 896 bits, lowest limb first: 5^340, or 2^895 divided by 5^308 with more than 128 bits left.
using LargeInteger = std::array<std::uint32_t, 28>;

constexpr void multiply_by_5(LargeInteger& number) {
  std::uint64_t carry = 0;
  for (std::uint32_t& limb : number) {
    carry += std::uint64_t{limb} * 5;
    limb = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
}

constexpr void divide_by_5(LargeInteger& number) {
  std::uint64_t rest = 0;
  for (std::size_t i = number.size(); i-- > 0;) {
    rest = (rest << 32) + number[i];
    number[i] = static_cast<std::uint32_t>(rest / 5);
    rest %= 5;
  }
}

constexpr Mantissa leading_bits(const LargeInteger& number) {
  std::size_t top = number.size() - 1;
  while (number[top] == 0) --top;
  const int shift = std::countl_zero(number[top]);
  std::array<std::uint32_t, 5> limbs{};  // highest first
  for (std::size_t i = 0; i < limbs.size() && i <= top; ++i) limbs[i] = number[top - i];
  const auto limb = [&](std::size_t i) -> std::uint64_t {
    return shift == 0 ? limbs[i] : (limbs[i] << shift) | (limbs[i + 1] >> (32 - shift));
  };
  return {limb(0) << 32 | limb(1), limb(2) << 32 | limb(3)};
}

/// 10^k has the bits of 5^k. Dividing again and again rounds down no more than dividing once.
consteval std::array<Mantissa, num_powers> make_powers() {
  std::array<Mantissa, num_powers> powers{};
  LargeInteger number{1};
  for (int k = 0; k <= max_power; ++k) {
    powers[static_cast<std::size_t>(k - min_power)] = leading_bits(number);
    multiply_by_5(number);
  }
  number = {};
  number.back() = std::uint32_t{1} << 31;
  for (int k = -1; k >= min_power; --k) {
    divide_by_5(number);
    powers[static_cast<std::size_t>(k - min_power)] = leading_bits(number);
  }
  return powers;
}

constexpr std::array<Mantissa, num_powers> powers_of_ten = make_powers();

constexpr std::array<std::uint64_t, 18> small_powers = [] {
  std::array<std::uint64_t, 18> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

/// floor(log10(2^n)) and floor(log2(10^n)), for the exponents that doubles have.
constexpr int log10_of_power_of_2(int n) { return (n * 315653) >> 20; }
constexpr int log2_of_power_of_10(int n) { return (n * 1741647) >> 19; }

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

/// The 128 high bits of the 192-bit product: at most 2 units too small, the power being rounded down.
uint128 high_bits_of_product(std::uint64_t m, const Mantissa& power) {
  return static_cast<uint128>(m) * power.high + (static_cast<uint128>(m) * power.low >> 64);
}

}  // namespace

SignificantDigits significant_digits(double value, int count) {
  const auto [m, e] = decompose(value);
  // 2^63 <= m < 2^64: the value's exponent is this one or the next.
  int exponent = log10_of_power_of_2(e + 63);
  const int k = count - 1 - exponent;
  const uint128 product = high_bits_of_product(m, powers_of_ten[static_cast<std::size_t>(k - min_power)]);
  // In [2^126, 2^128), and the value times 10^k in [1, 10^18): 67 to 127 of the bits stand behind the point.
  const int fraction_bits = -(e + log2_of_power_of_10(k) - 127) - 64;
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
