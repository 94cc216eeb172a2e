#pragma once

#include <cstddef>

/// Numbers in NUL-terminated text as C's strtol (base 10) and strtod read them in the "C" locale, whatever the locale
/// of the process: white space before the number is skipped (blank, \t, \n, \v, \f, \r), then a sign may follow. Each
/// returns the number of characters that belong to the number, 0 when there is none; the value is 0 then. Characters up
/// to `readable_end` may be looked at, those behind the NUL, too: it makes reading faster.
namespace igs_number {

inline constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// A decimal integer; one beyond 32 bits becomes the nearest 32-bit value.
std::size_t parse_int(const char* text, int& value);

/// A decimal real with an optional exponent marked by E or e, a hexadecimal one (0x1.8p3), "inf", "infinity", "nan" or
/// "nan(...)". The value is the nearest double; overflow gives infinity, underflow a value next to 0.
std::size_t parse_real(const char* text, double& value, const char* readable_end = nullptr);

/// As parse_real, but a D or d behind the number introduces a further decimal exponent, which parse_int reads. The
/// value is the double nearest to the decimal number as a whole. The D belongs to the number even when nothing follows
/// it.
std::size_t parse_real_with_d(const char* text, double& value, const char* readable_end = nullptr);

}  // namespace igs_number
