#include "igs/input/igsInStream.h"

#include "igs/input/igsInEngine.h"

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

// What fields hold is held against a plain model in igsFields_test.cpp; these are the readings one would ask about.
TEST(Fields, OddStringsAndNumbers) {
  const struct {
    std::string data, value;
    const char* codes;
  } strings[] = {{"5HA,B;C,", "A,B;C", "0"},
                 {"4HA   BCD,", "A BC", "0"},
                 {" 1 2Habcdefghijkl,", "abcdefghijkl", "0 1"},
                 {"2 hab,", "ab", "0 1"},
                 {"0H,", "", "0"},
                 {"0Hxy,", "", "0 2"},
                 {"-3Hxy,", "", "0 2"},
                 {"abc,", "abc", "0"},
                 {",", "", ""}};
  for (const auto& c : strings) {
    Opened opened(p_line(c.data));
    utString value = "?";
    opened.in.read_holerith(value);
    EXPECT_EQ(value.substr(0, c.value.size()), c.value) << c.data;
    EXPECT_EQ(codes(opened.in.errors()), c.codes) << c.data;
  }
  const struct {
    const char* data;
    double value;
    const char* codes;
  } reals[] = {{"1.5D3,", 1500, "0"},     {" 1.5 D3,", 1500, "0 1"}, {"1.5x,", 1.5, "0"}, {"nan,", NAN, "0 17"},
               {"1D999,", HUGE_VAL, "0"}, {"abc,", 0, "0"},          {",", 0, ""}};
  for (const auto& c : reals) {
    Opened opened(p_line(c.data));
    double value = -1;
    opened.in.read_double(value);
    EXPECT_TRUE(value == c.value || (std::isnan(value) && std::isnan(c.value))) << c.data << value;
    EXPECT_EQ(codes(opened.in.errors()), c.codes) << c.data;
  }
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

TEST(Stream, TakesADecoderOfTheHost) {
  struct Word : igsDecoder {
    Word() : igsDecoder(0) {}
    void decode() override { word = m_characters; }
    std::string word;
  } decoder;
  Opened opened(p_line("ab c,7;"));
  opened.in.configure_for_decode(&decoder);
  opened.in.decode();
  EXPECT_EQ(decoder.word, "abc");
  int next = 0;
  opened.in.read_integer(next);
  EXPECT_EQ(next, 7);
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
    constexpr char actions[] = "iiirrrrhhIISesvv";
    switch (actions[action % 16]) {
      case 'i':
        in.read_integer(value);
        break;
      case 'r':
        in.read_double(real);
        break;
      case 'h':
        in.read_holerith(text);
        break;
      case 'I':
        in.read_integer(8, value);
        break;
      case 'S':
        in.read_string(1 + action / 16 % 80, text);
        break;
      case 'e':
        result = codes(in.errors());
        break;
      case 's':
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
           (in.frozen() ? "!" : "") + *static_cast<igsInEngine&>(in) + std::to_string(in.fatal_error());
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
  constexpr int lines = 128;
  std::string text;
  for (int i = 1; i <= lines; ++i) text += line('S', i, "1,2,3");
  Opened file(text);
  while (file.in.in_section(igsStartSectionId) != 0) file.in.skip_line();
  const std::int64_t all = igsInStream::always_granted + lines * 81 / igsInStream::bytes_per_granted;
  EXPECT_EQ(file.in.grant_missing(1), 1);
  EXPECT_EQ(file.in.grant_missing(all), 0);
  EXPECT_EQ(file.in.grant_missing(all - 1), 1);  // to the last one
  EXPECT_EQ(file.in.grant_missing(1), 0);
  EXPECT_EQ(file.in.grant_missing(0), 1);
}

}  // namespace
