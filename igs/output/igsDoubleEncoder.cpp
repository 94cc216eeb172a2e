#include "igs/output/igsDoubleEncoder.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "igs/support/coResourceTable.h"

namespace {

/// Digits that tell any two doubles apart.
constexpr int exact_precision = 17;
/// Only above this can rounding carry a finite value past the largest double.
constexpr double may_round_to_infinity = 1e308;
/// Whole numbers of up to this many digits take the shorter way through an int. Knots, weights and flags are mostly
/// such.
constexpr int whole_number_digits = 9;
constexpr double whole_number_limit = 1e9;

/// Room for a real of the largest precision: its digits, sign, "0.000" before them, a point and "D-308" after them.
using Text = char[igsDoubleEncoder::max_precision + 16];

/// Prints `value` as "%G" would, except that letters are lower case and nothing depends on the locale. Returns the end.
char* print_general(Text& text, double value, int precision) {
  return std::to_chars(text, text + sizeof text, value, std::chars_format::general, precision).ptr;
}

bool reads_as_infinity(const Text& text, const char* end) {
  double value = 0;
  return std::from_chars(text, end, value).ec == std::errc::result_out_of_range;
}

char* print_finite(Text& text, double value, int precision) {
  if (precision >= whole_number_digits && std::abs(value) < whole_number_limit) {
    const int whole = static_cast<int>(value);
    if (whole == value) return std::to_chars(text, text + sizeof text, whole).ptr;
  }
  char* end = print_general(text, value, precision);
  if (std::abs(value) > may_round_to_infinity && reads_as_infinity(text, end)) {
    end = print_general(text, value, exact_precision);
  }
  return end;
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

  Text text{};  // filled by to_chars, which not every analyser knows
  const char* end = make_double_precision_form(text, print_finite(text, value, m_precisions.back()));
  append_string({text, end}, 0);
}

void igsDoubleEncoder::push_format(int /*width*/, int precision) {
  m_precisions.push_back(std::clamp(precision, 0, max_precision));
}

void igsDoubleEncoder::pop_format() {
  if (m_precisions.size() > 1) m_precisions.pop_back();
}
