#include "igs/input/igsInBuffer.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "input/records.h"

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
  bool operator==(const Result&) const = default;
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

const std::string s1 = record('S', 1, "one");
const std::string s2 = record('S', 2, "two");
const std::string s3 = record('S', 3, "");
const std::string s4 = record('S', 4, "four");
const std::string no_number = s2.substr(0, 73) + "       ";
const std::string g1 = record('G', 1, "glob");
const std::string g2 = record('G', 2, "al");
const std::string p1 = record('P', 1, "110,1.,2., ", 7);
const std::vector<std::string> both = {s1, s2};
const std::string x64(64, 'x');
const std::string x_blank = record('P', 1, "x").substr(0, 65);

const struct {
  const char* name;
  std::string text;
  std::vector<std::string> texts;
  std::string codes;
} damages[] = {{"LineFeeds", s1 + "\n" + s2 + "\n", both, "13 "},
               {"CrLf", s1 + "\r\n" + s2 + "\r\n", both, "13 "},
               {"CarriageReturns", s1 + "\r" + s2 + "\r", both, "13 "},
               {"NoLineEnds", s1 + s2, both, "13 "},
               {"MixedLineEnds", s1 + "\r\n" + s2 + s1 + "\r" + s2, {s1, s2, s1, s2}, "18 18 13 "},
               {"NoLastLineEnd", s1 + "\n" + s2, both, "13 "},
               {"Empty", "", {}, "13 "},
               {"BlankLines", "\n" + s1 + "\n\n  \t\n" + s2 + "\n \n", both, "20 20 13 20 "},
               {"OnlyBlanks", std::string(1000, ' '), {}, "13 20 "},
               {"Tab", "o\te" + s1.substr(3) + "\n", {record('S', 1, "o e")}, "13 "},
               {"Nul", std::string("o\0e", 3) + s1.substr(3) + "\n", {record('S', 1, "o e")}, "19 13 "},
               {"OnlyNuls", std::string(100, '\0') + "\n" + s1, {s1}, "19 20 13 "},
               {"DeleteCharacterStays", "o\x7f" + s1.substr(2) + "\n", {"o\x7f" + s1.substr(2)}, "13 "},
               {"TrailingBlanksBehind", s1 + "   \n" + s2 + "\n", both, "13 "},
               {"ShortData", "oneS      1\ntwo  S2\n", both, "13 "},
               {"LeftAlignedNumber", s1.substr(0, 73) + "1      \n" + s2, both, "13 "},
               {"LeadingZeros", s1.substr(0, 73) + "0000001\n", {s1.substr(0, 73) + "0000001"}, "13 "},
               {"79Columns", s1.substr(1) + "\n", {record('S', 1, "ne")}, "13 "},
               {"Split40And40", s1.substr(0, 40) + "\n" + s1.substr(40) + "\n" + s2, both, "13 "},
               // The line end stands for a blank, unless the record grows too long by it.
               {"SplitBehindLostBlanks", "one\n" + s1.substr(4) + "\n", {s1}, "13 "},
               {"SplitWithBlankLine", "one\n\n" + s1.substr(5) + "\n", {s1}, "13 "},
               {"TwoOnOneLine", s1 + s2 + "\n", both, "13 "},
               {"OneAndAHalf", s1 + s2.substr(0, 50) + "\n" + s2.substr(50) + "\n", both, "13 "},
               {"ThreeOnOneLine", s1 + s2 + s3 + "\n" + s4 + "\n", {s1, s2, s3, s4}, "13 "},
               // Such lines become records of another length: nothing of them is thrown away.
               {"TwoOnOneLineCutShort", s1 + "  three   S3\n", {s1 + "  threeS      3"}, "18 13 "},
               {"BackPointerOf8Digits", x64 + "12345678P      1\n", {x64 + " \n2345678P      1"}, "13 "},
               {"LetterInBackPointer", x_blank + "   a  7P      1\n", {x_blank + "   a      \n7P      1"}, "13 "},
               {"DigitsApart", s1.substr(0, 72) + "S  1   1\n", {s1.substr(0, 72) + "S  1   1"}, "8 13 "},
               {"BackPointer", "110,1.,2.,     7P1\n", {p1}, "13 "},
               {"BackPointerNextToData", "1,2.7P1\n", {record('P', 1, "1,2.", 7)}, "13 "},
               {"NoBackPointer", "1,2.   P      1\n", {}, "7 "},
               {"NumberOf8Digits", "oneS12345678\n", {s1.substr(0, 73) + "2345678"}, "18 13 "},
               {"NegativeNumber", s1.substr(0, 73) + " -65535\n", {s1.substr(0, 73) + " -65535"}, "13 "},
               {"TooNegativeNumber", s1.substr(0, 73) + " -65537\n", {s1.substr(0, 73) + " -65537"}, "18 13 "},
               {"OutOfOrder", join({s1, s1, s2, g1, g1, g2}, "\n"), {s1, s1, s2, g1, g1, g2}, "18 18 9 9 13 "},
               {"CtrlZ", s1 + "\n\x1a", {s1}, "8 9 10 "},
               {"BadLetter", s1 + "\n" + s2.substr(0, 72) + "X      2\n", {s1}, "9 10 "},
               {"NoNumberAtAll", s1 + "\n" + no_number + "\n", {s1, no_number}, "8 18 13 "}};

