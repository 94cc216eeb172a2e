#include "igs/output/igsEncoder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <random>
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

// Most values take a quicker way than the C library: it has to give the same digits everywhere.
TEST(DoubleEncoder, DigitsAreThoseOfTheCLibrary) {
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
  igsDoubleEncoder encoder;
  encoder.pop_format();  // the first format stays
  const int usual = kel_resource_table_inquire().value(kelOptDoubleGeometricPrecision);
  EXPECT_EQ(only_piece(encoder, 1.0 / 3), converted_by_c_library(1.0 / 3, usual));
  for (int precision = -2; precision <= 19; ++precision) {
    encoder.push_format(20, precision);
    for (double value : values) {
      ASSERT_EQ(only_piece(encoder, value), converted_by_c_library(value, std::max(precision, 1))) << precision;
    }
  }
}

TEST(IntAndStrEncoder, Extremes) {
  igsIntEncoder integer;
  EXPECT_EQ(only_piece(integer, INT_MIN), "-2147483648");
  igsStrEncoder text;
  EXPECT_EQ(only_piece(text, utString(" a\n ")), " a  ") << "blanks and the record stay whole";
  EXPECT_EQ(only_piece(text, utString()), "");
}

TEST(HolerithEncoder, CountsAndSplits) {
  igsHolerithEncoder encoder;
  for (const auto& [value, pieces] : {std::pair(utString("  a world  \n"), utString("9H|  a world")),
                                      {" \f\n\r\t\v", "0H|"},
                                      {"", "0H|"},
                                      {{"a\nb\rc\0d\te\0", 10}, "9H|a b c d\te"},
                                      {utString(1000, 'x') + "\v", "1000H|" + utString(1000, 'x')},
                                      {"\xC3\xA9 ", "2H|\xC3\xA9"}}) {
    encoder.reset();
    encoder.encode(value);
    ASSERT_EQ(encoder.num_pieces(), 2);
    EXPECT_EQ(utString(encoder.piece(0)) + "|" + utString(encoder.piece(1)), pieces);
    EXPECT_TRUE(!encoder.get_split_flag(0) && encoder.get_split_flag(1));
  }
}

}  // namespace
