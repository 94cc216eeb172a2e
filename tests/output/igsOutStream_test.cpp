#include "igs/output/igsOutStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ios>
#include <locale>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "igs/output/igsEncoder.h"
#include "igs/output/igsOutEngine.h"
#include "streams.h"

namespace {

/// A record: the data filled up with blanks to `width`, then its stamp.
std::string record(const std::string& data, const std::string& stamp) {
  return data + std::string(80 - data.size() - stamp.size(), ' ') + stamp + "\n";
}

using Ints = std::vector<int>;

TEST(OutStream, EverySectionToTheByte) {
  struct Grouping : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\1"; }
  };
  std::ostringstream target;
  target.imbue(std::locale(std::locale::classic(), new Grouping));
  igsOutStream out(&target);
  out.set_section(igsStartSectionId);
  out.write_string(72, "A small file" + std::string(60, ' '));
  out.set_section(igsGlobalSectionId);
  for (const char* text : {",", ";", "product", "file.igs", "a system with a rather long name", "version 1"})
    out.write_holerith(text);
  out.write_integer(32);
  out.write_double(1e-6);
  out.set_section(igsParameterSectionId);
  for (int de = 1; de <= 3; de += 2) {
    out.write_integer(110);
    for (double x : {0.0, 1.5, -1e20, 1.0 / 3, 2.0 / 3, 100.0}) out.write_double(x);
    out.set_backpointer(de + 2);
  }
  out.set_section(igsDirectorySectionId);
  for (int field : {110, 1, 0, 7, 0, 0, 0, 0, -12345678}) out.write_integer(8, field);
  out.write_string(24, "LABEL");
  for (int field : {123456789, 99999999, 99999999, 99999999, 99999999, 99999999}) out.write_integer(8, field);
  out.set_section(igsTerminateSectionId);
  for (int section = igsStartSectionId; section < igsTerminateSectionId; ++section) {
    out.write_string(1, std::string(1, "SGDPT?"[section]));
    out.write_integer(7, out.num_lines(static_cast<igsFileSection>(section)));
  }
  EXPECT_EQ(out.reset(), 1);
  EXPECT_EQ(target.str(),
            record("A small file", "S      1") +
                record("1H,,1H;,7Hproduct,8Hfile.igs,32Ha system with a rather long name,9Hversi", "G      1") +
                record("on 1,32,1.D-06;", "G      2") +
                record("110,0.,1.5,-1.D+20,0.333333333333333,0.666666666666667,100.;", "       1P      1") +
                record("110,0.,1.5,-1.D+20,0.333333333333333,0.666666666666667,100.;", "       3P      2") +
                // The ninth field of the first record and the one after the label have nine characters and stay blank.
                record("     110       1       0       7       0       0       0       0", "D      1") +
                record("                   LABEL        " + std::string(40, '9'), "D      2") +
                record("S      1G      2D      2P      2", "T      1"));
  EXPECT_EQ((Ints{out.num_lines(igsTerminateSectionId), out.num_lines(igsNoSectionId), out.error()}), (Ints{1, 0, 0}));
}

TEST(OutStream, FixedFieldsNeverReachIntoTheirNeighboursButRunOverTheLine) {
  std::ostringstream target;
  {
    igsOutStream out(&target);
    out.set_section(igsStartSectionId);
    for (const char* text : {"ab", "abcd", "abcdef", ""}) out.write_string(4, text);
    for (int width : {0, -5}) out.write_string(width, "ab");
    out.write_string(54, std::string(54, 'a'));
    out.write_integer(8, 7);  // two blanks fill the line
    out.write_string(100, std::string(100, 'b'));
  }
  EXPECT_EQ(target.str(), record("  ababcdabcd    " + std::string(54, 'a'), "S      1") + record("7", "S      2") +
                              record(std::string(72, 'b'), "S      3") + record(std::string(28, 'b'), "S      4"));
}

/// Gives one piece of a chosen length after the other.
struct TextEncoder : igsEncoder {
  void encode(const std::string& text, bool may_split) {
    reset();
    append_string(m_text = text, may_split ? 1 : 0);
  }
  std::string m_text;
};

struct Engine : igsOutEngine {
  using igsOutBuffer::formatter;
  using igsOutEngine::igsOutEngine;

