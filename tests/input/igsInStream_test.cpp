#include "igs/input/igsInStream.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "input/records.h"

namespace {

using records::codes;
using records::join;
using records::line;
using records::record;
using records::small_file;

/// A stream over lines, left at the start of the first one whatever its section.
struct Opened {
  explicit Opened(const std::string& text, bool shortcuts = true) : stream(text), in(stream, {nullptr, shortcuts}) {
    in.reset();
  }
  int column() {
    igsFileSection section = igsNoSectionId;
    int number = 0;
    int column = 0;
    in.position(section, number, column);
    return column;
  }

  std::istringstream stream;
  igsInStream in;
};

std::string p_line(const std::string& data) { return line('P', 1, data); }

TEST(Fields, FreeFormat) {
  struct Case {
    const char* data;
    int value;
    const char* codes;
    int column;  ///< 0: behind the end of the entity's data
  };
  const Case integers[] = {{",,", 0, "", 1},
                           {" 5,", 5, "0", 3},
                           {"5 ,", 5, "0", 3},
                           {"1 2,", 12, "0 1", 4},
                           {"+7,", 7, "0", 3},
                           {"-7;,", -7, "0", 3},
                           {";", 0, "", 1},
                           {"12x,", 12, "0 2", 4},
                           {"x,", 0, "0 2", 2},
                           {"1.5,", 1, "0 2", 4},
                           {"- 7,", -7, "0 1", 4},
                           {"99999999999,", 2147483647, "0", 12},
                           {"-99999999999,", -2147483647 - 1, "0", 13},
                           {"\v5,", 5, "0", 3},
                           {"5\v,", 5, "0 2", 3},
                           {"12", 12, "0", 0},
                           {"", 0, "", 0}};
  for (const Case& c : integers) {
    Opened opened(p_line(c.data));
    int value = -1;
    opened.in.read_integer(value);
    if (c.column == 0) {
      EXPECT_EQ(opened.in.error_type(igsIOEndOfInput), 1);
    } else {
      EXPECT_EQ(codes(opened.in.errors()), c.codes) << c.data;
      EXPECT_EQ(opened.column(), c.column) << c.data;
    }
    EXPECT_EQ(value, c.value) << c.data;
  }
}

TEST(Fields, Reals) {
  struct Case {
    const char* data;
    double value;
    const char* codes;
  };
  const Case cases[] = {{"1.5D3,", 1500, "0"},
                        {"1.5E3,", 1500, "0"},
                        {" 1.5 D3,", 1500, "0 1"},
                        {"1.5d 3,", 1500, "0"},
                        {"1.5x,", 1.5, "0"},
                        {",", 0, ""},
                        {"  ,", 0, ""},
                        {"abc,", 0, "0"},
                        {"1 .5,", 1.5, "0 1"},
                        {"nan,", NAN, "0 17"},
                        {"NAN.,", NAN, "0 17"},
                        {"inf,", HUGE_VAL, "0"},
                        {"1D999,", HUGE_VAL, "0"},
                        {"1.D,", 1, "0"},
                        {"3;", 3, "0"},
                        {"-.5,", -.5, "0"}};
  for (const Case& c : cases) {
    Opened opened(p_line(c.data));
    double value = -1;
    opened.in.read_double(value);
    EXPECT_TRUE(value == c.value || (std::isnan(value) && std::isnan(c.value))) << c.data << value;
    EXPECT_EQ(codes(opened.in.errors()), c.codes) << c.data;
  }
}

TEST(Fields, HollerithStrings) {
  struct Case {
    std::string data, value;
    const char* codes;
    std::string next;  ///< the field behind it
  };
  const Case cases[] = {{"5HA,B;C,2Hxy,", "A,B;C", "0", "xy"},
                        {"4HA  BC,2Hxy,", "A BC", "0", "xy"},
                        {"4HA   BCD,2Hxy,", "A BC", "0", "xy"},
                        {"3HABCDE,2Hxy,", "ABC", "0", "xy"},
                        {" 1 2Habcdefghijkl,2Hxy,", "abcdefghijkl", "0 1", "xy"},
                        {"2 hab,2Hxy,", "ab", "0 1", "xy"},
                        {"0H,2Hxy,", "", "0", "xy"},
                        {"0H  ,2Hxy,", "", "0", "xy"},
                        {"0Hxy,", "", "0 2", "xy"},
                        {"-3Hxy,", "", "0 2", "xy"},
                        {"Hxy,", "", "0 2", "xy"},
                        {",2Hxy,", "", "", "xy"},
                        {"abc,2Hxy,", "abc", "0", "xy"},
                        {"3H   ,2Hxy,", "   ", "0", "xy"},
                        {"2147483647Hab,c", "ab,c" + std::string(49, ' '), "0", ""},
                        {"99999999999H;", ";" + std::string(51, ' '), "0", ""}};
  for (const Case& c : cases) {
    Opened opened(join({record('P', 1, c.data), record('P', 2, "", 3)}, "\n"));
    utString value = "?";
    opened.in.read_holerith(value);
    EXPECT_EQ(value, c.value) << c.data;
    opened.in.error();
    std::string found = codes(opened.in.errors());
    if (found.size() > 2 && found.substr(found.size() - 2) == " 5") found.resize(found.size() - 2);
    EXPECT_EQ(found, c.codes) << c.data;
    opened.in.read_holerith(value);
    EXPECT_EQ(value, c.next) << c.data;
  }
}

TEST(Fields, FixedWidth) {
  struct Case {
    const char* data;
    int value;
    const char* codes;
  };
  // A field that does not end in its last column is read without that column.
  const Case cases[] = {{"       7", 7, "0"},   {"-1234567", -1234567, "0"}, {"        ", 0, ""},
                        {"7       ", 7, "0"},   {"  12 3  ", 123, "0 1"},    {"      12", 12, "0"},
                        {"     1 2", 1, "0"},   {"12345678", 12345678, "0"}, {"       x", 0, ""},
                        {"      x ", 0, "0 2"}, {"1.      ", 1, "0 2"}};
  for (const Case& c : cases) {
    Opened opened(line('D', 1, std::string(c.data) + "     110" + std::string(48, ' ') + "      99"));
    int value = -1;
    opened.in.read_integer(8, value);
    EXPECT_EQ(value, c.value) << c.data;
    EXPECT_EQ(codes(opened.in.errors()), c.codes) << c.data;
    opened.in.read_integer(8, value);
    EXPECT_EQ(value, 110) << c.data;
    for (int i = 0; i < 7; ++i) opened.in.read_integer(8, value);
    EXPECT_EQ(value, 99) << c.data;
  }
}

TEST(Fields, TextOfFixedWidth) {
  Opened opened(join({record('S', 1, "  one"), record('S', 2, "two")}, "\n"));
  utString text;
  opened.in.read_string(72, text);
  EXPECT_EQ(text, "  one" + std::string(67, ' '));
  EXPECT_EQ(opened.in.take_value_present(), 1);
  opened.in.read_string(70, text);
  EXPECT_EQ(text.substr(0, 3), "two");
  opened.in.read_string(12, text);  // reaches past the end of the record
  EXPECT_EQ(text, "S      2");
  EXPECT_EQ(opened.in.frozen(), true) << "the record is used up";
  opened.in.read_string(0, text);
  EXPECT_EQ(text, "");
}

TEST(Fields, RunOnOverRecords) {
  Opened global(join({record('G', 1, std::string(70, ' ') + "12"), record('G', 2, "34,  5"),
                      record('G', 3, ",16Habcdefgh"), record('G', 4, "   , 1." + std::string(60, ' ') + "25H--"),
                      record('G', 5, "x,1"), record('G', 6, "  "), record('G', 7, "  2;")},
                     "\n"));
  int value = 0;
  global.in.read_integer(value);
  EXPECT_EQ(value, 1234);
  EXPECT_EQ(codes(global.in.errors()), "0 4");
  global.in.read_integer(value);
  EXPECT_EQ(value, 5);
  EXPECT_EQ(codes(global.in.errors()), "0");
  utString text;
  global.in.read_holerith(text);
  EXPECT_EQ(text, "abcdefgh" + std::string(8, ' '));
  double real = 0;
  global.in.read_double(real);
  EXPECT_EQ(real, 1.25);
  global.in.read_integer(value);
  EXPECT_EQ(value, 12);
  EXPECT_EQ(codes(global.in.errors()), "0 1 4");
  Opened parameters(join(
      {record('P', 1, "1.5," + std::string(57, ' ') + "1.2"), record('P', 2, "5D1, 7"), record('P', 3, ",")}, "\n"));
  double reals[3] = {};
  for (double& r : reals) parameters.in.read_double(r);
  EXPECT_EQ(reals[0], 1.5);
  EXPECT_EQ(reals[1], 12.5);
  EXPECT_EQ(reals[2], 7);
  EXPECT_EQ(codes(parameters.in.errors()), "0");
}

TEST(Stream, ReadsAFileFromBoundaryToBoundary) {
  Opened opened(join(small_file(), "\r\n"));
  igsInStream& in = opened.in;
  utString text;
  in.read_string(72, text);
  EXPECT_EQ(text.substr(0, 6), "start ");
  in.read_string(72, text);
  EXPECT_EQ(text, "");
  EXPECT_EQ(in.take_value_present(), 0);
  EXPECT_EQ(in.error_type(igsIONextSection), 1);
  EXPECT_EQ(in.reset(), 1);
  std::vector<utString> strings(5);
  for (utString& s : strings) in.read_holerith(s);
  EXPECT_EQ(strings, (std::vector<utString>{",", ";", "ABCD", "x", "=longer;"}));
  int value = 0;
  in.read_integer(value);
  EXPECT_EQ(value, 32);
  in.read_integer(value);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(in.take_value_present(), 0);
  EXPECT_EQ(in.reset(), 1);
  for (const int expected : {110, 1, 0, 0, 0, 0, 0, 0, 0, 110, 0, 0, 2, 0}) {
    in.read_integer(8, value);
    EXPECT_EQ(value, expected);
  }
  while (in.in_section(igsDirectorySectionId)) in.skip_line();
  EXPECT_EQ(in.reset(), 1);
  EXPECT_EQ(in.backpointer(), 1);
  in.read_integer(value);
  double real = 0;
  for (const double expected : {1.5, -20., 5., .25, 100., 7., 0., 0.}) {
    in.read_double(real);
    EXPECT_EQ(real, expected);
  }
  EXPECT_EQ(in.error_type(igsIOSequenceOutOfOrder), 0);
  EXPECT_EQ(in.reset(), 1);
  EXPECT_EQ(in.backpointer(), 3);
  in.read_integer(value);
  EXPECT_EQ(value, 116);
  EXPECT_EQ(in.reset(), 1);  // not frozen: nothing is stepped over
  in.read_integer(value);
  EXPECT_EQ(value, 1);
  in.skip_line();
  EXPECT_EQ(in.reset(), 1);
  EXPECT_EQ(in.in_section(igsTerminateSectionId), 1);
  in.read_string(1, text);
  in.read_integer(7, value);
  EXPECT_EQ(text + std::to_string(value), "S1");
  EXPECT_EQ(in.reset(), 1);
  in.skip_line();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(in.reset(), 0);
    EXPECT_EQ(in.error_type(igsIOEndOfInput), 1);
    in.read_integer(value);
    EXPECT_EQ(value, 0);
  }
}

