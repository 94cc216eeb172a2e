#include "igs/support/private/powersOfTen.h"

#include <array>
#include <bit>
#include <cstddef>

#ifdef __SIZEOF_INT128__

namespace igs_power_of_ten {

namespace {

constexpr std::size_t num_powers = max_power - min_power + 1;

/// An integer of up to 960 bits, lowest limb first: 5^340, or 2^959 divided by 5^342 with more than 128 bits left.
using LargeInteger = std::array<std::uint32_t, 30>;

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

}  // namespace

constexpr std::array<Mantissa, num_powers> powers_of_ten = make_powers();

}  // namespace igs_power_of_ten

#endif
