// Records as they are rebuilt, their fields as a plain model reads them, and what a reader answers.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "fuzz/invariants.h"
#include "iges_builder.h"
#include "input/field_model.h"

/// The fuzz targets of the same names.
extern "C" int igs_fuzz_field(const std::uint8_t* data, std::size_t size);
extern "C" int igs_fuzz_record(const std::uint8_t* data, std::size_t size);

namespace {

using igs_test::IgesBuilder;
using records::record;

void expect_promises(int (*target)(const std::uint8_t*, std::size_t), const std::string& input) {
  igs_fuzz::on_broken_promise = [](const char* promise) { throw std::runtime_error(promise); };
  EXPECT_NO_THROW(target(reinterpret_cast<const std::uint8_t*>(input.data()), input.size())) << input;
}

/// Two entities (DE 1 on two records, DE 3 on one) and all that belongs around them.
IgesBuilder small_file() {
  IgesBuilder builder;
  builder.entity(110, 0, "1.5,-2.D1, 5.0,0.250000000000000000000,100.00000000000000000,7.");
  builder.point();
  return builder;
}

/// The codes of a list, each followed by a blank; those of boundaries are left out.
std::string codes(const igsIOErrorcoDynArr& errors) {
  std::string text;
  for (const igsIOError& error : errors) {
    const igsIOErrorCode code = error.error_type();
    if (code != igsIONextSection && code != igsIONextEntity) text += std::to_string(code) + ' ';
  }
  return text;
}

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
};

struct Result {
  std::vector<std::string> texts;
  std::string codes;  ///< of all records
  std::string messages;
};

// All records that can be read before a fatal error or the end of input.
Result read_all(std::istream& stream, bool shortcuts = true) {
  igs_test::RecordingSink sink;
  Reader reader(stream, {&sink, shortcuts});
  Result result;
  for (;; reader.skip_line()) {
    igsIOErrorcoDynArr errors;
    reader.collect_errors(errors);
    result.codes += codes(errors);
    if (reader.reset() == 0) break;
    result.texts.push_back(reader.text());
  }
  result.messages = sink.text;
  return result;
}

const std::string s1 = record('S', 1, "one");
const std::string s2 = record('S', 2, "two");
const std::string s3 = record('S', 3, "");
const std::string s4 = record('S', 4, "four");
const std::vector<std::string> both = {s1, s2};
const std::string x64(64, 'x');
const std::string x_blank = record('P', 1, "x").substr(0, 65);

// Beside those of cases/file.case.
const struct {
  const char* name;
  std::string text;
  std::vector<std::string> texts;
  std::string codes;
} damages[] = {{"MixedLineEnds", s1 + "\r\n" + s2 + s1 + "\r" + s2, {s1, s2, s1, s2}, "18 18 13 "},
               {"OnlyBlanks", std::string(1000, ' '), {}, "13 20 "},
               {"OnlyNuls", std::string(100, '\0') + "\n" + s1, {s1}, "19 20 13 "},
               {"DeleteCharacterStays", "o\x7f" + s1.substr(2) + "\n", {"o\x7f" + s1.substr(2)}, "13 "},
               {"TrailingBlanksBehind", s1 + "   \n" + s2 + "\n", both, "13 "},
               {"ShortData", "oneS      1\ntwo  S2\n", both, "13 "},
               {"LeftAlignedNumber", s1.substr(0, 73) + "1      \n" + s2, both, "13 "},
               {"LeadingZeros", s1.substr(0, 73) + "0000001\n", {s1.substr(0, 73) + "0000001"}, "13 "},
               {"Split40And40", s1.substr(0, 40) + "\n" + s1.substr(40) + "\n" + s2, both, "13 "},
               // The line end stands for a blank, unless the record grows too long by it.
               {"SplitBehindLostBlanks", "one\n" + s1.substr(4) + "\n", {s1}, "13 "},
               {"SplitWithBlankLine", "one\n\n" + s1.substr(5) + "\n", {s1}, "13 "},
               {"OneAndAHalf", s1 + s2.substr(0, 50) + "\n" + s2.substr(50) + "\n", both, "13 "},
               {"ThreeOnOneLine", s1 + s2 + s3 + "\n" + s4 + "\n", {s1, s2, s3, s4}, "13 "},
               // 80 blanks at the head of a long line make a record without characters: it is not stood upon.
               {"EmptyAtTheHead", s1 + "\n" + std::string(80, ' ') + s2 + "\n", both, "13 "},
               // Such lines become records of another length: nothing of them is thrown away.
               {"TwoOnOneLineCutShort", s1 + "  three   S3\n", {s1 + "  threeS      3"}, "18 13 "},
               {"BackPointerOf8Digits", x64 + "12345678P      1\n", {x64 + " \n2345678P      1"}, "13 "},
               {"LetterInBackPointer", x_blank + "   a  7P      1\n", {x_blank + "   a      \n7P      1"}, "13 "},
               {"DigitsApart", s1.substr(0, 72) + "S  1   1\n", {s1.substr(0, 72) + "S  1   1"}, "8 13 "},
               {"BackPointerNextToData", "1,2.7P1\n", {record('P', 1, "1,2.", 7)}, "13 "},
               {"NumberOf8Digits", "oneS12345678\n", {s1.substr(0, 73) + "2345678"}, "18 13 "},
               {"TooNegativeNumber", s1.substr(0, 73) + " -65537\n", {s1.substr(0, 73) + " -65537"}, "18 13 "}};

