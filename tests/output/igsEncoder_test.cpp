#include "igs/output/igsEncoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "igs/output/igsDoubleEncoder.h"
#include "igs/support/coResourceTable.h"

namespace {

/// The only piece of a field that must not be split.
template <class Encoder, class Value>
utString only_piece(Encoder& encoder, const Value& value) {
  encoder.reset();
  encoder.encode(value);
  EXPECT_EQ(encoder.num_pieces(), 1);
  EXPECT_FALSE(encoder.get_split_flag(0));
  return utString(encoder.piece(0));
}

/// The real form built on the C library's conversion; the tests run in the C locale.
utString converted_by_c_library(double value, int precision) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%-20.*G", precision, value);
  utString text(buffer);
  text.resize(text.find_last_not_of(' ') + 1);
  if (std::isfinite(value) && std::isinf(std::strtod(text.c_str(), nullptr))) return converted_by_c_library(value, 17);
  const std::size_t exponent = text.find('E');
  if (exponent != utString::npos) text[exponent] = 'D';
  if (text.find('.') == utString::npos) text.insert(exponent != utString::npos ? exponent : text.size(), ".");
  return text == "-0." ? "0." : text;
}

/// Values on which the digits of a real depend most, and any others.
std::vector<double> hard_values() {
  std::vector<double> values = {DBL_MIN, DBL_TRUE_MIN, DBL_MAX, -DBL_MAX, 1.6e308, 1.0 / 3,  2.0 / 3,   5e-5, 0.5,
                                1.5,     2.5,          1e15,    1e16,     1e17,    INFINITY, -INFINITY, NAN,  -0.0};
  for (int exponent = -320; exponent <= 308; ++exponent) {
    const double power = std::pow(10.0, exponent);
    for (double value : {power, std::nextafter(power, 0.0), std::nextafter(power, DBL_MAX), 9.5 * power}) {
      if (std::isfinite(value)) values.push_back(value);
    }
  }
  std::mt19937_64 random(20261121);
  for (int i = 0; i < 1500; ++i) {
    const double any = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
    if (std::isfinite(any)) values.push_back(any);
    const auto integer = static_cast<std::int64_t>(random());
    values.push_back(std::ldexp(static_cast<double>(integer % 100000), -(i % 20)));        // ties
    values.push_back(static_cast<double>(integer % 1000000000) / std::pow(10.0, i % 12));  // short decimals
    values.push_back(static_cast<double>(integer) / 1e14);
    values.push_back(std::bit_cast<double>(static_cast<std::uint64_t>(random()) >> (12 + i % 50)));  // subnormals
    // Next to the tie between two numbers of i % 17 digits, and on it where it is a double.
    const std::string tie = std::to_string(std::abs(integer)).substr(0, static_cast<std::size_t>(1 + i % 17)) + "5e";
    values.push_back(std::strtod((tie + std::to_string(i % 60 - 30)).c_str(), nullptr));
    values.push_back(static_cast<double>(integer >> (i % 63)));
  }
  return values;
}

// Most values take a quicker way than the C library: it has to give the same digits everywhere.
TEST(DoubleEncoder, DigitsAreThoseOfTheCLibrary) {
  const std::vector<double> values = hard_values();
  igsDoubleEncoder encoder;
  for (int precision = -2; precision <= 19; ++precision) {
    if (precision == igsDoubleEncoder::shortest) continue;
    encoder.push_format(20, precision);
    for (double value : values) {
      ASSERT_EQ(only_piece(encoder, value), converted_by_c_library(value, std::max(precision, 1))) << precision;
    }
  }
}

TEST(DoubleEncoder, ShortestDigitsReadBack) {
  igsDoubleEncoder encoder, by_format;
  encoder.use_shortest();
  encoder.push_format(20, 3);
  encoder.set_exponent_letter('E');
  for (const double value : hard_values()) {
    const utString text = only_piece(encoder, value);
    ASSERT_TRUE(!std::isfinite(value) || std::strtod(text.c_str(), nullptr) == value) << text;
    utString digits = text.substr(0, text.find('E'));
    std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
    digits.erase(0, digits.find_first_not_of('0'));
    const auto fewer = static_cast<int>(digits.find_last_not_of('0'));  // npos is -1
    if (fewer < 1) continue;
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*e", fewer - 1, value);
    ASSERT_NE(std::strtod(buffer, nullptr), value) << text;
  }
  by_format.push_format(20, igsDoubleEncoder::shortest);
  utString texts;
  for (const double value : {0.1, 1e16, -1e17, 1e-4, 12345678.9, -0.000099, 5e-324, std::ldexp(1, -44), -0.0})
    texts += only_piece(by_format, value) + ' ';
  EXPECT_EQ(texts, "0.1 10000000000000000. -1.D+17 0.0001 12345678.9 -9.9D-05 5.D-324 5.684341886080802D-14 0. ");
}

TEST(DoubleEncoder, FormatsAreAStackWhoseFirstStays) {
  igsDoubleEncoder encoder;
  const utString first = only_piece(encoder, 1.0 / 3);
  EXPECT_EQ(first, converted_by_c_library(1.0 / 3, kel_resource_table_inquire().value(kelOptDoubleGeometricPrecision)));
  for (int precision : {6, 2}) encoder.push_format(20, precision);
  for (const utString& text : {utString("0.33"), utString("0.333333"), first, first}) {
    EXPECT_EQ(only_piece(encoder, 1.0 / 3), text);
    encoder.pop_format();
  }
}

TEST(IntAndStrEncoder, Extremes) {
  igsIntEncoder integer;
  EXPECT_EQ(only_piece(integer, INT_MIN), "-2147483648");
  EXPECT_EQ(only_piece(integer, INT_MAX), "2147483647");
  igsStrEncoder text;
  EXPECT_EQ(only_piece(text, utString(" a\n ")), " a  ") << "blanks and the record stay whole";
  EXPECT_EQ(only_piece(text, utString()), "");
}

TEST(HolerithEncoder, CountsAndSplits) {
  const struct {
    utString value, pieces;
  } cases[] = {{"Hello world  \n", "11H|Hello world"},
               {" \f\n\r\t\v", "0H|"},
               {"", "0H|"},
               {"  a b", "5H|  a b"},
               {utString("a\nb\rc\0d\te", 9), "9H|a b c d\te"},
               {utString("ab\0\0", 4), "2H|ab"},
               {utString(1000, 'x') + "\v", "1000H|" + utString(1000, 'x')},
               {"\xC3\xA9 ", "2H|\xC3\xA9"}};
  igsHolerithEncoder encoder;
  for (const auto& c : cases) {
    encoder.reset();
    encoder.encode(c.value);
    ASSERT_EQ(encoder.num_pieces(), 2);
    EXPECT_EQ(utString(encoder.piece(0)) + "|" + utString(encoder.piece(1)), c.pieces);
    EXPECT_FALSE(encoder.get_split_flag(0));
    EXPECT_TRUE(encoder.get_split_flag(1));
  }
}

}  // namespace
