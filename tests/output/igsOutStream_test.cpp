#include "igs/output/igsOutStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ios>
#include <locale>
#include <ostream>
#include <random>
#include <sstream>
#include <streambuf>
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

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// Writes every section once, the way a file is written. Returns 1 when every step succeeded.
int write_small_file(igsOutStream& out) {
  out.set_section(igsStartSectionId);
  out.write_string(72, "A small file" + std::string(60, ' '));
  if (!out.reset()) return 0;

  out.set_section(igsGlobalSectionId);
  out.write_holerith(",");
  out.write_holerith(";");
  for (const char* text : {"product", "file.igs", "a system with a rather long name", "version 1"})
    out.write_holerith(text);
  out.write_integer(32);
  out.write_double(1e-6);
  if (!out.reset()) return 0;

  out.set_section(igsParameterSectionId);
  for (int de = 1; de <= 3; de += 2) {
    out.write_integer(110);
    for (double x : {0.0, 1.5, -1e20, 1.0 / 3, 2.0 / 3, 100.0}) out.write_double(x);
    out.set_backpointer(de + 2);
    if (!out.reset()) return 0;
  }

  out.set_section(igsDirectorySectionId);
  for (int field : {110, 1, 0, 7, 0, 0, 0, 0, -12345678}) out.write_integer(8, field);
  out.write_string(24, "LABEL");
  out.write_integer(8, 123456789);
  for (int i = 0; i < 5; ++i) out.write_integer(8, 99999999);
  if (!out.reset()) return 0;

  out.set_section(igsTerminateSectionId);
  for (int section = igsStartSectionId; section < igsTerminateSectionId; ++section) {
    out.write_string(1, std::string(1, "SGDPT?"[section]));
    out.write_integer(7, out.num_lines(static_cast<igsFileSection>(section)));
  }
  return out.reset();
}

const std::string small_file =
    record("A small file", "S      1") +
    record("1H,,1H;,7Hproduct,8Hfile.igs,32Ha system with a rather long name,9Hversi", "G      1") +
    record("on 1,32,1.D-06;", "G      2") +
    record("110,0.,1.5,-1.D+20,0.333333333333333,0.666666666666667,100.;", "       1P      1") +
    record("110,0.,1.5,-1.D+20,0.333333333333333,0.666666666666667,100.;", "       3P      2") +
    // The ninth field of the first record and the one after the label have nine characters and stay blank.
    record("     110       1       0       7       0       0       0       0", "D      1") +
    record("                   LABEL        " + std::string(40, '9'), "D      2") +
    record("S      1G      2D      2P      2", "T      1");

TEST(OutStream, EverySectionToTheByte) {
  struct Grouping : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\1"; }
  };
  std::ostringstream target;
  target.imbue(std::locale(std::locale::classic(), new Grouping));
  igsOutStream out(&target);
  EXPECT_EQ(write_small_file(out), 1);
  EXPECT_EQ(lines_of(target.str()), lines_of(small_file));
  EXPECT_EQ(target.str(), small_file);
  EXPECT_EQ(out.num_lines(igsTerminateSectionId), 1);
  EXPECT_EQ(out.num_lines(igsNoSectionId), 0);
  EXPECT_EQ(out.error(), 0);
}

TEST(OutStream, FixedFieldsNeverReachIntoTheirNeighbours) {
  const struct {
    int width;
    const char *text, *field;
  } cases[] = {{4, "ab", "  ab"}, {4, "abcd", "abcd"}, {4, "abcdef", "abcd"},
               {3, "", "   "},    {0, "ab", ""},       {-5, "ab", ""}};
  for (const auto& c : cases) {
    std::ostringstream target;
    igsOutStream out(&target);
    out.set_section(igsDirectorySectionId);
    out.write_string(3, "<<<");
    out.write_string(c.width, c.text);
    out.write_string(3, ">>>");
    EXPECT_EQ(out.reset(), 1);
    EXPECT_EQ(target.str(), record(std::string("<<<") + c.field + ">>>", "D      1")) << c.text;
  }
}