TEST(Stream, KeepsTheCodesUntilTheyAreCollected) {
  Opened opened(join({record('P', 1, "1 2,,3.,nan,x,"), record('P', 2, "4,")}, "\n"));
  igsInStream& in = opened.in;
  int value = 0;
  double real = 0;
  in.read_integer(value);
  EXPECT_EQ(in.take_value_present(), 1);
  EXPECT_EQ(in.take_value_present(), 0);
  in.read_integer(value);
  EXPECT_EQ(in.take_value_present(), 0);
  in.read_double(real);
  in.read_double(real);
  EXPECT_EQ(in.take_value_present(), 1);
  in.read_integer(value);
  EXPECT_EQ(codes(in.errors()), "0 1 2 17");
  EXPECT_EQ(in.take_value_present(), 1);
  EXPECT_EQ(in.error_type(igsIOValuePresent), 0);
  for (const igsIOError& error : in.errors()) {
    EXPECT_EQ(error.section(), igsParameterSectionId);
    EXPECT_EQ(error.line(), 1);
    EXPECT_EQ(error.column(), 14);
  }
  EXPECT_EQ(in.error(), 1);
  in.clear_errors();
  EXPECT_EQ(in.error(), 0);
  in.read_integer(value);
  EXPECT_EQ(value, 4);
  EXPECT_EQ(codes(in.errors()), "0");
  in.configure_for_decode(nullptr);
  igsIOErrorcoDynArr list(1);
  static_cast<igsInEngine&>(in).collect_errors(list);
  EXPECT_EQ(list.at(0).column(), 2);
}