TEST(Repair, GivesTheRecords) {
  for (const auto& damage : damages) {
    std::istringstream stream(damage.text);
    const Result result = read_all(stream);
    EXPECT_EQ(result.texts, damage.texts) << damage.name;
    EXPECT_EQ(result.codes, damage.codes) << damage.name;
    expect_promises(igs_fuzz_record, damage.text);
  }
}

// Records that need no repair take a shorter road; nobody may see the difference. Reading ends on either.
TEST(Repair, GivesTheSameByBothRoads) {
  std::mt19937 random(42);
  const std::string characters = std::string(1, '\0') + "\t\n\r \x7f,;.SGDPTH19-\xff";
  const char* const line_ends[] = {"\n", "\r\n", "\r", "", " \n"};
  for (int i = 0; i < 2000 && !HasFailure(); ++i) {
    std::string text = small_file().line_end(line_ends[random() % 5]).text();
    for (auto count = random() % 8; count > 0 && !text.empty(); --count) {
      const std::size_t at = random() % text.size(), length = random() % 100, lengths[] = {0, 1, 1, length};
      const std::string one(random() % 2, characters[random() % characters.size()]);
      text.replace(at, lengths[random() % 4], length % 3 == 0 ? text.substr(random() % text.size(), length) : one);
    }
    expect_promises(igs_fuzz_record, text);
    expect_promises(igs_fuzz_record, '*' + text);  // choices for damage that loses nothing
  }
  for (const char c : {' ', '\n', '\r', '\0', '\x7f', 'S', '1', 'x'})
    expect_promises(igs_fuzz_record, std::string(c == 'x' ? 200 : 0, ' ') + std::string(1 << 16, c));
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
  std::string text;
  for (const auto& c : cases) {
    for (const bool shortcuts : {true, false}) {
      std::istringstream stream(p(1, c.before) + "\n" + c.line + "\n");
      const Result result = read_all(stream, shortcuts);
      EXPECT_EQ(result.texts, (std::vector{p(1, c.before), p(2, c.repaired)})) << c.name;
      EXPECT_EQ(!result.messages.empty(), c.warned) << c.name;
    }
    text += p(1, c.before) + "\n" + c.line + "\n";
  }
  std::istringstream stream(text);
  EXPECT_EQ(read_all(stream).messages,  // once of each
            "Warning: This file is corrupt - it contains lines missing a decimal point at the start.\n"
            "A decimal point will be inserted at the start of such lines.\n"
            "Warning: This file is corrupt - it contains lines starting with two decimal points.\n"
            "One of the decimal points will be removed from such lines.\n");
}

int lines_read = 0;