TEST(OutStream, FixedFieldsBeyondTheLine) {
  std::ostringstream target;
  {
    igsOutStream out(&target);
    out.set_section(igsStartSectionId);
    out.write_string(70, std::string(70, 'a'));
    out.write_integer(8, 7);  // six blanks fill the line
    out.write_string(100, std::string(100, 'b'));
  }
  EXPECT_EQ(target.str(), record(std::string(70, 'a'), "S      1") + record("7", "S      2") +
                              record(std::string(72, 'b'), "S      3") + record(std::string(28, 'b'), "S      4"));
}

/// Gives one piece of a chosen length after the other.
class TextEncoder : public igsEncoder {
 public:
  void encode(const std::string& text, bool may_split) {
    reset();
    m_text = text;
    append_string(m_text, may_split ? 1 : 0);
  }

 private:
  std::string m_text;
};

struct Engine : igsOutEngine {
  using igsOutBuffer::formatter;
  using igsOutEngine::igsOutEngine;
};

TEST(OutEngine, FieldsAndDelimitersAtTheEndOfTheLine) {
  const auto run = [](int length, char c = 'x') { return std::string(static_cast<std::size_t>(length), c); };
  struct Case {
    const char* name;
    igsFileSection section;
    std::vector<std::string> fields;
    bool may_split;
    std::vector<std::string> data;  // data columns of the records
  };
  const igsFileSection P = igsParameterSectionId, G = igsGlobalSectionId;
  const Case cases[] = {
      {"no field", P, {}, false, {";"}},
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
      {"global, room", G, {run(69), "y"}, false, {run(69) + ",y;"}},
  };
  for (const Case& c : cases) {
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
    for (std::size_t i = 0; i < c.data.size(); ++i) {
      expected += record(c.data[i], (c.section == P ? "       1P      " : "G      ") + std::to_string(i + 1));
    }
    EXPECT_EQ(lines_of(target.str()), lines_of(expected)) << c.name;
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

TEST(OutStream, HollerithTextRunsOnAndItsCountDoesNot) {
  std::ostringstream target;
  igsOutStream out(&target);
  out.set_delimiters("/", "#");
  out.set_section(igsParameterSectionId);
  out.write_holerith(std::string(57, 'a'));
  out.write_holerith(std::string(70, 'b'));
  out.write_holerith("");
  out.set_backpointer(3);
  EXPECT_EQ(target.str(), record("57H" + std::string(57, 'a') + "/70H", "       1P      1") +
                              record(std::string(64, 'b'), "       1P      2") +
                              record("bbbbbb/0H#", "       1P      3"));
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
    EXPECT_EQ(out.reset(), 0);
    EXPECT_EQ(out.error_type(igsIOSequenceTooLarge), 0);
    EXPECT_EQ(out.error_type(igsIOBackPointerTooLarge), 1);
    EXPECT_EQ(out.reset(), 0) << "the overflow stays, however often it is asked for";
    out.clear_errors();
    EXPECT_EQ(out.error(), 0);
    EXPECT_EQ(out.reset(), 0);
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
  igsIOErrorcoDynArr errors;
  engine.collect_errors(errors);
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0].error_type(), igsIOSequenceTooLarge);
  EXPECT_EQ(errors[0].section(), igsDirectorySectionId);
  EXPECT_EQ(errors[0].line(), 10000000);
  EXPECT_EQ(errors[0].column(), 0);
  EXPECT_EQ(engine.reset(), 0);
}

TEST(OutStream, DestinationFailingAfterEveryNumberOfBytes) {
  for (const bool throws : {false, true}) {
    for (const bool exceptions : {false, true}) {
      for (std::size_t limit = 0; limit <= small_file.size(); ++limit) {
        igs_test::LimitedOutput buffer(limit, throws);
        std::ostream target(&buffer);
        if (exceptions) target.exceptions(std::ios_base::badbit | std::ios_base::failbit);
        {
          igsOutStream out(&target);
          const int written = write_small_file(out);
          ASSERT_EQ(written, limit == small_file.size() ? 1 : 0) << limit;
          if (!written) {
            ASSERT_EQ(out.reset(), 0);
            ASSERT_EQ(out.error_type(igsIOStreamBad), 1);
            ASSERT_EQ(out.error_type(igsIOStreamFailed), 1);
            ASSERT_EQ(out.error_type(igsIOSequenceTooLarge), 0);
            ASSERT_EQ(out.reset(), 1) << "asked for, the fault lets go";
            ASSERT_EQ(out.error(), 0);
            out.write_string(5, "lost");  // left for the destructor
          }
        }
        ASSERT_EQ(buffer.text, small_file.substr(0, limit));
      }
    }
  }
}