TEST(Stream, TakesOtherDelimiters) {
  Opened opened(p_line("1/2,5/3:4/"));
  opened.in.set_param_delimiter('/');
  opened.in.set_record_delimiter(':');
  int value = 0;
  opened.in.read_integer(value);
  EXPECT_EQ(value, 1);
  opened.in.read_integer(value);
  EXPECT_EQ(value, 2);
  EXPECT_EQ(opened.in.error_type(igsIOExtraCharacters), 1);
  opened.in.read_integer(value);
  EXPECT_EQ(value, 3);
  EXPECT_TRUE(opened.in.frozen());
  Opened one_for_both(p_line("1,2,"));
  one_for_both.in.set_record_delimiter(',');
  one_for_both.in.read_integer(value);
  EXPECT_TRUE(one_for_both.in.frozen());
}

/// What is done to a stream, and what it answers, as text.
class Journal {
 public:
  Journal(const std::string& text, bool shortcuts) : m_opened(text, shortcuts) {}

  std::string step(unsigned action) {
    igsInStream& in = m_opened.in;
    std::string result;
    int value = 0;
    double real = 0;
    utString text;
    switch (action % 16) {
      case 0:
      case 1:
      case 2:
        in.read_integer(value);
        break;
      case 3:
      case 4:
      case 5:
      case 6:
        in.read_double(real);
        break;
      case 7:
      case 8:
        in.read_holerith(text);
        break;
      case 9:
      case 10:
        in.read_integer(8, value);
        break;
      case 11:
        in.read_string(1 + action / 16 % 80, text);
        break;
      case 12:
        result = codes(in.errors());
        break;
      case 13:
        in.skip_line();
        break;
      default:
        value = in.reset();
    }
    igsFileSection section = igsNoSectionId;
    int number = 0;
    int column = 0;
    in.position(section, number, column);
    return result + '|' + std::to_string(value) + '|' + std::to_string(std::bit_cast<std::uint64_t>(real)) + '|' +
           text + '|' + std::to_string(in.take_value_present()) + std::to_string(section) + ' ' +
           std::to_string(number) + ' ' + std::to_string(column) + ' ' + std::to_string(in.backpointer()) +
           (in.frozen() ? "!" : "") + *in + std::to_string(in.fatal_error());
  }

