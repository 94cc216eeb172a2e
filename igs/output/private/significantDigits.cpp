#include "igs/output/private/significantDigits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "igs/support/private/portable.h"

SignificantDigits shortest_digits(double value) {
  std::array<char, max_significant_digits + 8> text;
  const char* const end =
      igs_portable::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
  const char* const exponent = std::find<const char*>(text.data(), end, 'e');
  SignificantDigits number;
  int missing = max_significant_digits;
  for (const char* c = text.data(); c != exponent; ++c) {
    if (*c == '.') continue;
    number.digits = number.digits * 10 + static_cast<std::uint64_t>(*c - '0');
    --missing;
  }
  for (; missing > 0; --missing) number.digits *= 10;
  std::from_chars(exponent + (exponent[1] == '+' ? 2 : 1), end, number.exponent);
  return number;
}
