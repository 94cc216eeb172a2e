#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>

/// Eight characters, the first in the lowest byte.
using EightCharacters = std::uint64_t;

inline constexpr EightCharacters eight_zeros = 0x3030303030303030, eight_blanks = 0x2020202020202020;

/// The first number of nine digits.
inline constexpr std::uint32_t eight_digit_limit = 100000000;

/// The eight digits of `number`, below 10^8, as values from 0 to 9.
inline EightCharacters split_digits(std::uint32_t number) {
  // Halves of four digits, quarters of two, then single ones: each time the quotient, and behind it the rest, which is
  // the number without `base` times the quotient.
  const auto split = [](std::uint64_t numbers, std::uint64_t quotients, std::uint64_t base, int bits) {
    return (numbers << bits) - quotients * ((base << bits) - 1);
  };
  std::uint64_t digits = split(number, number / 10000, 10000, 32);
  digits = split(digits, (digits * 10486 >> 20) & 0x0000007F0000007F, 100, 16);
  return split(digits, (digits * 103 >> 10) & 0x000F000F000F000F, 10, 8);
}

/// How many of the digits, as split_digits gives them, are zeros before the first that counts: 0 to 7.
inline int leading_zeros(EightCharacters digits) {
  constexpr EightCharacters last_counts = EightCharacters{1} << 56;
  return static_cast<int>(static_cast<unsigned>(std::countr_zero(digits | last_counts)) / 8);
}

inline void print_characters(char* text, EightCharacters characters) {
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(text, &characters, sizeof characters);
  } else {
    for (int i = 0; i < 8; ++i) text[i] = static_cast<char>(characters >> 8 * i);
  }
}

/// Prints `number`, below 10^8, and returns its end. Eight characters are overwritten.
inline char* print_whole_number(char* text, std::uint32_t number) {
  if (number <= 9) {  // most counts and flags
    *text = static_cast<char>('0' + number);
    return text + 1;
  }
  const EightCharacters digits = split_digits(number);
  const int zeros = leading_zeros(digits);
  print_characters(text, (digits | eight_zeros) >> 8 * zeros);
  return text + 8 - zeros;
}

/// `value` right-justified in eight columns, blanks before it; nothing when it does not fit.
inline std::optional<EightCharacters> right_justified(int value) {
  constexpr EightCharacters zero_or_blank = eight_zeros ^ eight_blanks, zero_or_minus = '0' ^ '-';
  const bool negative = value < 0;
  const std::uint32_t magnitude = negative ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
  if (magnitude >= eight_digit_limit) return std::nullopt;
  const EightCharacters digits = split_digits(magnitude);
  const int blanks = leading_zeros(digits) - (negative ? 1 : 0);
  if (blanks < 0) return std::nullopt;
  const EightCharacters text = (digits | eight_zeros) ^ (zero_or_blank & ((EightCharacters{1} << 8 * blanks) - 1));
  return negative ? text ^ zero_or_minus << 8 * blanks : text;
}

/// Prints `value` right-justified in `width` (1 to 8) columns; false, with nothing printed, when it does not fit. Up to
/// eight characters from `columns` on may be overwritten.
inline bool print_right_justified(char* columns, int width, int value) {
  const int surplus = 8 * (8 - width);
  if (value >= 0 && value <= 9) {  // most fields of a directory entry
    print_characters(columns, eight_blanks >> surplus);
    columns[width - 1] = static_cast<char>('0' + value);
    return true;
  }
  const std::optional<EightCharacters> text = right_justified(value);
  if (!text || ((*text ^ eight_blanks) & ((EightCharacters{1} << surplus) - 1)) != 0) return false;
  print_characters(columns, *text >> surplus);
  return true;
}