 private:
  Opened m_opened;
};

std::string damaged(std::string text, std::mt19937& random) {
  const std::string characters = std::string(1, '\0') + "\t\n\r \x7f,;.SGDPTH19-\xff";
  for (auto count = random() % 8; count > 0 && !text.empty(); --count) {
    const std::size_t at = random() % text.size();
    const std::size_t length = random() % 100;
    switch (random() % 4) {
      case 0:
        text[at] = characters[random() % characters.size()];
        break;
      case 1:
        text.insert(at, 1, characters[random() % characters.size()]);
        break;
      case 2:
        text.erase(at, random() % 2 == 0 ? 1 : length);
        break;
      default:
        text.insert(at, text.substr(random() % text.size(), length));
    }
  }
  return text;
}

// Records that need no repair take a shorter road; nobody may see the difference.
TEST(Stream, ReadsTheSameByBothRoads) {
  std::mt19937 random(42);
  const char* const line_ends[] = {"\n", "\r\n", "\r", "", " \n"};
  for (int i = 0; i < 1000; ++i) {
    const std::string text = damaged(join(small_file(), line_ends[random() % 5]), random);
    Journal fast(text, true);
    Journal careful(text, false);
    for (int step = 0; step < 60; ++step) {
      const auto action = static_cast<unsigned>(random());
      ASSERT_EQ(fast.step(action), careful.step(action)) << text << "\naction " << action % 16;
    }
  }
}

// All lists of a file share what the records need not supply; it grows with what was read.
TEST(InStream, GrantsMissingElementsInProportion) {
  constexpr int lines = 100;
  std::string text;
  for (int i = 1; i <= lines; ++i) text += line('S', i, "1,2,3");
  Opened file(text);
  EXPECT_EQ(file.in.grant_missing(0), 1);
  EXPECT_EQ(file.in.grant_missing(igsInStream::always_granted), 1);
  EXPECT_EQ(file.in.grant_missing(igsInStream::always_granted), 0);
  while (file.in.in_section(igsStartSectionId) != 0) file.in.skip_line();
  const std::int64_t more = lines * 81 / igsInStream::bytes_per_granted;
  EXPECT_EQ(file.in.grant_missing(more - 1), 1);
  EXPECT_EQ(file.in.grant_missing(more), 0);
  EXPECT_EQ(file.in.grant_missing(0), 1);
}

}  // namespace
