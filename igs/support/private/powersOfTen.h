#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#ifdef __SIZEOF_INT128__

/// Powers of ten to 128 bits, for conversions between doubles and decimal digits: one multiplication tells most of
/// them, the general conversion decides the others.
namespace igs_power_of_ten {

__extension__ using uint128 = unsigned __int128;

/// Powers that bring 1 to 17 digits of any double before the point, and that any double above 10^-308 is made of with
/// 19 digits.
inline constexpr int min_power = -342;
inline constexpr int max_power = 340;

/// The leading 128 bits of a power of ten, rounded down; the first bit is set.
struct Mantissa {
  std::uint64_t high, low;
};

/// Those from min_power to max_power.
extern const std::array<Mantissa, max_power - min_power + 1> powers_of_ten;

/// `power` from min_power to max_power.
inline const Mantissa& mantissa(int power) { return powers_of_ten[static_cast<std::size_t>(power - min_power)]; }

/// floor(log2(10^n)), for these powers.
constexpr int log2(int n) { return (n * 1741647) >> 19; }

/// The 128 high bits of the 192-bit product: less than 2 units too small, the power being rounded down.
inline uint128 high_bits_of_product(std::uint64_t m, const Mantissa& power) {
  return static_cast<uint128>(m) * power.high + (static_cast<uint128>(m) * power.low >> 64);
}

}  // namespace igs_power_of_ten

#endif
