#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

/// Eight characters looked at together: a word whose lowest byte is the first of them. In words of digits each byte
/// holds a value from 0 to 9.
namespace igs_eight {

inline constexpr std::uint64_t every_byte = 0x0101010101010101U;

inline std::uint64_t load(const char* text) {
  std::uint64_t word = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&word, text, sizeof word);
  } else {
    for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{static_cast<unsigned char>(text[i])} << (8 * i);
  }
  return word;
}

/// How many digits stand before the first character that is none, 8 where all are digits. `digits` receives the
/// values of these; its bytes behind them mean nothing.
inline unsigned leading_digits(std::uint64_t characters, std::uint64_t& digits) {
  digits = characters ^ (every_byte * '0');
  // A byte above 9 gets its highest bit; what it carries over reaches only the bytes behind it.
  const std::uint64_t others = (digits | (digits + every_byte * 0x76)) & (every_byte << 7);
  return others == 0 ? 8 : static_cast<unsigned>(std::countr_zero(others)) / 8;
}

/// The decimal number that eight digits make; the first is the most significant one.
inline std::uint64_t number(std::uint64_t digits) {
  constexpr std::uint64_t every_fourth_byte = 0x000000FF000000FFU;
  constexpr std::uint64_t first_and_third = 100 + (std::uint64_t{1000000} << 32);
  constexpr std::uint64_t second_and_fourth = 1 + (std::uint64_t{10000} << 32);
  digits = digits * 10 + (digits >> 8);  // every other byte now holds a pair
  return ((digits & every_fourth_byte) * first_and_third + ((digits >> 16) & every_fourth_byte) * second_and_fourth) >>
         32;
}

inline constexpr std::uint64_t blanks = every_byte * ' ';
/// A zero behind blanks.
inline constexpr std::uint64_t single_zero = (blanks >> 8) | (std::uint64_t{'0'} << 56);

/// The number that eight characters make, right-aligned behind blanks; false when they hold anything else, and when all
/// are blank.
inline bool right_aligned_number(std::uint64_t characters, std::uint64_t& value) {
  const std::uint64_t not_blank = characters ^ blanks;
  if (not_blank == 0) return false;
  const std::uint64_t behind_blanks = ~std::uint64_t{0} << (std::countr_zero(not_blank) & ~7);
  const std::uint64_t digits = (characters ^ (every_byte * '0')) & behind_blanks;
  if (((digits | (digits + every_byte * 0x76)) & (every_byte << 7)) != 0) return false;
  value = number(digits);
  return true;
}

/// Eight characters, not all blank, with a blank in place of the minus sign that comes first behind the blanks and
/// right before another character; all blank where there is none.
inline std::uint64_t without_minus(std::uint64_t characters) {
  constexpr std::uint64_t minus_or_blank = '-' ^ ' ';
  const int first = std::countr_zero(characters ^ blanks) & 56;
  const std::uint64_t behind_blanks = characters >> first;
  if ((behind_blanks & 0xFF) != '-' || ((behind_blanks >> 8) & 0xFF) == ' ') return blanks;
  return characters ^ (minus_or_blank << first);
}

/// Number of blanks that lead.
inline unsigned leading_blanks(std::uint64_t characters) {
  const std::uint64_t not_blank = characters ^ blanks;
  return not_blank == 0 ? 8 : static_cast<unsigned>(std::countr_zero(not_blank)) / 8;
}

/// True when one of the characters is a NUL.
inline bool holds_nul(std::uint64_t characters) {
  return ((characters - every_byte) & ~characters & (every_byte << 7)) != 0;
}

}  // namespace igs_eight