TEST(Repair, GivesTheRecords) {
  for (const auto& damage : damages) {
    for (const bool shortcuts : {true, false}) {
      const Result result = read_all(damage.text, shortcuts);
      EXPECT_EQ(result.texts, damage.texts) << damage.name;
      EXPECT_EQ(result.codes, damage.codes) << damage.name;
    }
  }
}

// Records that need no repair take a shorter road; nobody may see the difference. igsFields_test.cpp goes both, too.
TEST(Repair, GivesTheSameByBothRoads) {
  std::mt19937 random(42);
  const std::string characters = std::string(1, '\0') + "\t\n\r \x7f,;.SGDPTH19-\xff";
  const char* const line_ends[] = {"\n", "\r\n", "\r", "", " \n"};
  for (int i = 0; i < 3000; ++i) {
    std::string text = join(small_file(), line_ends[random() % 5]);
    for (auto count = random() % 8; count > 0 && !text.empty(); --count) {
      const std::size_t at = random() % text.size(), length = random() % 100, lengths[] = {0, 1, 1, length};
      const std::string one(random() % 2, characters[random() % characters.size()]);
      text.replace(at, lengths[random() % 4], length % 3 == 0 ? text.substr(random() % text.size(), length) : one);
    }
    ASSERT_TRUE(read_all(text, true) == read_all(text, false)) << text;
  }
}

TEST(RepairOfPoints, FollowsTheContinuationOfTheLineBefore) {
  const auto p = [](int number, const std::string& data) { return record('P', number, data, 7); };
  const auto short_line = [](const std::string& data) { return data + "      7P      2"; };
  const std::string blanks(60, ' ');
  const std::string open = "110,1.,2., ";
  const struct {
    const char* name;
    std::string before, line, repaired;
    bool warned;
  } cases[] = {{"missing", open, short_line("5,7.,8.,"), ".5,7.,8.,", true},
               {"comma in the last data column", std::string(63, '1') + ",", short_line("5,7.,8.,"), ".5,7.,8.,", true},
               {"no delimiter at all", open, short_line("5"), ".5", true},
               {"no comma before", "110 1. 2.", short_line("5,7.,8.,"), "5,7.,8.,", false},
               {"closed, then open", "110,1.;, ", short_line("5,7.,8.,"), ".5,7.,8.,", true},
               {"closed", "110,1., ;", short_line("5,7.,8.,"), "5,7.,8.,", false},
               {"point before the comma", open, short_line("5.,7.,"), "5.,7.,", false},
               {"no digit first", open, short_line(" 5,7.,"), " 5,7.,", false},
               {"80 columns", open, p(2, "5,7.,8.,"), "5,7.,8.,", false},
               {"doubled", open, short_line("..5,7.," + blanks), ".5,7.,", true},
               {"doubled in 80 columns", open, p(2, "..5,7.,"), "..5,7.,", false}};
  for (const auto& c : cases) {
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

int lines_read = 0;

TEST(Buffer, FreezesAtSectionsAndEntities) {
  lines_read = 0;
  igsInBuffer::set_line_read_callback([] { ++lines_read; });
  std::istringstream stream(join(small_file(), "\n"));
  igsInBuffer buffer(stream);
  std::ostringstream seen;
  while (buffer.fatal_error() == 0) {
    igsFileSection section = igsNoSectionId;
    int line = 0, column = 0;
    buffer.position(section, line, column);
    seen << "SGDPT?"[section] << line << (buffer.frozen() ? "!" : "") << '/' << buffer.backpointer() << ' ';
    EXPECT_EQ(*buffer == '\0', buffer.frozen());
    EXPECT_EQ(buffer.in_section(section), buffer.frozen() ? 0 : 1);
    EXPECT_EQ(buffer.reset(), 1);
    EXPECT_NE(*buffer, '\0');
    buffer.skip_line();
  }
  igsInBuffer::set_line_read_callback(nullptr);
  EXPECT_EQ(lines_read, 13);  // the last call is for the end of input
  EXPECT_EQ(seen.str(), "S1/0 G1!/0 G2/0 G3/0 D1!/0 D2/0 D3/0 D4/0 P1!/1 P2/1 P3!/3 T1!/0 ");
  EXPECT_EQ(buffer.reset() + buffer.backpointer() + buffer.in_section(igsTerminateSectionId), 0);
  for (int section = 0; section <= igsNoSectionId; ++section)
    EXPECT_EQ(buffer.num_lines(static_cast<igsFileSection>(section)), "\1\3\4\3\1\0"[section]);
}

// A damaged back-pointer leaves all columns but that of its last digit; others are read in igsFields_test.cpp.
TEST(Buffer, ShowsTheDataColumnsAlone) {
  std::istringstream stream(x64 + "ab     12P      1");
  igsInBuffer buffer(stream);
  ASSERT_EQ(buffer.reset(), 1);
  std::size_t count = 0;
  for (; !buffer.frozen(); ++buffer) ++count;
  EXPECT_EQ(count, 71U);
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
  for (const char c : {' ', '\n', '\r', '\0', '\x7f', 'S', '1', 'x'}) {
    const std::string text = std::string(c == 'x' ? 200 : 0, ' ') + std::string(1 << 20, c);
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
