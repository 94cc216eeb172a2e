#include "igs/output/igsDoubleEncoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "igs/output/private/decimalDigits.h"
#include "igs/output/private/significantDigits.h"
#include "igs/support/coResourceTable.h"
#include "igs/support/private/portable.h"

namespace {

/// Only above this can rounding carry a finite value past the largest double.
constexpr double may_round_to_infinity = 1e308;
/// Whole numbers of up to this many digits take the shorter way through an int. Knots, weights and flags are mostly
/// such.
constexpr unsigned whole_number_digits = 8;

bool reads_as_infinity(const char* text, const char* end) {
  double value = 0;
  return igs_portable::from_chars(text, end, value).ec == std::errc::result_out_of_range;
}

/// Gives the text the exponent letter and a decimal point. Returns the new end.
char* make_iges_form(char* begin, char* end, char letter) {
  char* exponent = std::find(begin, end, 'e');
  if (exponent != end) *exponent = letter;
  if (std::find(begin, exponent, '.') != exponent) return end;
  std::copy_backward(exponent, end, end + 1);
  *exponent = '.';
  return end + 1;
}

/// The general way, for any value and precision: as "%G" would, except that nothing depends on the locale.
char* print_general(char* text, char* limit, double value, int precision, char letter) {
  char* end = igs_portable::to_chars(text, limit, value, std::chars_format::general, precision).ptr;
  if (value > may_round_to_infinity && reads_as_infinity(text, end)) {
    end = igs_portable::to_chars(text, limit, value, std::chars_format::general, max_significant_digits).ptr;
  }
  return make_iges_form(text, end, letter);
}

/// The digits of a number, filled up with zeros to max_significant_digits.
struct Digits {
  EightCharacters first, second;  ///< values from 0 to 9
  char last;
  int count;  ///< without the zeros at the end
};

/// Splits a number of `count` digits.
Digits split_number(std::uint64_t number, int count) {
  constexpr int two_words = 16;
  char last = '0';
  if (count > two_words) {
    last = static_cast<char>('0' + number % 10);
    number /= 10;
  } else {
    number *= small_powers_of_ten[static_cast<std::size_t>(two_words - count)];
  }
  Digits digits{split_digits(static_cast<std::uint32_t>(number / eight_digit_limit)),
                split_digits(static_cast<std::uint32_t>(number % eight_digit_limit)), last, max_significant_digits};
  if (last == '0') {
    const bool in_second = digits.second != 0;
    const int zero_bits = std::countl_zero(in_second ? digits.second : digits.first);
    digits.count = (in_second ? 16 : 8) - static_cast<int>(static_cast<unsigned>(zero_bits) / 8);
  }
  return digits;
}

/// Prints all digits and returns the end of those that count.
char* print(char* text, const Digits& digits) {
  print_characters(text, digits.first | eight_zeros);
  print_characters(text + 8, digits.second | eight_zeros);
  text[16] = digits.last;
  return text + digits.count;
}

/// The digits with the point behind the first `before`, at least 1. Returns the end.
inline char* print_with_point(char* text, const Digits& digits, int before) {
  const EightCharacters first = digits.first | eight_zeros, second = digits.second | eight_zeros;
  char* const behind = text + before + 1;
  print_characters(text, first);
  if (before <= 8) {
    print_characters(behind, first >> 4 * before >> 4 * before);
    print_characters(text + 9, second);
  } else {
    print_characters(text + 8, second);
    text[16] = digits.last;  // before the point, if that stands behind all
    print_characters(behind, second >> 4 * (before - 8) >> 4 * (before - 8));
  }
  text[17] = digits.last;
  text[before] = '.';
  return text + std::max(digits.count, before) + 1;
}

char* print_exponent(char* text, int exponent, char letter) {
  *text++ = letter;
  *text++ = exponent < 0 ? '-' : '+';
  const int size = std::abs(exponent);
  if (size >= 100) *text++ = static_cast<char>('0' + size / 100);
  *text++ = static_cast<char>('0' + size / 10 % 10);
  *text++ = static_cast<char>('0' + size % 10);
  return text;
}

inline char* print_number(char* text, const SignificantDigits& number, int precision, char letter) {
  constexpr int smallest_fixed_exponent = -4;
  const Digits digits = split_number(number.digits, precision);
  const int exponent = number.exponent;
  if (exponent >= 0 && exponent < precision) return print_with_point(text, digits, exponent + 1);
  if (exponent < smallest_fixed_exponent || exponent >= precision) {
    return print_exponent(print_with_point(text, digits, 1), exponent, letter);
  }
  constexpr std::string_view zeros = "0.000";
  zeros.copy(text, zeros.size());
  return print(text + 1 - exponent, digits);
}

char* print_constant(char* text, std::string_view constant) { return text + constant.copy(text, constant.size()); }

/// Prints the values that are neither whole nor have digits found quickly.
char* print_rare(char* text, double value, int precision, char letter) {
  // The shortest format reads back as the same double, whose sign may count.
  const bool negative = std::signbit(value), is_shortest = precision == igsDoubleEncoder::shortest;
  if (value == 0) return print_constant(text, negative && is_shortest ? "-0." : "0.");
  if (std::isnan(value)) return print_constant(text, negative ? "-NAN." : "NAN.");
  if (std::isinf(value)) return print_constant(text, negative ? "-INF." : "INF.");
  *text = '-';
  char* const begin = text + (negative ? 1 : 0);
  const double magnitude = std::abs(value);
  if (is_shortest) return print_number(begin, shortest_digits(magnitude), max_significant_digits, letter);
  return print_general(begin, text + igsDoubleEncoder::max_length, magnitude, precision, letter);
}

}  // namespace

