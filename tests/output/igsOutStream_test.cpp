#include "igs/output/igsOutStream.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <random>
#include <sstream>
#include <vector>

#include "igs/output/igsDoubleEncoder.h"
#include "igs/output/igsEncoder.h"
#include "igs/output/igsOutEngine.h"
#include "igs/output/private/fixedColumns.h"
#include "igs/support/coResourceTable.h"
#include "streams.h"

namespace {

/// A record: the data filled up with blanks to `width`, then its stamp.
std::string record(const std::string& data, const std::string& stamp) {
  return data + std::string(80 - data.size() - stamp.size(), ' ') + stamp + "\n";
}

using Ints = std::vector<int>;

TEST(OutStream, FixedFieldsNeverReachIntoTheirNeighboursButRunOverTheLine) {
  std::ostringstream target;
  {
    igsOutStream out(&target);
    out.set_section(igsStartSectionId);
    for (const char* text : {"ab", "abcd", "abcdef", ""}) out.write_string(4, text);
    for (int width : {0, -5}) out.write_string(width, "ab");
    out.write_string(46, std::string(46, 'a'));
    out.write_integer(8, -12345678);  // stays blank
    out.write_integer(8, 7);          // two blanks fill the line
    out.write_string(100, std::string(100, 'b'));
  }
  EXPECT_EQ(target.str(), record("  ababcdabcd    " + std::string(46, 'a'), "S      1") + record("7", "S      2") +
                              record(std::string(72, 'b'), "S      3") + record(std::string(28, 'b'), "S      4"));
}

// A record of fields that differ in width, so that each stands next to the others.
TEST(FixedColumns, FieldsAreThoseOfTheStream) {
  std::vector<int> numbers = {0, INT_MAX, INT_MIN};
  for (int power = 1; power <= 100'000'000; power *= 10)
    for (const int number : {power - 1, power, 7 * power + 3, INT_MAX - power})
      numbers.insert(numbers.end(), {number, -number});
  for (const int number : numbers) {
    FixedColumns<72> columns;
    std::ostringstream target;
    igsOutStream out(&target);
    columns.add_character('<');
    out.write_string(1, "<");
    for (int width = 1; width <= 8; ++width) columns.add_integer(width, number), out.write_integer(width, number);
    for (const std::string text : {"", "LABEL", "1234567", "12345678", "a\nb\r\t"})
      columns.add_text(7, text), out.write_string(7, text);
    out.reset();
    ASSERT_EQ(columns.text(), target.str().substr(0, 72)) << number;
  }
}

/// Gives one piece of a chosen length after the other.
struct TextEncoder : igsEncoder {
  void encode(const std::string& text, bool may_split) {
    reset();
    append_string(m_text = text, may_split ? 1 : 0);
  }
  std::string m_text;
};

/// Writes what its encoder gives.
struct Engine : igsOutEngine {
  using igsOutBuffer::formatter;
  Engine(std::ostream& target, igsFileSection section) : igsOutEngine(&target) {
    set_encoder(&encoder);
    set_section(section);
  }
  /// As encode() does it, or as encode_printed() where it can be done so.
  void write(const std::string& text, bool may_split = false, bool printed = false) {
    if (printed && !may_split && text.size() < scratch_length)
      return encode_printed([&text](char* place) { return std::copy(text.begin(), text.end(), place); });
    encoder.encode(text, may_split);
    encode();
  }
  /// The number of errors and what the first one says.
  Ints faults() {
    igsIOErrorcoDynArr errors;
    collect_errors(errors);
    const igsIOError& first = errors.at(0);
    return {static_cast<int>(errors.size()), first.error_type(), first.section(), first.line(), first.column()};
  }
  TextEncoder encoder;
};

TEST(OutEngine, FieldsAndDelimitersAtTheEndOfTheLine) {
  const auto run = [](int length, char c = 'x') { return std::string(static_cast<std::size_t>(length), c); };
  const igsFileSection P = igsParameterSectionId, G = igsGlobalSectionId;
  const struct {
    const char* name;
    igsFileSection section;
    std::vector<std::string> fields;
    bool may_split;
    std::vector<std::string> data;  // data columns of the records
  } cases[] = {{"no field", P, {}, false, {";"}},
               {"delimiter in the last column", P, {run(63), "y"}, false, {run(63) + ",", "y;"}},
               {"full data width is split", P, {"ab", run(64)}, false, {"ab," + run(61), "xxx;"}},
               {"room for field and delimiter", P, {run(60), "yz"}, false, {run(60) + ",yz;"}},
               {"no room for the delimiter", P, {run(60), "xyz"}, false, {run(60) + ",", "xyz;"}},
               {"no room at all", P, {run(60), "wxyz"}, false, {run(60) + ",", "wxyz;"}},
               {"may split", P, {run(60), "wxyz"}, true, {run(60) + ",wxy", "z;"}},
               {"split field ends with the line", P, {run(64), "y"}, true, {run(64), ",y;"}},
               {"over three lines", P, {"a", run(140), "b"}, true, {"a," + run(62), run(64), run(14) + ",b;"}},
               {"empty fields", P, {"", "", ""}, false, {",,;"}},
               {"global, last column", G, {run(40), run(30), "y"}, false, {run(40) + "," + run(30) + ",", "y;"}},
               {"global, no room", G, {run(40), run(29), "y"}, false, {run(40) + "," + run(29) + ",", "y;"}},
               {"global, room", G, {run(40), run(28), "y"}, false, {run(40) + "," + run(28) + ",y;"}}};
  for (const auto& c : cases) {
    for (const bool printed : {false, true}) {
      std::ostringstream target;
      Engine engine(target, c.section);
      for (const std::string& field : c.fields) {
        engine.write(field, c.may_split, printed);
        EXPECT_EQ(engine.reset(), 1);  // leaves an open record alone
      }
      if (c.section == P) engine.set_backpointer(3);
      engine.set_section(igsDirectorySectionId);

      std::string expected;
      for (std::size_t i = 0; i < c.data.size(); ++i)
        expected += record(c.data[i], (c.section == P ? "       1P      " : "G      ") + std::to_string(i + 1));
      EXPECT_EQ(target.str(), expected) << c.name;
    }
  }
}

TEST(OutEngine, NumbersBeyondSevenColumnsEndTheOutput) {
  for (int backpointer : {10000000, -1000000}) {
    std::ostringstream target;
    Engine engine(target, igsParameterSectionId);
    engine.set_backpointer(9999999);
    engine.write("1");
    engine.set_backpointer(backpointer);
    engine.write("2");
    engine.set_backpointer(3);
    EXPECT_EQ(target.str(), record(";", "       1P      1") + record("1;", " 9999999P      2"));
    EXPECT_EQ(engine.faults(), (Ints{1, igsIOBackPointerTooLarge, igsParameterSectionId, 3, 0}));
    EXPECT_EQ(engine.reset() + engine.reset(), 0) << "the overflow stays, however often it is asked for";
  }
  std::ostringstream target;
  Engine engine(target, igsDirectorySectionId);
  engine.encoder.encode(std::string(72, 'x'), false);
  engine.formatter().set_num_lines(igsDirectorySectionId, 9999998);
  for (int i = 0; i < 3; ++i) engine.fixed_encode(72);
  EXPECT_EQ(target.str(), record(std::string(72, 'x'), "D9999999"));
  EXPECT_EQ(engine.faults(), (Ints{1, igsIOSequenceTooLarge, igsDirectorySectionId, 10000000, 0}));
  EXPECT_EQ(engine.reset(), 0);
}

// Records are written in blocks, but a fault freezes the output as though each had been written at once.
TEST(OutEngine, FaultWithinABlock) {
  for (const std::size_t sound : {0U, 1U, 799U, 800U, 801U, 2999U, 5799U}) {
    const bool crlf = sound % 2 != 0;
    const std::size_t limit = (crlf ? 82 : 81) * sound + 80;
    igs_test::LimitedOutput buffer(limit);
    std::ostream target(&buffer);
    Engine engine(target, igsDirectorySectionId);
    engine.encoder.encode(std::string(72, 'x'), false);
    if (crlf) engine.use_crlf();
    for (std::size_t i = 1; i <= 6000; ++i) engine.fixed_encode(72);
    engine.fixed_encode(8);
    EXPECT_EQ(engine.num_lines(igsDirectorySectionId), static_cast<int>(sound + 1));
    EXPECT_EQ(engine.faults(), (Ints{2, igsIOStreamBad, igsDirectorySectionId, static_cast<int>(sound + 1), 0}));
    ASSERT_EQ(buffer.text.size(), limit);
    EXPECT_EQ(std::stoul(buffer.text.substr(limit - 7)), sound + 1);
  }
}

TEST(OutStream, UnusableDestinations) {
  igs_test::LimitedOutput buffer(100);
  std::ostream full(&buffer), at_end(&buffer), failed(&buffer);
  at_end.setstate(std::ios_base::eofbit);
  failed.setstate(std::ios_base::failbit);
  for (std::ostream* target : std::initializer_list<std::ostream*>{nullptr, &full, &at_end, &failed}) {
    igsOutStream out(target);
    out.set_section(igsTerminateSectionId);
    for (int i = 0; i < 20; ++i) out.write_integer(8, i);
    EXPECT_EQ((Ints{out.reset(), out.reset(), out.error_type(igsIOStreamBad), out.error_type(igsIOStreamFailed),
                    out.error_type(igsIOSequenceTooLarge), out.reset(), out.error()}),
              (Ints{0, 0, target == nullptr || target == &full ? 1 : 0, 1, 0, 1, 0}));
    out.write_string(5, "lost");  // left for the destructor
  }
  EXPECT_EQ(buffer.text.size(), 100U);
}

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
  encoder.pop_format();  // the first format stays
  const int usual = kel_resource_table_inquire().value(kelOptDoubleGeometricPrecision);
  EXPECT_EQ(only_piece(encoder, 1.0 / 3), converted_by_c_library(1.0 / 3, usual));
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
  EXPECT_EQ(texts, "0.1 10000000000000000. -1.D+17 0.0001 12345678.9 -9.9D-05 5.D-324 5.684341886080802D-14 -0. ");
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
