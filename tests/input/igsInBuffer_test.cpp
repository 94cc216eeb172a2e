#include "igs/input/igsInBuffer.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "input/records.h"
#include "streams.h"

namespace {

using records::join;
using records::Messages;
using records::record;
using records::small_file;

/// Reads records as they are rebuilt, without the end marks that the checker leaves in them.
class Reader : public igsInBuffer {
 public:
  using igsInBuffer::igsInBuffer;

  std::string text() {
    std::string text(buffer(), capacity());
    if (text.size() == 80 && text[72] == '\n') text[72] = 'G';
    if (text.size() == 80 && text[72] == 'P' && text[64] == '\n') text[64] = ' ';
    return text;
  }
  std::string codes() {
    igsIOErrorcoDynArr errors;
    collect_errors(errors);
    return records::codes(errors);
  }
};

struct Result {
  std::vector<std::string> texts;
  std::string codes;  ///< of all records, 5 and 6 left out, each followed by a blank
  std::string messages;
};

// All records that can be read before a fatal error or the end of input.
Result read_all(const std::string& text, bool shortcuts) {
  std::istringstream stream(text);
  Messages messages;
  Reader reader(stream, {&messages, shortcuts});
  Result result;
  for (;;) {
    std::string codes = ' ' + reader.codes() + ' ';
    for (const char* boundary : {" 5 ", " 6 "}) {
      if (const std::size_t at = codes.find(boundary); at != std::string::npos) codes.erase(at, 2);
    }
    result.codes += codes.substr(1) == " " ? "" : codes.substr(1);
    if (reader.reset() == 0) break;
    result.texts.push_back(reader.text());
    reader.skip_line();
  }
  result.messages = messages.texts;
  return result;
}

struct Damage {
  const char* name;
  std::string text;
  std::vector<std::string> texts;
  std::string codes;
};
std::ostream& operator<<(std::ostream& os, const Damage& d) { return os << d.name; }

class Repair : public testing::TestWithParam<Damage> {};

TEST_P(Repair, GivesTheRecords) {
  for (const bool shortcuts : {true, false}) {
    const Result result = read_all(GetParam().text, shortcuts);
    EXPECT_EQ(result.texts, GetParam().texts);
    EXPECT_EQ(result.codes, GetParam().codes);
  }
}

const std::string s1 = record('S', 1, "one");
const std::string s2 = record('S', 2, "two");
const std::string g1 = record('G', 1, "glob");
const std::string g2 = record('G', 2, "al");
const std::string p1 = record('P', 1, "110,1.,2., ", 7);
const std::vector<std::string> both = {s1, s2};
const std::string x64(64, 'x');

INSTANTIATE_TEST_SUITE_P(
    Lines, Repair,
    testing::Values(
        Damage{"LineFeeds", s1 + "\n" + s2 + "\n", both, "13 "}, Damage{"CrLf", s1 + "\r\n" + s2 + "\r\n", both, "13 "},
        Damage{"CarriageReturns", s1 + "\r" + s2 + "\r", both, "13 "}, Damage{"NoLineEnds", s1 + s2, both, "13 "},
        Damage{"MixedLineEnds", s1 + "\r\n" + s2 + s1 + "\r" + s2, {s1, s2, s1, s2}, "18 18 13 "},
        Damage{"NoLastLineEnd", s1 + "\n" + s2, both, "13 "}, Damage{"Empty", "", {}, "13 "},
        Damage{"BlankLines", "\n" + s1 + "\n\n  \t\n" + s2 + "\n \n", both, "20 20 13 20 "},
        Damage{"OnlyBlanks", std::string(1000, ' '), {}, "13 20 "},
        Damage{"Tab", "o\te" + s1.substr(3) + "\n", {record('S', 1, "o e")}, "13 "},
        Damage{"Nul", std::string("o\0e", 3) + s1.substr(3) + "\n", {record('S', 1, "o e")}, "19 13 "},
        Damage{"OnlyNuls", std::string(100, '\0') + "\n" + s1, {s1}, "19 20 13 "},
        Damage{"DeleteCharacterStays", "o\x7f" + s1.substr(2) + "\n", {"o\x7f" + s1.substr(2)}, "13 "},
        Damage{"TrailingBlanksBehind", s1 + "   \n" + s2 + "\n", both, "13 "},
        Damage{"ShortData", "oneS      1\ntwo  S2\n", both, "13 "},
        Damage{"LeftAlignedNumber", s1.substr(0, 73) + "1      \n" + s2, both, "13 "},
        Damage{"LeadingZeros", s1.substr(0, 73) + "0000001\n", {s1.substr(0, 73) + "0000001"}, "13 "},
        Damage{"79Columns", s1.substr(1) + "\n", {record('S', 1, "ne")}, "13 "},
        Damage{"Split40And40", s1.substr(0, 40) + "\n" + s1.substr(40) + "\n" + s2, both, "13 "},
        // The line end stands for a blank, unless the record grows too long by it.
        Damage{"SplitBehindLostBlanks", "one\n" + s1.substr(4) + "\n", {s1}, "13 "},
        Damage{"SplitWithBlankLine", "one\n\n" + s1.substr(5) + "\n", {s1}, "13 "},
        Damage{"TwoOnOneLine", s1 + s2 + "\n", both, "13 "},
        Damage{"OneAndAHalf", s1 + s2.substr(0, 50) + "\n" + s2.substr(50) + "\n", both, "13 "},
        Damage{"ThreeOnOneLine",
               s1 + s2 + record('S', 3, "") + "\n" + record('S', 4, "four") + "\n",
               {s1, s2, record('S', 3, ""), record('S', 4, "four")},
               "13 "},
        // Such lines become records of another length: nothing of them is thrown away.
        Damage{"TwoOnOneLineCutShort", s1 + "  three   S3\n", {s1 + "  threeS      3"}, "18 13 "},
        Damage{"BackPointerOf8Digits", x64 + "12345678P      1\n", {x64 + " \n2345678P      1"}, "13 "},
        Damage{"LetterInBackPointer",
               record('P', 1, "x").substr(0, 65) + "   a  7P      1\n",
               {record('P', 1, "x").substr(0, 65) + "   a      \n7P      1"},
               "13 "},
        Damage{"DigitsApart", s1.substr(0, 72) + "S  1   1\n", {s1.substr(0, 72) + "S  1   1"}, "8 13 "},
        Damage{"BackPointer", "110,1.,2.,     7P1\n", {p1}, "13 "},
        Damage{"BackPointerNextToData", "1,2.7P1\n", {record('P', 1, "1,2.", 7)}, "13 "},
        Damage{"NoBackPointer", "1,2.   P      1\n", {}, "7 "},
        Damage{"NumberOf8Digits", "oneS12345678\n", {s1.substr(0, 73) + "2345678"}, "18 13 "},
        Damage{"NegativeNumber", s1.substr(0, 73) + " -65535\n", {s1.substr(0, 73) + " -65535"}, "13 "},
        Damage{"TooNegativeNumber", s1.substr(0, 73) + " -65537\n", {s1.substr(0, 73) + " -65537"}, "18 13 "},
        Damage{"OutOfOrder", join({s1, s1, s2, g1, g1, g2}, "\n"), {s1, s1, s2, g1, g1, g2}, "18 18 9 9 13 "},
        Damage{"CtrlZ", s1 + "\n\x1a", {s1}, "8 9 10 "},
        Damage{"BadLetter", s1 + "\n" + s2.substr(0, 72) + "X      2\n", {s1}, "9 10 "},
        Damage{"NoNumberAtAll",
               s1 + "\n" + s2.substr(0, 73) + "       \n",
               {s1, s2.substr(0, 73) + "       "},
               "8 18 13 "}));

TEST(RepairOfPoints, FollowsTheContinuationOfTheLineBefore) {
  const auto p = [](int number, const std::string& data) { return record('P', number, data, 7); };
  const auto short_line = [](const std::string& data) { return data + "      7P      2"; };
  const std::string blanks(60, ' ');
  const std::string open = "110,1.,2., ";
  struct Case {
    const char* name;
    std::string before, line, repaired;
    bool warned;
  };
  const Case cases[] = {
      {"missing", open, short_line("5,7.,8.,"), ".5,7.,8.,", true},
      {"comma in the last data column", std::string(63, '1') + ",", short_line("5,7.,8.,"), ".5,7.,8.,", true},
      {"no delimiter at all", open, short_line("5"), ".5", true},
      {"no comma before", "110 1. 2.", short_line("5,7.,8.,"), "5,7.,8.,", false},
      {"closed, then open", "110,1.;, ", short_line("5,7.,8.,"), ".5,7.,8.,", true},
      {"closed", "110,1., ;", short_line("5,7.,8.,"), "5,7.,8.,", false},
      {"point before the comma", open, short_line("5.,7.,"), "5.,7.,", false},
      {"no digit first", open, short_line(" 5,7.,"), " 5,7.,", false},
      {"80 columns", open, p(2, "5,7.,8.,"), "5,7.,8.,", false},
      {"doubled", open, short_line("..5,7.," + blanks), ".5,7.,", true},
      {"doubled in 80 columns", open, p(2, "..5,7.,"), "..5,7.,", false},
  };
  for (const Case& c : cases) {
    for (const bool shortcuts : {true, false}) {
      const Result result = read_all(p(1, c.before) + "\n" + c.line + "\n", shortcuts);
      const std::vector<std::string> expected = {p(1, c.before), p(2, c.repaired)};
      EXPECT_EQ(result.texts, expected) << c.name;
      EXPECT_EQ(!result.messages.empty(), c.warned) << c.name;
    }
  }
}

TEST(RepairOfPoints, WarnsOnceOfEach) {
  const std::string missing = "5,7., ,      7P      2\n";
  const std::string doubled = "..5,7., " + std::string(60, ' ') + "      7P      2\n";
  const Result result = read_all(record('P', 1, "110,1., ", 7) + "\n" + missing + doubled + doubled + missing, true);
  EXPECT_EQ(result.texts.size(), 5U);
  EXPECT_EQ(result.messages,
            "iges|Warning: This file is corrupt - it contains lines missing a decimal point at the start.\n"
            "A decimal point will be inserted at the start of such lines.\n"
            "iges|Warning: This file is corrupt - it contains lines starting with two decimal points.\n"
            "One of the decimal points will be removed from such lines.\n");
}

TEST(Buffer, FreezesAtSectionsAndEntities) {
  std::istringstream stream(join(small_file(), "\n"));
  igsInBuffer buffer(stream);
  std::vector<std::string> seen;
  while (buffer.fatal_error() == 0) {
    igsFileSection section = igsNoSectionId;
    int line = 0;
    int column = 0;
    buffer.position(section, line, column);
    seen.push_back(std::string(1, "SGDPT?"[section]) + std::to_string(line) + (buffer.frozen() ? "!" : "") +
                   (buffer.backpointer() != 0 ? "/" + std::to_string(buffer.backpointer()) : ""));
    EXPECT_EQ(*buffer == '\0', buffer.frozen());
    EXPECT_EQ(buffer.in_section(section), buffer.frozen() ? 0 : 1);
    if (buffer.frozen()) {
      EXPECT_EQ(buffer.reset(), 1);
      EXPECT_NE(*buffer, '\0');
    }
    buffer.skip_line();
  }
  const std::vector<std::string> expected = {"S1", "G1!", "G2",    "G3",   "D1!",   "D2",
                                             "D3", "D4",  "P1!/1", "P2/1", "P3!/3", "T1!"};
  EXPECT_EQ(seen, expected);
  EXPECT_EQ(buffer.reset(), 0);
  EXPECT_EQ(buffer.backpointer(), 0);
  EXPECT_EQ(buffer.in_section(igsTerminateSectionId), 0);
  const int lines[] = {1, 3, 4, 3, 1, 0};
  for (int section = 0; section <= igsNoSectionId; ++section) {
    EXPECT_EQ(buffer.num_lines(static_cast<igsFileSection>(section)), lines[section]);
  }
}

TEST(Buffer, ShowsTheDataColumnsAlone) {
  struct Case {
    std::string line;
    std::size_t columns;
    bool line_feed;
  };
  for (const Case& c :
       {Case{s1, 72, false}, Case{g1, 73, true}, Case{p1, 64, false}, Case{x64 + "ab     12P      1", 71, false}}) {
    std::istringstream stream(c.line);
    igsInBuffer buffer(stream);
    ASSERT_EQ(buffer.reset(), 1);
    std::size_t count = 0;
    char last = '\0';
    for (; !buffer.frozen(); ++buffer, ++count) last = *buffer;
    EXPECT_EQ(count, c.columns) << c.line;
    EXPECT_EQ(last == '\n', c.line_feed) << c.line;
  }
}

int lines_read = 0;

TEST(Buffer, CallsBackAfterEveryRecord) {
  lines_read = 0;
  igsInBuffer::set_line_read_callback([] { ++lines_read; });
  read_all(join(small_file(), "\n"), true);
  igsInBuffer::set_line_read_callback(nullptr);
  EXPECT_EQ(lines_read, 13);  // the last call is for the end of input
}

// The records before the fault are delivered; what is left of a broken one is delivered with it.
TEST(Buffer, ReportsTheFaultsOfTheStreamWhenItMeetsThem) {
  const std::string text = join(small_file(), "\n");
  for (std::size_t size = 0; size <= text.size(); size += 3) {
    for (const bool throws : {false, true}) {
      igs_test::LimitedInput source(text, size, throws, 1 + size % 100);
      std::istream stream(&source);
      if (size % 2 == 0) stream.exceptions(std::ios::badbit | std::ios::failbit | std::ios::eofbit);
      Reader reader(stream);
      std::size_t count = 0;
      for (; reader.reset() != 0; reader.skip_line()) ++count;
      EXPECT_GE(count, size / 81);
      EXPECT_LE(count, size / 81 + 1);
      const std::string codes = ' ' + reader.codes() + ' ';
      const auto has = [&codes](const char* code) { return codes.find(code) != std::string::npos; };
      EXPECT_EQ(has(" 12 14 "), throws) << size << codes;
      EXPECT_EQ(has(" 13 "), !throws && !has(" 7 ") && !has(" 10 ")) << size << codes;
      EXPECT_EQ(stream.bad(), throws);
    }
  }
}

TEST(Buffer, DoesNotReadAStreamThatIsNotGood) {
  for (const auto state : {std::ios::failbit, std::ios::badbit, std::ios::eofbit}) {
    std::istringstream stream(s1);
    stream.setstate(state);
    Reader reader(stream);
    EXPECT_EQ(reader.reset(), 0);
    EXPECT_EQ(reader.codes(), state == std::ios::failbit ? "14" : state == std::ios::badbit ? "12 14" : "13");
  }
  std::istream without_buffer(nullptr);
  EXPECT_EQ(Reader(without_buffer).codes(), "12 14");
}

TEST(Buffer, EndsOnEveryInput) {
  const std::string cases[] = {std::string(1 << 20, ' '),    std::string(1 << 20, '\n'),
                               std::string(1 << 20, '\r'),   std::string(1 << 20, '\0'),
                               std::string(1 << 20, '\x7f'), std::string(1 << 20, 'S'),
                               std::string(1 << 20, '1'),    std::string(200, ' ') + std::string(1 << 20, 'x')};
  for (const std::string& text : cases) {
    std::istringstream stream(text);
    Reader reader(stream);
    std::size_t count = 0;
    for (; reader.backpointer() != 0 || reader.capacity() > 0; reader.skip_line()) ++count;
    while (reader.codes().find("13") == std::string::npos && count <= text.size()) reader.skip_line(), ++count;
    EXPECT_LE(count, text.size() / 40);
  }
}

// 80 blanks at the head of a long line make a record without characters: it is passed over, not stood upon.
TEST(Buffer, PassesOverARecordThatCameUpEmpty) {
  std::istringstream stream(s1 + "\n" + std::string(80, ' ') + s2 + "\n");
  Reader reader(stream);
  reader.skip_line();
  EXPECT_TRUE(reader.frozen());
  EXPECT_EQ(reader.reset(), 1);
  EXPECT_EQ(reader.text(), s2);
}

}  // namespace
