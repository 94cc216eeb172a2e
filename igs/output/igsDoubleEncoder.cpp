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

namespace {

/// Only above this can rounding carry a finite value past the largest double.
constexpr double may_round_to_infinity = 1e308;
/// Whole numbers of up to this many digits take the shorter way through an int. Knots, weights and flags are mostly
/// such.
constexpr unsigned whole_number_digits = 8;

bool reads_as_infinity(const char* text, const char* end) {
  double value = 0;
  return std::from_chars(text, end, value).ec == std::errc::result_out_of_range;
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
  char* end = std::to_chars(text, limit, value, std::chars_format::general, precision).ptr;
  if (value > may_round_to_infinity && reads_as_infinity(text, end)) {
    end = std::to_chars(text, limit, value, std::chars_format::general, max_significant_digits).ptr;
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
  static constexpr std::array<std::uint64_t, max_significant_digits> powers = [] {
    std::array<std::uint64_t, max_significant_digits> result{1};
    for (std::size_t i = 1; i < result.size(); ++i) result[i] = result[i - 1] * 10;
    return result;
  }();
  constexpr int two_words = 16;
  char last = '0';
  if (count > two_words) {
    last = static_cast<char>('0' + number % 10);
    number /= 10;
  } else {
    number *= powers[static_cast<std::size_t>(two_words - count)];
  }
  Digits digits{split_digits(static_cast<std::uint32_t>(number / eight_digit_limit)),
                split_digits(static_cast<std::uint32_t>(number % eight_digit_limit)), last, max_significant_digits};
  if (last == '0') {
    digits.count =
        digits.second != 0 ? 16 - std::countl_zero(digits.second) / 8 : 8 - std::countl_zero(digits.first) / 8;
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
char* print_with_point(char* text, const Digits& digits, int before) {
  if (before <= 8) {
    const EightCharacters first = digits.first | eight_zeros;
    print_characters(text, first);
    print_characters(text + before + 1, first >> 4 * before >> 4 * before);
    print_characters(text + 9, digits.second | eight_zeros);
    text[17] = digits.last;
  } else {
    print(text, digits);
    std::memmove(text + before + 1, text + before, static_cast<std::size_t>(max_significant_digits - before));
  }
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

char* print_number(char* text, const SignificantDigits& number, int precision, char letter) {
  constexpr int smallest_fixed_exponent = -4;
  const Digits digits = split_number(number.digits, precision);
  const int exponent = number.exponent;
  if (exponent < smallest_fixed_exponent || exponent >= precision) {
    return print_exponent(print_with_point(text, digits, 1), exponent, letter);
  }
  if (exponent >= 0) return print_with_point(text, digits, exponent + 1);
  constexpr std::string_view zeros = "0.000";
  zeros.copy(text, zeros.size());
  return print(text + 1 - exponent, digits);
}

/// Prints a positive value. Inline, as every real goes this way.
inline char* print_positive(char* text, char* limit, double value, int precision, char letter) {
  // Whole numbers need no more digits: the shortest format, -1, takes the way of the largest precisions.
  if (static_cast<unsigned>(precision) >= whole_number_digits && value < eight_digit_limit) {
    const int whole = static_cast<int>(value);
    if (whole == value) {
      char* const end = print_whole_number(text, static_cast<std::uint32_t>(whole));
      *end = '.';
      return end + 1;
    }
  }
  SignificantDigits number;
  if (precision == igsDoubleEncoder::shortest) {
    number = shortest_digits(value);
    precision = max_significant_digits;
  } else if (precision <= max_significant_digits && value <= may_round_to_infinity) {
    number = significant_digits(value, precision);
  }
  if (number.digits != 0) return print_number(text, number, precision, letter);
  return print_general(text, limit, value, precision, letter);
}

}  // namespace

igsDoubleEncoder::igsDoubleEncoder() {
  const coResourceTable& options = kel_resource_table_inquire();
  push_format(options.value(kelOptDoubleFieldWidth), options.value(kelOptDoubleGeometricPrecision));
}

void igsDoubleEncoder::encode(double value) {
  m_value = value;
  append_string({m_text.data(), print(m_text.data(), value)}, 0);
}

char* igsDoubleEncoder::print(char* text, double value) const {
  const auto copy = [text](std::string_view constant) { return text + constant.copy(text, constant.size()); };
  // The shortest format reads back as the same double, whose sign may count.
  if (value == 0) return copy(std::signbit(value) && m_precisions.back() == shortest ? "-0." : "0.");
  if (std::isnan(value)) return copy(std::signbit(value) ? "-NAN." : "NAN.");
  if (std::isinf(value)) return copy(value < 0 ? "-INF." : "INF.");
  *text = '-';
  return print_positive(text + (value < 0 ? 1 : 0), text + max_length, std::abs(value), m_precisions.back(),
                        m_exponent_letter);
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
