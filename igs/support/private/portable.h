#pragma once

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <system_error>
#include <type_traits>

#ifdef IGS_FAST_FLOAT
#include <fast_float/fast_float.h>
#endif

/// What some standard libraries of C++20 lack. CMake finds out what the one at hand has of the conversions of reals.
namespace igs_portable {

template <class To, class From>
To bit_cast(const From& from) {
  static_assert(sizeof(To) == sizeof(From) && std::is_trivially_copyable_v<To> && std::is_trivially_copyable_v<From>);
  To to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}

template <class Array>
std::unique_ptr<Array> make_unique_for_overwrite(std::size_t size) {
  return std::unique_ptr<Array>(new std::remove_extent_t<Array>[size]);
}

#ifdef IGS_FAST_FLOAT
/// As std::from_chars with std::chars_format::general.
inline std::from_chars_result from_chars(const char* first, const char* last, double& value) {
  double result = 0;
  const fast_float::from_chars_result end = fast_float::from_chars(first, last, result);
  if (end.ec != std::errc()) return {end.ptr, end.ec};
  // Some versions give infinity or 0 for what is out of range.
  const char* const exponent = std::find_if(first, end.ptr, [](char c) { return c == 'e' || c == 'E'; });
  const bool not_zero = std::any_of(first, exponent, [](char c) { return c >= '1' && c <= '9'; });
  if (not_zero && (result == 0 || std::isinf(result))) return {end.ptr, std::errc::result_out_of_range};
  value = result;
  return {end.ptr, std::errc()};
}
#else
using std::from_chars;
#endif

/// The forms of std::to_chars that are called for here, by means of the C library.
namespace by_printf {

/// Prints by a format that takes a precision, with a point in every locale.
inline std::to_chars_result print(char* first, char* last, const char* format, int precision, double value) {
  std::array<char, 128> text;
  const int length = std::snprintf(text.data(), text.size(), format, precision, value);
  if (length < 0 || static_cast<std::size_t>(length) >= text.size()) return {last, std::errc::value_too_large};
  const auto is_known = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || c == '-' || c == '+'; };
  char* end = first;
  for (const char* c = text.data(); c != text.data() + length; ++c) {
    if (!is_known(*c) && !is_known(c[1])) continue;  // a point of several bytes
    if (end == last) return {last, std::errc::value_too_large};
    *end++ = is_known(*c) ? *c : '.';
  }
  return {end, std::errc()};
}

inline std::to_chars_result to_chars(char* first, char* last, double value, std::chars_format format, int precision) {
  return print(first, last, format == std::chars_format::scientific ? "%.*e" : "%.*g", precision, value);
}

inline void raise_last_digit(char* first, char* end) {
  for (char* c = end; c != first;) {
    if (*--c == '.') continue;
    if (*c != '9') {
      ++*c;
      return;
    }
    *c = '0';
  }
}

/// Leaves out the zeros behind the mantissa's last digit, and a point without digits behind it.
inline char* without_zeros(char* first, char* exponent, char* end) {
  char* kept = exponent;
  if (std::find(first, exponent, '.') == exponent) return end;
  while (kept[-1] == '0') --kept;
  if (kept[-1] == '.') --kept;
  return std::copy(exponent, end, kept);
}

/// The fewest digits that read back, the closest of these, as "-d.ddde-xx". 24 characters are room enough.
inline char* print_shortest(char* text, double value) {
  char* const limit = text + 32;
  // A normal double keeps any DBL_DIG digits: zeros stand behind those that are fewer.
  int precision = std::abs(value) < DBL_MIN ? 0 : DBL_DIG - 1;
  int binary_exponent = 0;
  const bool power_of_2 = std::abs(std::frexp(value, &binary_exponent)) == 0.5;
  const auto reads_back = [&](const char* end) {
    double read = 0;
    return igs_portable::from_chars(text, end, read).ec == std::errc() && read == value;
  };
  for (;; ++precision) {
    char* const end = print(text, limit, "%.*e", precision, value).ptr;
    if (!std::isfinite(value)) return end;
    char* const exponent = std::find(text, end, 'e');
    bool found = precision == DBL_DECIMAL_DIG - 1 || reads_back(end);
    if (!found && power_of_2) {  // the double below is nearer than the one above: more digits above read back
      raise_last_digit(text, exponent);
      found = reads_back(end);
    }
    if (found) return without_zeros(text, exponent, end);
  }
}

inline std::to_chars_result copy(std::string_view text, char* first, char* last) {
  if (last - first < static_cast<std::ptrdiff_t>(text.size())) return {last, std::errc::value_too_large};
  return {std::copy(text.begin(), text.end(), first), std::errc()};
}

/// The shortest form with an exponent.
inline std::to_chars_result to_chars(char* first, char* last, double value, std::chars_format /*scientific*/) {
  std::array<char, 32> text;
  const char* const end = print_shortest(text.data(), value);
  return copy({text.data(), static_cast<std::size_t>(end - text.data())}, first, last);
}

/// The shorter one of the shortest forms with an exponent and without.
inline std::to_chars_result to_chars(char* first, char* last, double value) {
  std::array<char, 64> text;
  char* const end = print_shortest(text.data(), value);
  char* const digits = text.data() + (std::signbit(value) ? 1 : 0);
  char* const mark = std::find(digits, end, 'e');
  const auto with_exponent = copy({text.data(), static_cast<std::size_t>(end - text.data())}, first, last);
  if (!std::isfinite(value)) return with_exponent;
  int exponent = 0;
  std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, exponent);
  const auto point = std::min(mark - digits, std::ptrdiff_t{1});
  const auto count = static_cast<int>(mark - digits - (mark - digits > point ? 1 : 0));
  const int behind_point = std::max(count - 1 - exponent, 0);
  const int length = (exponent < 0 ? 1 : exponent + 1) + (behind_point > 0 ? behind_point + 1 : 0);
  if (length > end - digits) return with_exponent;
  if (behind_point == 0) return print(first, last, "%.*f", 0, value);  // all its digits, as there is room for them

  char* to = text.data() + 32;
  const char* const begin = to;
  if (std::signbit(value)) *to++ = '-';
  if (exponent < 0) {
    to = std::fill_n(to, 1, '0');
    *to++ = '.';
    to = std::fill_n(to, -exponent - 1, '0');
  }
  for (int i = 0; i < count; ++i) {
    *to++ = digits[i == 0 ? 0 : i + 1];
    if (i == exponent) *to++ = '.';
  }
  return copy({begin, static_cast<std::size_t>(to - begin)}, first, last);
}

}  // namespace by_printf

#ifdef IGS_NO_TO_CHARS
using by_printf::to_chars;
#else
using std::to_chars;
#endif

}  // namespace igs_portable