igsDoubleEncoder::igsDoubleEncoder() {
  const coResourceTable& options = kel_resource_table_inquire();
  push_format(options.value(kelOptDoubleFieldWidth), options.value(kelOptDoubleGeometricPrecision));
}

void igsDoubleEncoder::encode(double value) {
  m_value = value;
  const char* const end = print(m_text.data(), value);
  append_string({m_text.data(), static_cast<std::size_t>(end - m_text.data())}, 0);
}

char* igsDoubleEncoder::print(char* text, double value) const {
  const int precision = m_precisions.back();
  const double magnitude = std::abs(value);
  *text = '-';
  char* const begin = text + (value < 0 ? 1 : 0);
  // Whole numbers need no more digits: the shortest format, -1, takes the way of the largest precisions.
  if (static_cast<unsigned>(precision) >= whole_number_digits && magnitude < eight_digit_limit) {
    const auto whole = static_cast<int>(magnitude);
    if (whole == magnitude && (whole != 0 || precision != shortest)) {
      char* const end = print_whole_number(begin, static_cast<std::uint32_t>(whole));
      *end = '.';
      return end + 1;
    }
  }
  if (static_cast<unsigned>(precision) <= max_significant_digits && magnitude > 0 &&
      magnitude <= may_round_to_infinity) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &magnitude, sizeof bits);
    const SignificantDigits number = significant_digits(bits, precision);
    if (number.digits != 0) return print_number(begin, number, precision, m_exponent_letter);
  }
  return print_rare(text, value, precision, m_exponent_letter);
}

void igsDoubleEncoder::push_format(int /*width*/, int precision) {
  const bool is_shortest = m_always_shortest || precision == shortest;
  m_precisions.push_back(is_shortest ? shortest : std::clamp(precision, 1, max_precision));
}

void igsDoubleEncoder::pop_format() {
  if (m_precisions.size() > 1) m_precisions.pop_back();
}

void igsDoubleEncoder::use_shortest() {
  m_always_shortest = true;
  std::fill(m_precisions.begin(), m_precisions.end(), shortest);
}
