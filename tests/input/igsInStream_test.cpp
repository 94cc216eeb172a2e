#include "igs/input/igsInStream.h"

#include "igs/input/igsInEngine.h"

#include <gtest/gtest.h>

#include <cstdint>
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
  explicit Opened(const std::string& text) : stream(text), in(stream) { in.reset(); }
  std::istringstream stream;
  igsInStream in;
};

// What fields hold is held against a plain model in igsFields_test.cpp.
TEST(Stream, AnswersAtBoundariesAndAtTheEnd) {
  Opened opened(join(small_file(), "\r\n"));
  igsInStream& in = opened.in;
  utString text;
  in.read_string(72, text);
  EXPECT_EQ(text.substr(0, 6), "start ");
  in.read_string(72, text);
  EXPECT_EQ(text + std::to_string(in.take_value_present()), "0");
  EXPECT_EQ(in.error_type(igsIONextSection), 1);
  for (const char* expected : {",", ";"}) {
    EXPECT_EQ(in.reset(), 1);  // once not frozen: nothing is stepped over
    in.read_holerith(text);
    EXPECT_EQ(text, expected);
  }
  while (in.reset() != 0) in.skip_line();
  for (int i = 0; i < 2; ++i) {
    int value = 7;
    in.read_integer(value);
    EXPECT_EQ(value + in.reset(), 0);
    EXPECT_EQ(in.error_type(igsIOEndOfInput), 1);
  }
}

TEST(Stream, KeepsTheCodesUntilTheyAreCollected) {
  Opened opened(join({record('P', 1, "1 2,,3.,nan,x,"), record('P', 2, "4,")}, "\n"));
  igsInStream& in = opened.in;
  int value = 0;
  double real = 0;
  std::vector<int> present;
  for (const char kind : {'i', ' ', 'i', 'r', 'r'}) {
    if (kind == 'i') in.read_integer(value);
    if (kind == 'r') in.read_double(real);
    present.push_back(in.take_value_present());
  }
  EXPECT_EQ(present, (std::vector<int>{1, 0, 0, 1, 1}));
  in.read_integer(value);
  EXPECT_EQ(codes(in.errors()), "0 1 2 17");
  EXPECT_EQ(in.take_value_present(), 1);
  EXPECT_EQ(in.error_type(igsIOValuePresent), 0);
  for (const igsIOError& e : in.errors())
    EXPECT_TRUE(e.section() == igsParameterSectionId && e.line() == 1 && e.column() == 14) << e.column();
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
  Opened opened(line('P', 1, "ab c,7;"));
  opened.in.configure_for_decode(&decoder);
  opened.in.decode();
  EXPECT_EQ(decoder.word, "abc");
  int next = 0;
  opened.in.read_integer(next);
  EXPECT_EQ(next, 7);
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
