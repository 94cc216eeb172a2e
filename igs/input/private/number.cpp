#include "igs/input/private/number.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

#include "igs/input/private/eightCharacters.h"
#include "igs/support/private/portable.h"
#include "igs/support/private/powersOfTen.h"

namespace {

using igs_number::is_digit;
unsigned digit_value(char c) { return static_cast<unsigned char>(c) - unsigned{'0'}; }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool is_hex_digit(char c) { return is_digit(c) || (lower(c) >= 'a' && lower(c) <= 'f'); }
bool is_space(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

const char* skip_space(const char* p) {
  while (is_space(*p)) ++p;
  return p;
}

bool skip_sign(const char*& p) {
  if (*p != '-' && *p != '+') return false;
  return *p++ == '-';
}

// True, and `p` past the word, when the text goes on with it in any case of letters.
bool skip_word(const char*& p, std::string_view word) {
  const char* q = p;
  for (const char c : word) {
    if (lower(*q++) != c) return false;
  }
  p = q;
  return true;
}

// An exponent beyond this is as good as infinite: no text is long enough to make up for it.
constexpr std::int64_t huge_exponent = std::int64_t{1} << 60;

// Digits with a sign, at `p` behind an exponent mark; `p` is left alone when there are none.
bool read_exponent(const char*& p, std::int64_t& exponent) {
  const char* q = p;
  const bool negative = skip_sign(q);
  if (!is_digit(*q)) return false;
  std::int64_t value = 0;
  for (; is_digit(*q); ++q) value = std::min(value * 10 + digit_value(*q), huge_exponent / 16);
  exponent = negative ? -value : value;
  p = q;
  return true;
}

/// A number as it is written: mantissa times 10 to the exponent.
struct Written {
  const char* first = nullptr;  ///< the mantissa, a point included
  const char* last = nullptr;
  std::int64_t magnitude = 0;  ///< the mantissa is below 10 ^ magnitude, and not below a tenth of it
  bool zero = true;
  std::int64_t exponent = 0;
};

// What from_chars calls out of range is infinite or next to 0.
double out_of_range_value(const Written& number) {
  const bool large = !number.zero && number.magnitude + number.exponent > 0;
  return large ? std::numeric_limits<double>::infinity() : 0.0;
}

// The mantissa with the exponent behind it, which may differ from the one in the text.
double convert_written(const Written& number) {
  std::array<char, 128> local;
  std::string heap;
  const auto size = static_cast<std::size_t>(number.last - number.first);
  constexpr std::size_t exponent_room = 24;
  char* begin = local.data();
  if (size + exponent_room > local.size()) {
    heap.resize(size + exponent_room);
    begin = heap.data();
  }
  char* end = std::copy(number.first, number.last, begin);
  *end++ = 'e';
  end = std::to_chars(end, end + exponent_room - 1, number.exponent).ptr;
  double value = 0;
  const bool in_range = igs_portable::from_chars(begin, end, value).ec == std::errc();
  return in_range ? value : out_of_range_value(number);
}

/// The decimal digits of a mantissa.
struct DecimalMantissa {
  std::uint64_t value = 0;  ///< of the digits without the point; meaningless above 19 significant digits
  int digits = 0;           ///< significant ones, 20 for more than 19
  int scale = 0;            ///< digits behind the point
};

constexpr int max_digits = 19;

constexpr std::array<std::uint64_t, 9> short_powers = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

// Puts the digits at `p` behind those of `value`; `p` is left past them.
[[gnu::always_inline]] inline void read_digits(const char*& p, const char* readable_end, std::uint64_t& value) {
  while (readable_end - p >= 8) {
    std::uint64_t digits = 0;
    const unsigned count = igs_eight::leading_digits(igs_eight::load(p), digits);
    if (count == 0) return;
    value = value * short_powers[count] + igs_eight::number(digits << (64 - 8 * count));
    p += count;
    if (count < 8) return;
  }
  while (is_digit(*p)) value = value * 10 + digit_value(*p++);
}

// Leading zeros, and the point before or among them, are no significant digits.
std::ptrdiff_t count_leading_zeros(const char* first, const char* last) {
  std::ptrdiff_t count = 0;
  for (const char* p = first; p < last && (*p == '0' || *p == '.'); ++p) count += *p == '0' ? 1 : 0;
  return count;
}

// The text from `p` on as a mantissa; `p` is left past it. False when there is no digit.
[[gnu::always_inline]] inline bool read_mantissa(const char*& p, const char* readable_end, DecimalMantissa& mantissa) {
  const char* const start = p;
  std::uint64_t value = 0;
  read_digits(p, readable_end, value);
  std::ptrdiff_t count = p - start;
  if (*p == '.') {
    const char* const fraction = ++p;
    read_digits(p, readable_end, value);
    const std::ptrdiff_t scale = p - fraction;
    count += scale;
    mantissa.scale = static_cast<int>(std::min<std::ptrdiff_t>(scale, INT_MAX));
  }
  if (count == 0) return false;
  if (count > max_digits) count -= count_leading_zeros(start, p);
  mantissa.value = value;
  mantissa.digits = static_cast<int>(std::min<std::ptrdiff_t>(count, max_digits + 1));
  return true;
}

constexpr std::array<double, 23> exact_powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Both the mantissa and the power of ten are doubles without error: one rounding gives the nearest double.
bool convert_exactly(const DecimalMantissa& mantissa, std::int64_t exponent, double& value) {
  if (FLT_EVAL_METHOD != 0) return false;  // longer registers round twice
  constexpr std::uint64_t largest = std::uint64_t{1} << DBL_MANT_DIG;
  constexpr auto largest_power = static_cast<std::int64_t>(exact_powers.size()) - 1;
  if (mantissa.digits > max_digits || mantissa.value > largest) return false;
  if (exponent < -largest_power || exponent > largest_power) return false;
  const auto whole = static_cast<double>(mantissa.value);
  value = exponent < 0 ? whole / exact_powers[static_cast<std::size_t>(-exponent)]
                       : whole * exact_powers[static_cast<std::size_t>(exponent)];
  return true;
}

#ifdef __SIZEOF_INT128__

// The mantissa times a power of ten that is known to 128 bits: false where that does not tell on which side of a tie
// between two doubles the value lies, and for values next to 0 or beyond the largest double.
bool convert_closely(const DecimalMantissa& mantissa, std::int64_t exponent, double& value) {
  namespace powers = igs_power_of_ten;
  using powers::uint128;
  if (mantissa.digits > max_digits || mantissa.value == 0 || exponent < powers::min_power ||
      exponent > powers::max_power)
    return false;
  const auto power = static_cast<int>(exponent);
  const int shift = std::countl_zero(mantissa.value);
  const uint128 product = powers::high_bits_of_product(mantissa.value << shift, powers::mantissa(power));
  const int first_bit = static_cast<std::int64_t>(product >> 64) < 0 ? 127 : 126;
  int binary_exponent = first_bit + 64 - 127 - shift + powers::log2(power);
  if (binary_exponent < DBL_MIN_EXP - 1 || binary_exponent >= DBL_MAX_EXP - 1) return false;

  const int dropped_bits = first_bit - (DBL_MANT_DIG - 1);
  const uint128 one = uint128{1} << dropped_bits;
  const uint128 dropped = product & (one - 1);
  const bool up = dropped > one / 2;
  if (!up && dropped + 2 > one / 2) return false;
  constexpr std::uint64_t hidden_bit = std::uint64_t{1} << (DBL_MANT_DIG - 1);
  auto bits = static_cast<std::uint64_t>(product >> dropped_bits) + (up ? 1 : 0);
  if (bits == 2 * hidden_bit) {
    bits = hidden_bit;
    ++binary_exponent;
  }
  const auto biased_exponent = static_cast<std::uint64_t>(binary_exponent + DBL_MAX_EXP - 1);
  value = igs_portable::bit_cast<double>(bits - hidden_bit + (biased_exponent << (DBL_MANT_DIG - 1)));
  return true;
}

#else

bool convert_closely(const DecimalMantissa&, std::int64_t, double&) { return false; }

#endif

// Where the mantissa's first significant digit stands: the power of ten that bounds it.
void weigh(Written& number) {
  std::int64_t position = 0;
  bool behind_point = false;
  for (const char* p = number.first; p < number.last; ++p) {
    if (*p == '.') {
      behind_point = true;
    } else if (!number.zero || *p != '0') {
      number.zero = false;
      if (!behind_point)
        ++position;
      else
        break;
    } else if (behind_point) {
      --position;
    }
  }
  number.magnitude = position;
}

// The general conversion.
[[gnu::noinline]] double convert_text(const char* first, const char* last, std::int64_t exponent) {
  Written number{first, last, 0, true, exponent};
  weigh(number);
  return convert_written(number);
}

// The mantissa times 2 ^ exponent, rounded to the nearest double.
double scaled(std::uint64_t mantissa, std::int64_t exponent) {
  constexpr int lowest_bit = DBL_MIN_EXP - DBL_MANT_DIG;
  const int width = 64 - std::countl_zero(mantissa);
  const std::int64_t dropped_bits = std::max<std::int64_t>(width - DBL_MANT_DIG, lowest_bit - exponent);
  if (dropped_bits > 64) return 0;
  if (dropped_bits > 0) {
    const std::uint64_t half = std::uint64_t{1} << (dropped_bits - 1);
    const std::uint64_t dropped = mantissa & (half - 1 + half);
    mantissa = mantissa >> (dropped_bits - 1) >> 1;
    if (dropped > half || (dropped == half && mantissa % 2 != 0)) ++mantissa;
    exponent += dropped_bits;
  }
  constexpr std::int64_t surely_infinite = DBL_MAX_EXP;
  return std::ldexp(static_cast<double>(mantissa), static_cast<int>(std::min(exponent, surely_infinite)));
}

unsigned hex_digit_value(char c) { return is_digit(c) ? digit_value(c) : static_cast<unsigned>(lower(c) - 'a') + 10; }

// The hexadecimal form behind "0x"; false when no digit follows.
bool read_hex(const char*& p, double& value) {
  std::uint64_t mantissa = 0;
  std::int64_t scale = 0, exponent = 0;
  bool any = false, behind_point = false;
  const char* q = p;
  for (; is_hex_digit(*q) || (*q == '.' && !behind_point); ++q) {
    if (*q == '.') {
      behind_point = true;
      continue;
    }
    any = true;
    const unsigned digit = hex_digit_value(*q);
    const bool fits = mantissa >> 60 == 0;
    mantissa = fits ? mantissa * 16 + digit : mantissa | (digit != 0 ? 1 : 0);  // of the rest counts whether it is 0
    scale += (behind_point ? -4 : 0) + (fits ? 0 : 4);
  }
  if (!any) return false;
  p = q;
  if (lower(*q) == 'p' && read_exponent(++q, exponent)) p = q;
  value = scaled(mantissa, scale + exponent);
  return true;
}

// "inf", "infinity", "nan" and "nan(...)".
bool read_name(const char*& p, double& value) {
  if (skip_word(p, "inf")) {
    skip_word(p, "inity");
    value = std::numeric_limits<double>::infinity();
    return true;
  }
  if (!skip_word(p, "nan")) return false;
  value = std::numeric_limits<double>::quiet_NaN();
  if (*p != '(') return true;
  const char* q = p + 1;
  while (is_digit(*q) || (lower(*q) >= 'a' && lower(*q) <= 'z') || *q == '_') ++q;
  if (*q == ')') p = q + 1;
  return true;
}

// The exponent behind a D, as parse_int takes it.
std::int64_t read_d_exponent(const char*& p) {
  int exponent = 0;
  ++p;
  p += igs_number::parse_int(p, exponent);
  return exponent;
}

bool at_d(const char* p, bool accept_d) { return accept_d && (*p == 'D' || *p == 'd'); }

// The exponents behind a mantissa: one marked by E, and then one marked by D.
[[gnu::noinline]] std::int64_t read_exponents(const char*& p, bool accept_d) {
  std::int64_t exponent = 0;
  const char* q = p;
  if (lower(*q) == 'e' && read_exponent(++q, exponent)) p = q;
  if (at_d(p, accept_d)) exponent += read_d_exponent(p);
  return exponent;
}

// The forms that are not decimal; a D behind them multiplies the value.
bool read_special(const char*& p, bool accept_d, double& value) {
  const char* const start = p;
  if (!read_name(p, value)) {
    if (*p != '0' || lower(p[1]) != 'x' || !read_hex(p += 2, value)) {
      p = start;
      return false;
    }
  }
  if (at_d(p, accept_d)) value *= std::pow(10.0, static_cast<double>(read_d_exponent(p)));
  return true;
}

[[gnu::always_inline]] inline bool read_decimal(const char*& p, const char* readable_end, bool accept_d,
                                                double& value) {
  const char* const first = p;
  DecimalMantissa mantissa;
  if (!read_mantissa(p, readable_end, mantissa)) {
    p = first;
    return false;
  }
  const char* const last = p;
  const bool may_be_exponent = *p >= 'D' && *p <= 'e';
  const std::int64_t exponent = may_be_exponent ? read_exponents(p, accept_d) : 0;
  const std::int64_t power = exponent - mantissa.scale;
  if (!convert_exactly(mantissa, power, value) && !convert_closely(mantissa, power, value)) {
    value = convert_text(first, last, exponent);
  }
  return true;
}

// What read_decimal cannot read as it stands: special forms, or nothing.
[[gnu::noinline]] const char* read_odd(const char* text, const char* p, bool accept_d, double& value) {
  if (read_special(p, accept_d, value) || read_decimal(p, p, accept_d, value)) return p;
  value = 0;
  if (at_d(text, accept_d)) read_d_exponent(text);
  return text;
}

std::size_t parse(const char* text, const char* readable_end, bool accept_d, double& value) {
  if (readable_end == nullptr) readable_end = text;
  value = 0;
  const char* p = skip_space(text);
  const bool negative = skip_sign(p);
  const bool plain = (is_digit(*p) && (*p != '0' || lower(p[1]) != 'x')) || *p == '.';
  if (!plain || !read_decimal(p, readable_end, accept_d, value)) {
    p = read_odd(text, p, accept_d, value);
    if (p == text) return 0;
  }
  if (negative) value = -value;
  return static_cast<std::size_t>(p - text);
}

}  // namespace

std::size_t igs_number::parse_int(const char* text, int& value) {
  value = 0;
  const char* p = skip_space(text);
  const bool negative = skip_sign(p);
  if (!is_digit(*p)) return 0;
  constexpr std::int64_t limit = std::int64_t{INT_MAX} + 1;
  constexpr int surely_below_limit = 9;  // digits
  std::int64_t sum = 0;
  for (int i = 0; i < surely_below_limit && is_digit(*p); ++i) sum = sum * 10 + digit_value(*p++);
  for (; is_digit(*p); ++p) sum = std::min(sum * 10 + digit_value(*p), limit);
  if (negative) sum = -sum;
  value = static_cast<int>(std::min<std::int64_t>(sum, INT_MAX));
  return static_cast<std::size_t>(p - text);
}

std::size_t igs_number::parse_real(const char* text, double& value, const char* readable_end) {
  return parse(text, readable_end, false, value);
}

std::size_t igs_number::parse_real_with_d(const char* text, double& value, const char* readable_end) {
  return parse(text, readable_end, true, value);
}
