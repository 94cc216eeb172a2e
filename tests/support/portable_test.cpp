#include "igs/support/private/portable.h"

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <string>

namespace {

namespace by_printf = igs_portable::by_printf;

template <class... Format>
std::string printed(double value, Format... format) {
  std::array<char, 64> text;
  return {text.data(), by_printf::to_chars(text.data(), text.data() + text.size(), value, format...).ptr};
}

struct Real {
  double value;
  const char *with_exponent, *shortest, *rounded;  // to three digits
};

// What std::to_chars gives, written down: it is not there to be asked everywhere.
TEST(Portable, PrintsRealsAsTheStandardLibraryDoes) {
  const Real reals[] = {
      {0, "0e+00", "0", "0"},
      {-0.0, "-0e+00", "-0", "-0"},
      {100, "1e+02", "100", "100"},
      {1e5, "1e+05", "1e+05", "1e+05"},
      {-0.0001, "-1e-04", "-1e-04", "-0.0001"},
      {0.00012, "1.2e-04", "0.00012", "0.00012"},
      {123456.75, "1.2345675e+05", "123456.75", "1.23e+05"},
      {0.1 + 0.2, "3.0000000000000004e-01", "0.30000000000000004", "0.3"},
      {9007199254740993e3, "9.007199254740993e+18", "9007199254740993024", "9.01e+18"},
      {5e-324, "5e-324", "5e-324", "4.94e-324"},  // one digit is enough, and the last one is no fifth
      {15 * 5e-324, "7.4e-323", "7.4e-323", "7.41e-323"},
      {DBL_MIN, "2.2250738585072014e-308", "2.2250738585072014e-308", "2.23e-308"},
      {DBL_MAX, "1.7976931348623157e+308", "1.7976931348623157e+308", "1.8e+308"},
      // Powers of two, whose nearest 16 digits read back as the double below.
      {0x1p-44, "5.684341886080802e-14", "5.684341886080802e-14", "5.68e-14"},
      {-0x1p+89, "-6.189700196426902e+26", "-6.189700196426902e+26", "-6.19e+26"},
      {HUGE_VAL, "inf", "inf", "inf"},
  };
  for (const Real& real : reals) {
    EXPECT_EQ(printed(real.value, std::chars_format::scientific), real.with_exponent);
    EXPECT_EQ(printed(real.value), real.shortest);
    EXPECT_EQ(printed(real.value, std::chars_format::general, 3), real.rounded);
  }
  EXPECT_EQ(printed(2.0 / 3, std::chars_format::scientific, 4), "6.6667e-01");
  std::array<char, 4> small;
  EXPECT_EQ(by_printf::to_chars(small.data(), small.data() + small.size(), 12.345).ec, std::errc::value_too_large);
}

TEST(Portable, ReadsRealsAsTheStandardLibraryDoes) {
  struct Text {
    std::string text;
    std::ptrdiff_t length;
    std::errc error;
    double value;
  };
  constexpr auto out_of_range = std::errc::result_out_of_range, invalid = std::errc::invalid_argument;
  const Text texts[] = {
      {"1.5e3,", 5, {}, 1500},     {"-.5e", 3, {}, -0.5},         {"+1", 0, invalid, 7},
      {" 1", 0, invalid, 7},       {"1e400", 5, out_of_range, 7}, {"-1e-400x", 7, out_of_range, 7},
      {"0e999", 5, {}, 0},         {"infinite", 3, {}, HUGE_VAL}, {"2.4e-324", 8, out_of_range, 7},
      {"2.5e-324", 8, {}, 5e-324}, {"", 0, invalid, 7},           {"0x1", 1, {}, 0},
  };
  for (const Text& text : texts) {
    double value = 7;
    const auto [end, error] = igs_portable::from_chars(text.text.data(), text.text.data() + text.text.size(), value);
    EXPECT_EQ(end - text.text.data(), text.length) << text.text;
    EXPECT_EQ(error, text.error) << text.text;
    EXPECT_EQ(value, text.value) << text.text;  // 7 as before where nothing was read
  }
}

}  // namespace