TEST(Buffer, FreezesAtSectionsAndEntities) {
  lines_read = 0;
  igsInBuffer::set_line_read_callback([] { ++lines_read; });
  std::istringstream stream(small_file().text());
  igsInBuffer buffer(stream);
  std::ostringstream seen;
  while (buffer.fatal_error() == 0) {
    igsFileSection section = igsNoSectionId;
    int line = 0, column = 0;
    buffer.position(section, line, column);
    seen << "SGDPT?"[section] << line << (buffer.frozen() ? "!" : "") << '/' << buffer.backpointer() << ' ';
    EXPECT_EQ(std::pair(*buffer == '\0', buffer.in_section(section) == 0), std::pair(buffer.frozen(), buffer.frozen()));
    EXPECT_EQ(buffer.reset(), 1);
    EXPECT_NE(*buffer, '\0');
    buffer.skip_line();
  }
  igsInBuffer::set_line_read_callback(nullptr);
  EXPECT_EQ(lines_read, 13);  // the last call is for the end of input
  EXPECT_EQ(seen.str(), "S1/0 G1!/0 G2/0 G3/0 D1!/0 D2/0 D3/0 D4/0 P1!/1 P2/1 P3!/3 T1!/0 ");
  EXPECT_EQ(buffer.reset() + buffer.backpointer() + buffer.in_section(igsTerminateSectionId), 0);
}

TEST(Buffer, DoesNotReadAStreamThatIsNotGood) {
  for (const auto& [state, codes] :
       {std::pair(std::ios::failbit, "14 "), {std::ios::badbit, "12 14 "}, {std::ios::eofbit, "13 "}}) {
    std::istringstream stream(s1);
    stream.setstate(state);
    const Result result = read_all(stream);
    EXPECT_TRUE(result.texts.empty() && result.codes == codes) << result.codes;
  }
  std::istream without_buffer(nullptr);
  EXPECT_EQ(read_all(without_buffer).codes, "12 14 ");
}

/// Makes fields, sound ones and others.
class Fields {
 public:
  unsigned below(unsigned count) { return static_cast<unsigned>(m_random()) % count; }
  template <class Choices>
  auto one_of(const Choices& choices) {
    return choices[below(static_cast<unsigned>(choices.size()))];
  }
  /// `length` of the characters.
  std::string some(std::string_view characters, unsigned length) {
    std::string text;
    while (text.size() < length) text += one_of(characters);
    return text;
  }
  std::string field(char kind) {
    std::string text = below(8) == 0 ? noise(below(12)) : kind == 'h' ? string() : kind == 'i' ? integer() : real();
    if (below(6) == 0)
      text.replace(below(static_cast<unsigned>(text.size()) + 1), below(2), noise(below(3) > 0 ? 1 : 0));
    return std::string(below(4) == 0 ? below(4) : 0, ' ') + text + std::string(below(8) == 0 ? below(4) : 0, ' ');
  }

 private:
  std::string noise(unsigned length) {
    return some({"0123456789012345+-..eEdDdDxXpPaAfFinfINnNty()_hH  ,;'\v\f\t\0", 57}, length);
  }
  std::string digits(unsigned most) { return some("0123456789", below(10) == 0 ? below(60) : 1 + below(most)); }
  std::string sign() { return one_of(std::array{"", "", "", "-", "+"}); }
  std::string integer() { return sign() + digits(11); }
  std::string exponent() {
    if (below(2) == 0) return "";
    const std::string power = below(6) == 0 ? digits(20) : std::to_string(below(340));
    return some("EeDDd", 1) + sign() + power + (below(12) == 0 ? exponent() : "");
  }
  std::string real() {
    const unsigned kind = below(12);
    if (kind == 0)
      return sign() + one_of(std::array{"inf", "INFINITY", "nan", "NaN(12)", "nan(", "infinit", "Inf"}) + exponent();
    if (kind == 1)
      return sign() + one_of(std::array{"0x", "0X"}) + digits(4) +
             one_of(std::array{"", ".", ".8", "Ap3", "P-2", "D", ".Dp", "p9999"}) + exponent();
    return sign() + digits(9) + "." + (below(3) > 0 ? digits(14) : "") + exponent();
  }
  std::string string() {
    const std::string text = some("ab  ,;H1\v", below(below(20) == 0 ? 200 : 20));
    const int excess = below(4) == 0 ? static_cast<int>(below(7)) - 3 : 0;
    return (below(30) == 0 ? integer() : std::to_string(static_cast<int>(text.size()) + excess)) + some("HHh", 1) +
           text;
  }

  std::mt19937 m_random{20261121};
};