  /// The number of errors and what the first one says.
  Ints faults() {
    igsIOErrorcoDynArr errors;
    collect_errors(errors);
    const igsIOError& first = errors.at(0);
    return {static_cast<int>(errors.size()), first.error_type(), first.section(), first.line(), first.column()};
  }
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
    TextEncoder encoder;
    Engine engine(&target);
    engine.set_encoder(&encoder);
    engine.set_section(c.section);
    for (const std::string& field : c.fields) {
      encoder.encode(field, c.may_split);
      engine.encode();
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
      TextEncoder encoder;
      Engine encoded(&encoded_target), printed(&printed_target);
      encoded.set_encoder(&encoder);
      for (Engine* engine : {&encoded, &printed}) {
        engine->set_delimiters(delimiter, ";");
        engine->set_section(section);
      }
      for (int i = 0; i < 2000; ++i) {
        const std::string text(1 + random() % (i % 9 == 0 ? 63 : 20), static_cast<char>('a' + i % 26));
        encoder.encode(text, false);
        encoded.encode();
        printed.encode_printed([&text](char* place) { return std::copy(text.begin(), text.end(), place); });
        if (i % 10 != 0 || section != igsParameterSectionId) continue;
        for (Engine* engine : {&encoded, &printed}) engine->set_backpointer(i + 1);
      }
      for (Engine* engine : {&encoded, &printed}) engine->set_section(igsTerminateSectionId);
      EXPECT_EQ(printed_target.str(), encoded_target.str()) << delimiter << " in section " << section;
    }
  }
}

TEST(OutStream, NumbersBeyondSevenColumnsEndTheOutput) {
  for (int backpointer : {10000000, -1000000}) {
    std::ostringstream target;
    igsOutStream out(&target);
    out.set_section(igsParameterSectionId);
    out.set_backpointer(9999999);
    out.write_integer(1);
    out.set_backpointer(backpointer);
    EXPECT_EQ(out.reset(), 1);
    out.write_integer(2);
    out.set_backpointer(3);
    EXPECT_EQ(target.str(), record(";", "       1P      1") + record("1;", " 9999999P      2"));
    EXPECT_EQ((Ints{out.reset(), out.error_type(igsIOSequenceTooLarge), out.error_type(igsIOBackPointerTooLarge)}),
              (Ints{0, 0, 1}));
    EXPECT_EQ(out.reset(), 0) << "the overflow stays, however often it is asked for";
    out.clear_errors();
    EXPECT_EQ((Ints{out.error(), out.reset()}), (Ints{0, 0}));
  }
}

TEST(OutEngine, SequenceNumbersEndAtTheirSevenColumns) {
  std::ostringstream target;
  TextEncoder encoder;
  encoder.encode(std::string(72, 'x'), false);
  Engine engine(&target);
  engine.set_encoder(&encoder);
  engine.set_section(igsDirectorySectionId);
  engine.formatter().set_num_lines(igsDirectorySectionId, 9999998);
  for (int i = 0; i < 3; ++i) engine.fixed_encode(72);
  EXPECT_EQ(target.str(), record(std::string(72, 'x'), "D9999999"));
  EXPECT_TRUE(engine.frozen());
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
    TextEncoder encoder;
    encoder.encode(std::string(72, 'x'), false);
    Engine engine(&target);
    engine.set_encoder(&encoder);
    if (crlf) engine.use_crlf();
    engine.set_section(igsDirectorySectionId);
    std::string expected;
    for (std::size_t i = 1; i <= 6000; ++i) {
      engine.fixed_encode(72);
      const std::string number = std::to_string(i);
      if (i <= sound + 1) expected += record(encoder.m_text, "D" + std::string(7 - number.size(), ' ') + number);
      if (i <= sound + 1 && crlf) expected.insert(expected.size() - 1, 1, '\r');
    }
    engine.fixed_encode(8);
    EXPECT_EQ(engine.num_lines(igsDirectorySectionId), static_cast<int>(sound + 1));
    EXPECT_TRUE(engine.frozen());
    EXPECT_EQ(buffer.text, expected.substr(0, limit)) << sound;
    EXPECT_EQ(engine.faults(), (Ints{2, igsIOStreamBad, igsDirectorySectionId, static_cast<int>(sound + 1), 0}));
  }
}

TEST(OutStream, UnusableDestinations) {
  igs_test::LimitedOutput buffer(100);
  std::ostream full(&buffer);
  std::ostringstream at_end, failed;
  at_end.setstate(std::ios_base::eofbit);
  failed.setstate(std::ios_base::failbit);
  std::ostream* const targets[] = {nullptr, &full, &at_end, &failed};
  for (std::ostream* target : targets) {
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

TEST(OutStream, ChangeOfDestinationCompletesTheFirst) {
  for (const bool flush_fails : {false, true}) {
    igs_test::LimitedOutput first_buffer(1000, false, flush_fails);
    std::ostream first(&first_buffer);
    first.exceptions(std::ios_base::badbit);
    std::ostringstream second;
    {
      igsOutStream out(&first);
      out.set_section(igsTerminateSectionId);
      out.write_integer(8, 1);
      out.set_destination(&second);
      EXPECT_EQ(first_buffer.text, record("       1", "T      1"));
      EXPECT_EQ(first_buffer.flushes, 1);
      EXPECT_EQ((Ints{out.reset(), out.error_type(igsIOStreamBad), out.reset()}),
                (flush_fails ? Ints{0, 1, 1} : Ints{1, 0, 1}));
      out.write_integer(8, 2);
      EXPECT_EQ(second.str(), "");
    }
    EXPECT_EQ(second.str(), record("       2", "T      2")) << "the destructor writes the line begun";
  }
}

}  // namespace