// Records are written in blocks, but a fault freezes the output as though each had been written at once.
TEST(OutEngine, FaultWithinABlock) {
  constexpr std::size_t num_records = 3000;
  for (const std::size_t sound : {0U, 1U, 799U, 800U, 801U, 2999U}) {
    igs_test::LimitedOutput buffer(81 * sound + 80, false);
    std::ostream target(&buffer);
    TextEncoder encoder;
    Engine engine(&target);
    engine.set_encoder(&encoder);
    engine.set_section(igsDirectorySectionId);
    std::string expected;
    for (std::size_t i = 1; i <= num_records; ++i) {
      const std::string number = std::to_string(i);
      encoder.encode(number, false);
      engine.fixed_encode(8);
      encoder.encode(std::string(64, 'x'), false);
      engine.fixed_encode(64);
      const std::string data = std::string(8 - number.size(), ' ') + number + std::string(64, 'x');
      if (i <= sound + 1) expected += record(data, "D" + std::string(7 - number.size(), ' ') + number);
    }
    encoder.encode("lost", false);
    engine.fixed_encode(8);
    EXPECT_EQ(engine.num_lines(igsDirectorySectionId), static_cast<int>(sound + 1));
    EXPECT_TRUE(engine.frozen());
    EXPECT_EQ(buffer.text, expected.substr(0, 81 * sound + 80)) << sound;
    igsIOErrorcoDynArr errors;
    engine.collect_errors(errors);
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0].line(), static_cast<int>(sound + 1));
    EXPECT_EQ(errors[0].column(), 0);
  }
}

TEST(OutStream, UnusableDestinations) {
  std::ostringstream at_end, failed;
  at_end.setstate(std::ios_base::eofbit);
  failed.setstate(std::ios_base::failbit);
  struct Case {
    std::ostream* target;
    int bad;
  };
  for (const Case& c : {Case{nullptr, 1}, Case{&at_end, 0}, Case{&failed, 0}}) {
    igsOutStream out(c.target);
    out.set_section(igsTerminateSectionId);
    out.write_integer(8, 1);
    EXPECT_EQ(out.reset(), 0);
    EXPECT_EQ(out.error_type(igsIOStreamBad), c.bad);
    EXPECT_EQ(out.error_type(igsIOStreamFailed), 1);
  }
}

TEST(OutStream, ChangeOfDestinationCompletesTheFirst) {
  igs_test::LimitedOutput first_buffer(1000);
  std::ostream first(&first_buffer);
  std::ostringstream second;
  {
    igsOutStream out(&first);
    out.set_section(igsTerminateSectionId);
    out.write_integer(8, 1);
    out.set_destination(&second);
    EXPECT_EQ(first_buffer.text, record("       1", "T      1"));
    EXPECT_EQ(first_buffer.flushes, 1);
    out.write_integer(8, 2);
    EXPECT_EQ(second.str(), "");
  }
  EXPECT_EQ(second.str(), record("       2", "T      2")) << "the destructor writes the line begun";
}

TEST(OutStream, FlushThatFailsIsAFault) {
  igs_test::LimitedOutput buffer(1000, false, true);
  std::ostream target(&buffer);
  target.exceptions(std::ios_base::badbit);
  std::ostringstream next;
  igsOutStream out(&target);
  out.set_section(igsTerminateSectionId);
  out.set_destination(&next);
  EXPECT_EQ(out.reset(), 0);
  EXPECT_EQ(out.error_type(igsIOStreamBad), 1);
  EXPECT_EQ(out.reset(), 1);
  out.write_integer(8, 2);
  EXPECT_EQ(out.reset(), 1);
  EXPECT_EQ(next.str(), record("       2", "T      1"));
}

}  // namespace
