#include "igs/output/igsDoubleEncoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include "igs/output/significantDigits.h"
#include "igs/support/coResourceTable.h"

namespace {

/// Only above this can rounding carry a finite value past the largest double.
constexpr double may_round_to_infinity = 1e308;
/// Whole numbers of up to this many digits take the shorter way through an int. Knots, weights and flags are mostly
/// such.
constexpr int whole_number_digits = 9;
constexpr double whole_number_limit = 1e9;

bool reads_as_infinity(const char* text, const char* end) {
  double value = 0;
  return std::from_chars(text, end, value).ec == std::errc::result_out_of_range;
}

/// Gives the text the exponent letter `D` and a decimal point. Returns the new end.
char* make_double_precision_form(char* begin, char* end) {
  char* exponent = std::find(begin, end, 'e');
  if (exponent != end) *exponent = 'D';
  if (std::find(begin, exponent, '.') != exponent) return end;
  std::copy_backward(exponent, end, end + 1);
  *exponent = '.';
  return end + 1;
}

/// The general way, for any value and precision: as "%G" would, except that nothing depends on the locale.
char* print_general(char* text, char* limit, double value, int precision) {
  char* end = std::to_chars(text, limit, value, std::chars_format::general, precision).ptr;
  if (value > may_round_to_infinity && reads_as_infinity(text, end)) {
    end = std::to_chars(text, limit, value, std::chars_format::general, max_significant_digits).ptr;
  }
  return make_double_precision_form(text, end);
}

/// Eight decimal digits, each in a byte of its own, the first in the lowest.
using EightDigits = std::uint64_t;

/// `number` is below 10^8.
EightDigits split_digits(std::uint32_t number) {
  // Halves of four digits, quarters of two, then single ones.
  std::uint64_t digits = number / 10000 | std::uint64_t{number % 10000} << 32;
  std::uint64_t quotients = (digits * 10486 >> 20) & 0x0000007F0000007F;
  digits = quotients | (digits - quotients * 100) << 16;
  quotients = (digits * 103 >> 10) & 0x000F000F000F000F;
  return quotients | (digits - quotients * 10) << 8;
}

/// Prints eight digits; those shifted out are zeros at the end.
void print(char* text, EightDigits digits) {
  digits |= 0x3030303030303030;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(text, &digits, sizeof digits);
  } else {
    for (int i = 0; i < 8; ++i) text[i] = static_cast<char>(digits >> 8 * i);
  }
}

/// The digits of a number, filled up with zeros to max_significant_digits.
struct Digits {
  EightDigits first, second;
  char last;
  int count;  ///< without the zeros at the end
};

/// Splits a number of `count` digits.
Digits split_number(std::uint64_t number, int count) {
  static constexpr std::array<std::uint64_t, max_significant_digits> powers = [] {
    std::array<std::uint64_t, max_significant_digits> result{1};
    for (std::size_t i = 1; i < result.size(); ++i) result[i] = result[i - 1] * 10;
    return result;
  }();
  constexpr int two_words = 16;
  constexpr std::uint64_t word_limit = 100000000;
  char last = '0';
  if (count > two_words) {
    last = static_cast<char>('0' + number % 10);
    number /= 10;
  } else {
    number *= powers[static_cast<std::size_t>(two_words - count)];
  }
  Digits digits{split_digits(static_cast<std::uint32_t>(number / word_limit)),
                split_digits(static_cast<std::uint32_t>(number % word_limit)), last, max_significant_digits};
  if (last == '0') {
    digits.count =
        digits.second != 0 ? 16 - std::countl_zero(digits.second) / 8 : 8 - std::countl_zero(digits.first) / 8;
  }
  return digits;
}

/// Prints all digits and returns the end of those that count.
char* print(char* text, const Digits& digits) {
  print(text, digits.first);
  print(text + 8, digits.second);
  text[16] = digits.last;
  return text + digits.count;
}

/// The digits with the point behind the first `before`, at least 1. Returns the end.
char* print_with_point(char* text, const Digits& digits, int before) {
  if (before <= 8) {
    print(text, digits.first);
    print(text + before + 1, digits.first >> 4 * before >> 4 * before);
    print(text + 9, digits.second);
    text[17] = digits.last;
  } else {
    print(text, digits);
    std::memmove(text + before + 1, text + before, static_cast<std::size_t>(max_significant_digits - before));
  }
  text[before] = '.';
  return text + std::max(digits.count, before) + 1;
}

char* print_exponent(char* text, int exponent) {
  *text++ = 'D';
  *text++ = exponent < 0 ? '-' : '+';
  const int size = std::abs(exponent);
  if (size >= 100) *text++ = static_cast<char>('0' + size / 100);
  *text++ = static_cast<char>('0' + size / 10 % 10);
  *text++ = static_cast<char>('0' + size % 10);
  return text;
}

char* print_number(char* text, const SignificantDigits& number, int precision) {
  constexpr int smallest_fixed_exponent = -4;
  const Digits digits = split_number(number.digits, precision);
  const int exponent = number.exponent;
  if (exponent < smallest_fixed_exponent || exponent >= precision) {
    return print_exponent(print_with_point(text, digits, 1), exponent);
  }
  if (exponent >= 0) return print_with_point(text, digits, exponent + 1);
  constexpr std::string_view leading_zeros = "0.000";
  leading_zeros.copy(text, leading_zeros.size());
  return print(text + 1 - exponent, digits);
}

/// Prints a positive value.
char* print_positive(char* text, char* limit, double value, int precision) {
  if (precision >= whole_number_digits && value < whole_number_limit) {
    const int whole = static_cast<int>(value);
    if (whole == value) {
      char* const end = std::to_chars(text, limit, whole).ptr;
      *end = '.';
      return end + 1;
    }
  }
  precision = std::max(precision, 1);
  if (precision <= max_significant_digits && value <= may_round_to_infinity) {
    if (const auto number = significant_digits(value, precision)) return print_number(text, *number, precision);
  }
  return print_general(text, limit, value, precision);
}

}  // namespace

igsDoubleEncoder::igsDoubleEncoder() {
  const coResourceTable& options = kel_resource_table_inquire();
  push_format(options.value(kelOptDoubleFieldWidth), options.value(kelOptDoubleGeometricPrecision));
}

void igsDoubleEncoder::encode(double value) {
  m_value = value;
  if (value == 0) return append_string("0.", 0);
  if (std::isnan(value)) return append_string(std::signbit(value) ? "-NAN." : "NAN.", 0);
  if (std::isinf(value)) return append_string(value < 0 ? "-INF." : "INF.", 0);

  char* const begin = m_text.data();
  *begin = '-';
  char* const text = begin + (value < 0 ? 1 : 0);
  const char* const end = print_positive(text, begin + m_text.size(), std::abs(value), m_precisions.back());
  append_string({begin, end}, 0);
}

void igsDoubleEncoder::push_format(int /*width*/, int precision) {
  m_precisions.push_back(std::clamp(precision, 0, max_precision));
}

void igsDoubleEncoder::pop_format() {
  if (m_precisions.size() > 1) m_precisions.pop_back();
}