// As the fuzz target takes it. The text runs on over the records; kinds of another length than the text has fields come
// out of step with it.
std::string random_input(Fields& fields) {
  const char section = "PPPPGGD"[fields.below(7)];
  const std::string delimiters =
      fields.one_of(std::array{",;", ",;", ",;", ",;", ",;", "/#", ";;", "DE", "-+", ".x", "H(", "P,", "e5", ",H"});
  const std::string kinds = fields.some(section == 'D' ? "IIIIIISir" : "iirrrrrhhIS", 1 + fields.below(8));
  std::string text;
  for (std::size_t i = 0; text.size() < 2000; ++i) {
    const char kind = kinds[i % kinds.size()];
    const std::string field = fields.field(kind == 'I' ? 'i' : kind);
    text += section == 'D' ? igs_test::right(field, fields.below(8) == 0 ? 7 : 8)
                           : field + delimiters[fields.below(40) == 0 ? 1 : 0];
  }
  return section + std::to_string(fields.below(10)) + delimiters + kinds + '\n' + text;
}

// Value, codes and position agree with the model after every field, whatever the field is.
TEST(Fields, AreWhatTheConversionsOfTheCLibraryMakeOfThem) {
  Fields fields;
  for (int i = 0; i < 1600 && !testing::Test::HasFailure(); ++i) expect_promises(igs_fuzz_field, random_input(fields));
}

// Fields of a directory entry are taken together where they are as usual.
TEST(Fields, OfFixedWidthAreTheSameTogetherAndOneByOne) {
  Fields fields;
  const std::array usual = {"       0", "        ", "      -5", "  -12345", "12345678", "    1000", "     - 5",
                            "       -", "-1234567", "  5     ", "00010500", " 1 2 3 4", "     1.0", "    12-3"};
  for (int i = 0; i < 2000 && !HasFailure(); ++i) {
    std::string text;
    while (text.size() < 72) text += fields.below(9) == 0 ? fields.some(" 0123456789-+.\t", 8) : fields.one_of(usual);
    const unsigned width = fields.below(2) == 0 ? 2 : 8;
    std::istringstream first(record('D', 1, text)), second(record('D', 1, text));
    igsInStream together(first), one_by_one(second);
    std::array<int, 4> all{}, each{};
    together.read_integers(width, {&all[0], &all[1], &all[2], &all[3]});
    for (int& value : each) one_by_one.read_integer(width, value);
    EXPECT_EQ(all, each) << text;
    EXPECT_EQ(together.take_value_present(), one_by_one.take_value_present()) << text;
    EXPECT_EQ(codes(together.errors()), codes(one_by_one.errors())) << text;
    one_by_one.read_integer(8, each[0]);
    together.read_integer(8, all[0]);
    EXPECT_EQ(all[0], each[0]) << text;
  }
}

TEST(Stream, KeepsTheCodesUntilTheyAreCollected) {
  std::istringstream stream(record('P', 1, "1 2,,3.,nan,x,") + "\n" + record('P', 2, "4,"));
  igsInStream in(stream);
  in.reset();
  int value = 0;
  double real = 0;
  std::string present;
  for (const char kind : {'i', ' ', 'i', 'r', 'r'}) {
    if (kind == 'i') in.read_integer(value);
    if (kind == 'r') in.read_double(real);
    present += std::to_string(in.take_value_present());
  }
  EXPECT_EQ(present, "10011");
  in.read_integer(value);
  EXPECT_EQ(codes(in.errors()), "0 1 2 17 ");
  EXPECT_EQ(in.take_value_present(), 1);
  EXPECT_EQ(in.error_type(igsIOValuePresent), 0);
  for (const igsIOError& e : in.errors())
    EXPECT_TRUE(e.section() == igsParameterSectionId && e.line() == 1 && e.column() == 14) << e.column();
  in.clear_errors();
  EXPECT_EQ(in.error(), 0);
  in.read_integer(value);
  EXPECT_EQ(value, 4);
  EXPECT_EQ(codes(in.errors()), "0 ");
}

TEST(Stream, TakesADecoderOfTheHost) {
  struct Word : igsDecoder {
    Word() : igsDecoder(0) {}
    void decode() override { word = m_characters; }
    std::string word;
  } decoder;
  std::istringstream stream(record('P', 1, "ab c,7;"));
  igsInStream in(stream);
  in.reset();
  in.configure_for_decode(&decoder);
  in.decode();
  int next = 0;
  in.read_integer(next);
  EXPECT_EQ(decoder.word + std::to_string(next), "abc7");
}

}  // namespace
