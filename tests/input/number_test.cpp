#include "igs/input/private/number.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <sstream>

namespace {

bool same(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// The C library of the test machine is the judge. Its long may be wider.
void expect_as_in_c(const std::string& text) {
  const char* const start = text.c_str();
  char* end = nullptr;
  const double real = std::strtod(start, &end);
  double value = -1, bounded = -1;
  EXPECT_EQ(start + igs_number::parse_real(start, value), end) << text;
  EXPECT_EQ(start + igs_number::parse_real(start, bounded, start + text.size()), end) << text;
  EXPECT_TRUE(same(value, real) && same(bounded, real)) << text << ": " << value << ", " << bounded;

  const long long whole = std::strtoll(start, &end, 10);
  int integer = -1;
  EXPECT_EQ(start + igs_number::parse_int(start, integer), end) << text;
  EXPECT_EQ(integer, std::clamp<long long>(whole, INT_MIN, INT_MAX)) << text;
}

TEST(Number, ReadsWhatTheCLibraryReads) {
  // Between bars.
  std::istringstream cases(
      " |0|-0|+7|--7|+ 7|12 34|1.5|.5|5.|.|-.|+.e1|1e5|1e|1e+|1E-|1e 5|1.5e308|1.7976931348623157e308|"
      "1.7976931348623159e308|1e309|-1e999999999999999999999|1e-999999999999999999999|0e999999999999|"
      "4.9e-324|2.4e-324|2.5e-324|2.2250738585072011e-308|9007199254740993|9007199254740992.5|"
      "123456789012345678901234567890|0.000000000000000000000000000000123456789012345678901234567890|"
      "1.00000000000000011102230246251565404236316680908203125|"
      "1.00000000000000011102230246251565404236316680908203124|2147483647|2147483648|-2147483648|"
      "-2147483649|99999999999999999999999|0x|0x1|0x.8p1|0X1.8P+3,|0xg|0x.|-0x1p|0x1p-1074|0x1p-1080|"
      "0x1p1024|0x0p9999|0x1p99999999999999999999|inf|-INF|infinit|INFINITY,|in|nan|NaN(|nan(a_1)x|nan(-)|"
      "-nan|1,5|1.5D3|00000000000000000000000001.5|1e22|1e23|123e-22|1.5f|1e0x1|");
  for (const char* text : {"", "  \t\n\v\f\r12,", "\v"}) expect_as_in_c(text);
  for (std::string text; std::getline(cases, text, '|');) expect_as_in_c(text);
  const std::string zeros(400, '0'), nines(400, '9');
  // The last has 19 digits behind leading zeros.
  for (const std::string& text : {"0." + zeros + "1e400", "0x0." + zeros + "1p1600", nines + "." + nines + "e-400",
                                  nines, "0.0" + std::string(19, '1')})
    expect_as_in_c(text);
}

// As many digits as tell doubles apart, of any size, and those next to the middle between two doubles. What is no
// number or has more to it: Fields.AreWhatTheConversionsOfTheCLibraryMakeOfThem.
TEST(Number, RoundsToTheNearestDouble) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 30000; ++i) {
    std::string digits = std::to_string(random());
    digits.resize(std::min(digits.size(), static_cast<std::size_t>(15 + random() % 5)));
    expect_as_in_c(digits.insert(static_cast<std::size_t>(random() % 15), 1, '.') + 'e' +
                   std::to_string(static_cast<int>(random() % 700) - 360));

    const double value = std::abs(std::bit_cast<double>(random()));
    if (!std::isfinite(value)) continue;
    std::array<char, 64> middle;
    const long double next = std::nextafter(value, HUGE_VAL);
    std::snprintf(middle.data(), middle.size(), "%.*Le", static_cast<int>(15 + random() % 5),
                  (static_cast<long double>(value) + next) / 2);
    expect_as_in_c(middle.data());
    expect_as_in_c(std::to_string((random() >> 10 | 1) << (random() % 8)));  // whole numbers beyond 53 bits: real ties
  }
}

}  // namespace
