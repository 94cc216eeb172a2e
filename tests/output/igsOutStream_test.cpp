#include "igs/output/igsOutStream.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <sstream>
#include <vector>

#include "igs/output/igsEncoder.h"
#include "igs/output/igsOutEngine.h"
#include "igs/output/private/fixedColumns.h"
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
  void write(const std::string& text, bool may_split = false) {
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
               {"global, last column", G, {run(71), "y"}, false, {run(71) + ",", "y;"}},
               {"global, no room", G, {run(70), "y"}, false, {run(70) + ",", "y;"}},
               {"global, room", G, {run(69), "y"}, false, {run(69) + ",y;"}}};
  for (const auto& c : cases) {
    std::ostringstream target;
    Engine engine(target, c.section);
    for (const std::string& field : c.fields) {
      engine.write(field, c.may_split);
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

// Numbers are printed into the record before it is known whether they fit: that must not be seen in any place.
TEST(OutEngine, PrintedFieldsStandAsEncodedOnes) {
  std::mt19937 random(20261121);
  for (const char* delimiter : {",", "", "::"}) {
    for (const igsFileSection section : {igsGlobalSectionId, igsDirectorySectionId, igsParameterSectionId}) {
      std::ostringstream encoded_target, printed_target;
      Engine encoded(encoded_target, section), printed(printed_target, section);
      for (Engine* engine : {&encoded, &printed}) engine->set_delimiters(delimiter, ";");
      for (int i = 0; i < 2000; ++i) {
        const std::string text(1 + random() % (i % 9 == 0 ? 63 : 20), static_cast<char>('a' + i % 26));
        encoded.write(text);
        printed.encode_printed([&text](char* place) { return std::copy(text.begin(), text.end(), place); });
        if (i % 10 != 0 || section != igsParameterSectionId) continue;
        for (Engine* engine : {&encoded, &printed}) engine->set_backpointer(i + 1);
      }
      for (Engine* engine : {&encoded, &printed}) engine->set_section(igsTerminateSectionId);
      EXPECT_EQ(printed_target.str(), encoded_target.str()) << delimiter << " in section " << section;
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
  for (const std::size_t sound : {0U, 1U, 799U, 800U, 801U, 2999U}) {
    igs_test::LimitedOutput buffer(81 * sound + 80);
    std::ostream target(&buffer);
    Engine engine(target, igsDirectorySectionId);
    engine.encoder.encode(std::string(72, 'x'), false);
    for (std::size_t i = 1; i <= 3000; ++i) engine.fixed_encode(72);
    engine.fixed_encode(8);
    EXPECT_EQ(engine.num_lines(igsDirectorySectionId), static_cast<int>(sound + 1));
    EXPECT_EQ(engine.faults(), (Ints{2, igsIOStreamBad, igsDirectorySectionId, static_cast<int>(sound + 1), 0}));
    ASSERT_EQ(buffer.text.size(), 81 * sound + 80);
    EXPECT_EQ(std::stoul(buffer.text.substr(81 * sound + 73)), sound + 1);
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

}  // namespace
