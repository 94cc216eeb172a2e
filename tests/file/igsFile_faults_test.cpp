// Whole files with one fault each, as they are met in practice, and files that are no files at all.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsObject.h"

namespace {

using namespace igs_test;  // NOLINT(google-build-using-namespace): the test's own vocabulary
using testing::ElementsAreArray;
using Strings = std::vector<std::string>;

/// A line (DE 1, record P 1) and a point (DE 3, record P 2).
IgesBuilder sample() {
  IgesBuilder builder;
  builder.line();
  builder.point();
  return builder;
}

struct Fault {
  const char* name;
  void (*damage)(IgesBuilder&);
  int result = 1;        ///< of reading
  Strings errors = {};   ///< after reading
  int num_entities = 2;  ///< left after reading
};
void PrintTo(const Fault& fault, std::ostream* os) { *os << fault.name; }

/// The record without the character in column `column`.
void cut(IgesBuilder& builder, char section, std::size_t record, std::size_t column) {
  builder.edit(section, [=](std::vector<std::string>& records) { records.at(record - 1).erase(column - 1, 1); });
}

/// A further Parameter Data record of the line.
void add_second_line_record(IgesBuilder& builder, const std::string& data) {
  builder.insert('P', 2, left(data, 65) + "      1P      2").sequence('P', 3, 3);
  builder.de_field(1, 14, "2").de_field(3, 2, "3").columns('T', 1, 26, "      3");
}

const Fault faults[] = {
    // Records of 79 columns.
    {"BlankLostBeforeASequenceNumber",
     [](IgesBuilder& b) {
       for (const char section : {'S', 'G', 'D', 'P', 'T'}) cut(b, section, 1, 74);
     }},
    {"BlankLostBeforeABackPointer", [](IgesBuilder& b) { cut(b, 'P', 2, 65); }},
    {"FirstColumnLostInTheDirectory",
     [](IgesBuilder& b) {
       for (const std::size_t record : {1U, 2U, 3U, 4U}) cut(b, 'D', record, 1);
     }},
    {"LastColumnLostInTheDirectory", [](IgesBuilder& b) { cut(b, 'D', 2, 80); }, 1, {"igsFileInvalidLineNumbers"}},
    {"LastColumnLostInTheStartSection", [](IgesBuilder& b) { cut(b, 'S', 1, 80); }, 1, {"igsStartSectionInvalid"}},
    {"LastColumnLostInTheTerminateSection",
     [](IgesBuilder& b) { cut(b, 'T', 1, 80); },
     1,
     {"igsFileInvalidLineNumbers"}},
    // A wrong section letter: what was read before it stays.
    {"NoLetterInTheStartSection", [](IgesBuilder& b) { b.columns('S', 1, 73, "X"); }, 0, {}, 0},
    {"NoLetterInTheGlobalSection", [](IgesBuilder& b) { b.columns('G', 1, 73, "X"); }, 0, {}, 0},
    {"NoLetterWithinTheGlobalSection", [](IgesBuilder& b) { b.columns('G', 2, 73, "X"); }, 0, {"?"}, 0},
    {"NoLetterInADirectoryEntry",
     [](IgesBuilder& b) { b.columns('D', 2, 73, "X"); },
     0,
     {"igsFileDEEntityTypeMismatch 1 110,0", "igsFileInvalidLineNumbers"},
     1},
    {"NoLetterInTheSecondDirectoryEntry",
     [](IgesBuilder& b) { b.columns('D', 3, 73, "X"); },
     0,
     {"igsFileInvalidLineNumbers"},
     1},
    {"NoLetterInTheFirstParameterRecord", [](IgesBuilder& b) { b.columns('P', 1, 73, "X"); }, 0, {}, 2},
    {"NoLetterInTheSecondParameterRecord", [](IgesBuilder& b) { b.columns('P', 2, 73, "X"); }, 0, {"?"}, -1},
    {"NoLetterInTheTerminateRecord", [](IgesBuilder& b) { b.columns('T', 1, 73, "X"); }, 0, {}, 1},
    // A section missing.
    {"NoStartSection", [](IgesBuilder& b) { b.drop_section('S'); }, 1, {"igsTerminateSectionBadCount 0,1,0"}},
    {"NoGlobalSection", [](IgesBuilder& b) { b.drop_section('G'); }, 0, {"igsGlobalSectionInvalidParamDelim  "}, 0},
    {"NoDirectorySection", [](IgesBuilder& b) { b.drop_section('D'); }, 1, {"igsTerminateSectionBadCount 2,4,0"}, 0},
    {"NoParameterDataSection",
     [](IgesBuilder& b) { b.drop_section('P'); },
     1,
     {"igsFileNoPDData 1", "igsFileNoPDData 3", "igsTerminateSectionBadCount 3,2,0"},
     0},
    {"NoTerminateSection", [](IgesBuilder& b) { b.drop_section('T'); }, 0},
    // Sections out of order. A section is passed by where it does not belong.
    {"ParameterDataBeforeTheDirectory", [](IgesBuilder& b) { b.order("SGPDT"); }, 1, {"?"}, 0},
    {"GlobalBeforeStart", [](IgesBuilder& b) { b.order("GSDPT"); }, 1, {"?"}, 0},
    {"DirectoryBeforeGlobal", [](IgesBuilder& b) { b.order("SDGPT"); }, 0, {"igsGlobalSectionInvalidParamDelim  "}, 0},
    {"TerminateBeforeParameterData",
     [](IgesBuilder& b) { b.order("SGDTP"); },
     1,
     {"igsFileNoPDData 1", "igsFileNoPDData 3", "igsTerminateSectionBadCount 3,2,0"},
     0},
    // Sequence numbers missing or doubled.
    {"StartNumberMissing",
     [](IgesBuilder& b) {
       b.start({"1", "2", "3"}).sequence('S', 2, 3).sequence('S', 3, 4);
     },
     1,
     {"igsStartSectionInvalid"}},
    {"StartNumberDoubled",
     [](IgesBuilder& b) {
       b.start({"1", "2"}).sequence('S', 2, 1);
     },
     1,
     {"igsStartSectionInvalid"}},
    {"GlobalNumberMissing", [](IgesBuilder& b) { b.sequence('G', 3, 4); }, 1, {"igsFileInvalidLineNumbers"}},
    {"GlobalNumberDoubled", [](IgesBuilder& b) { b.sequence('G', 2, 1); }, 1, {"igsFileInvalidLineNumbers"}},
    {"DirectoryNumberMissing",
     [](IgesBuilder& b) { b.sequence('D', 3, 4).sequence('D', 4, 5); },
     1,
     {"igsFileInvalidLineNumbers"}},
    {"DirectoryNumberBlank",
     [](IgesBuilder& b) { b.columns('D', 2, 74, std::string(7, ' ')); },
     1,
     {"igsFileInvalidLineNumbers"}},
    {"TerminateNumberBlank",
     [](IgesBuilder& b) { b.columns('T', 1, 74, std::string(7, ' ')); },
     1,
     {"igsFileInvalidLineNumbers"}},
    {"DirectoryNumberDoubled", [](IgesBuilder& b) { b.sequence('D', 4, 3); }, 1, {"igsFileInvalidLineNumbers"}},
    {"ParameterNumberDoubled",
     [](IgesBuilder& b) {
       add_second_line_record(b, "0.;");
       b.columns('P', 1, 1, left("110,0.,0.,0.,1.,0.,", 64)).sequence('P', 2, 1);
     },
     1,
     {"igsFileInvalidLineNumbers"}},
    {"DirectoryRecordDoubled",
     [](IgesBuilder& b) { b.duplicate('D', 2); },
     1,
     {"igsFileDEEntityTypeMismatch 3 110,116", "igsFileDEEntityTypeMismatch 5 116,0", "igsFileIncorrectStartOfPD 3 2,0",
      "igsFileIncorrectPDLineCount 3 1,0", "igsTerminateSectionBadCount 2,4,5", "igsFileInvalidLineNumbers"},
     1},
    {"NegativeSequenceNumber", [](IgesBuilder& b) { b.sequence('D', 2, -65534).sequence('D', 3, -65533); }},
    // Back-pointers.
    {"BackPointerToTheOtherEntity",
     [](IgesBuilder& b) { b.columns('P', 2, 66, "      1"); },
     1,
     {"igsFileIncorrectPDLineCount 1 2,1", "igsFileNoPDData 3"},
     1},
    {"BackPointersCrossed",
     [](IgesBuilder& b) { b.columns('P', 1, 66, "      3").columns('P', 2, 66, "      1"); },
     1,
     {"igsFileIncorrectStartOfPD 3 1,2", "igsFilePDEntityTypeMismatch 3 110", "igsFileIncorrectStartOfPD 1 2,1",
      "igsFilePDEntityTypeMismatch 1 116", "igsFileNoPDData 1", "igsFileNoPDData 3"},
     0},
    {"BackPointerToNoEntity", [](IgesBuilder& b) { b.columns('P', 1, 66, "     99"); }, 1, {"igsFileNoPDData 1"}, 1},
    {"BackPointerEven", [](IgesBuilder& b) { b.columns('P', 2, 66, "      4"); }, 1, {"igsFileNoPDData 3"}, 1},
    // Parameter Data pointers and line counts.
    {"DataPointerOneTooSmall", [](IgesBuilder& b) { b.de_field(3, 2, "1"); }, 1, {"igsFileIncorrectStartOfPD 3 2,1"}},
    {"DataPointerOneTooLarge", [](IgesBuilder& b) { b.de_field(1, 2, "2"); }, 1, {"igsFileIncorrectStartOfPD 1 1,2"}},
    {"LineCountTooSmall", [](IgesBuilder& b) { b.de_field(1, 14, "0"); }, 1, {"igsFileIncorrectPDLineCount 1 1,0"}},
    {"TerminateCountsWrong",
     [](IgesBuilder& b) { b.columns('T', 1, 1, "S      2G      4D      6P      1"); },
     1,
     {"igsTerminateSectionBadCount 0,2,1", "igsTerminateSectionBadCount 1,4,3", "igsTerminateSectionBadCount 2,6,4",
      "igsTerminateSectionBadCount 3,1,2"}},
    // Text where the data have ended.
    {"TextAfterTheRecordDelimiter", [](IgesBuilder& b) { b.columns('P', 1, 40, "see drawing 7, sheet 2;"); }},
    {"TextAfterTheGlobalSection", [](IgesBuilder& b) { b.columns('G', 3, 40, "comment, no parameter"); }},
    {"TextOnARecordOfItsOwn", [](IgesBuilder& b) { add_second_line_record(b, "a comment; and more"); }},
    {"BlankLinesAtTheEnd", [](IgesBuilder& b) { b.append("\n   \n\r\n\t\n"); }},
    {"CtrlZAtTheEnd", [](IgesBuilder& b) { b.append("\x1A"); }},
    {"CtrlZAndPaddingAtTheEnd", [](IgesBuilder& b) { b.append("\x1A" + std::string(47, '\0')); }},
    {"TextAfterTheEnd", [](IgesBuilder& b) { b.duplicate('T', 1).append("That was it.\n"); }},
    // Line ends.
    {"CarriageReturnLineFeed", [](IgesBuilder& b) { b.line_end("\r\n"); }},
    {"CarriageReturn", [](IgesBuilder& b) { b.line_end("\r"); }},
    {"NoLineEnds", [](IgesBuilder& b) { b.line_end(""); }},
    {"RecordSplitOverTwoLines", [](IgesBuilder& b) { b.edit('D', [](auto& r) { r[1].insert(40, "\n"); }); }},
    {"TwoRecordsOnOneLine",
     [](IgesBuilder& b) {
       b.edit('D', [](auto& r) {
         r[0] += r[1];
         r.erase(r.begin() + 1);
       });
     }},
    {"TrailingBlanksStripped",
     [](IgesBuilder& b) { b.edit('P', [](auto& r) { r[0] = "110,0.,0.,0.,1.,0.,0.; 1P1"; }); }},
    {"TabsForBlanks", [](IgesBuilder& b) { b.columns('P', 1, 50, "\t\t\t"); }},
};

class FaultyFile : public testing::TestWithParam<Fault> {};

TEST_P(FaultyFile, IsReadAsFarAsItCanBe) {
  const Fault& fault = GetParam();
  IgesBuilder builder = sample();
  fault.damage(builder);
  igsFile file;
  EXPECT_EQ(read_text(file, builder.text()), fault.result);
  if (fault.errors != Strings{"?"}) {
    EXPECT_THAT(active_errors(file), ElementsAreArray(fault.errors));
  }
  if (fault.num_entities >= 0) {
    EXPECT_EQ(file.num_entities(), fault.num_entities);
  }
  file.clean(0);
  EXPECT_EQ(column_fault(written(file)), "") << "whatever was read can be written";
}

INSTANTIATE_TEST_SUITE_P(File, FaultyFile, testing::ValuesIn(faults),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(FaultyFile, MisplacedSectionsAreReportedByTheCounts) {
  for (const char* order : {"SGPDT", "GSDPT"}) {
    igsFile file;
    EXPECT_EQ(read_text(file, sample().order(order).text()), 1);
    EXPECT_THAT(active_errors(file), testing::Contains(testing::StartsWith("igsTerminateSectionBadName"))) << order;
    EXPECT_THAT(active_errors(file), testing::Contains(testing::StartsWith("igsTerminateSectionBadCount"))) << order;
  }
}

TEST(FaultyFile, SaysWhetherParameterDataWereRead) {
  for (const char section : {'G', 'D', 'P', 'T'}) {  // a bad record ends the section before it
    igsFile file;
    EXPECT_EQ(read_text(file, sample().columns(section, 1, 73, "X").text()), 0);
    EXPECT_EQ(file.parameter_data_read(), 0) << section;
  }
  igsFile file;
  EXPECT_EQ(read_text(file, sample().drop_section('P').text()), 1);
  EXPECT_EQ(file.parameter_data_read(), 1);
}

TEST(FaultyFile, LastRecordNeedsNoLineEnd) {
  std::string text = sample().text();
  text.pop_back();
  igsFile file;
  EXPECT_EQ(read_text(file, text), 1);
  EXPECT_EQ(file.num_entities(), 2);
  EXPECT_THAT(active_errors(file), testing::IsEmpty());
}

TEST(FaultyFile, HollerithCounts) {
  struct Case {
    const char* product;
    const char* read_as;
    bool sound;  ///< the parameters after it are where they belong
  };
  const Case cases[] = {
      {"4Htest", "test", true},
      {"3Htest", "tes", true},
      {"0H", "", true},
      {"4H  A  ", " A  ", true},
      {"2HA  B", "A ", true},
      {"6Htest", "test,8", false},
      {"9999Htest", nullptr, false},
      {"2147483647Htest", nullptr, false},
      {"-3Htest", nullptr, true},
      {"99999999999Htest", nullptr, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.product);
    igsFile file;
    const int result = read_text(file, sample().global(3, c.product).text());
    const igsGlobalSection& global = file.global_section();
    if (c.read_as != nullptr) {
      EXPECT_EQ(global.product_id_from_sending_system(), c.read_as);
      EXPECT_EQ(result, 1);
      EXPECT_EQ(global.file_name() == "test.igs", c.sound);
    }
    EXPECT_EQ(file.num_entities(), result == 1 ? 2 : 0) << "the entities do not suffer";
    file.check();
    EXPECT_TRUE(c.sound || !active_errors(file).empty()) << "parameters out of place are noticed";
  }
}

// ---- whatever the bytes: a result or a clean failure

/// Does everything to a text; returns the result of reading.
int exercise(const std::string& text) {
  RecordingSink sink;
  igsFile file;
  file.set_message_stream(&sink);
  const int result = read_text(file, text);
  file.check();
  printed(file);
  file.clean(1);
  const std::string first = written(file);
  EXPECT_EQ(column_fault(first), "");
  igsFile again;
  EXPECT_EQ(read_text(again, first), 1);
  if (result == 0) return 0;  // entities of unknown type may be left, which the second reading drops
  EXPECT_EQ(again.num_entities(), file.num_entities());
  EXPECT_EQ(written(again), first) << "a written file is stable";
  return 1;
}

IgesBuilder varied_sample() {
  IgesBuilder builder = sample();
  builder.entity(106, 12, "2,3,1.,2.,3.,4.,5.,6.,7.,8.,9.", {.level = -1, .matrix = 3, .label = "LINE"});
  builder.entity(100, 0, "0.,0.,0.,1.,0.,0.,1.");
  builder.entity(123, 0, "0.,0.,1.");
  return builder;
}

TEST(BadInput, EveryTruncation) {
  const std::string text = varied_sample().text();
  for (std::size_t size = 0; size < text.size(); ++size) {
    const int result = exercise(text.substr(0, size));
    EXPECT_TRUE(result == 0 || size + 81 > text.size()) << size << " bytes of " << text.size();
    if (HasFailure()) break;
  }
}

TEST(BadInput, EveryReadError) {
  const std::string text = sample().text();
  std::ostringstream report;
  utOstream messages(report);
  for (std::size_t size = 0; size < text.size(); size += 3) {
    FailingInput buffer(text, size, 37);
    std::istream in(&buffer);
    igsFile file;
    const int result = file.read(in, messages);
    EXPECT_TRUE(result == 0 || size + 81 > text.size()) << size;
  }
}

TEST(BadInput, PiecesMakeNoDifference) {
  const std::string text = varied_sample().text();
  igsFile whole;
  ASSERT_EQ(read_text(whole, text), 1);
  const std::string expected = written(whole);
  std::ostringstream report;
  utOstream messages(report);
  for (const std::size_t piece : {1U, 7U, 79U, 80U, 81U, 82U, 161U}) {
    ChoppedInput buffer(text, piece);
    std::istream in(&buffer);
    igsFile file;
    EXPECT_EQ(file.read(in, messages), 1) << piece;
    EXPECT_EQ(written(file), expected) << piece;
  }
}

TEST(BadInput, RandomBytes) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 200; ++round) {
    std::string text(random() % 3000, '\0');
    for (char& byte : text) {
      const auto any = static_cast<char>(random());
      byte = round % 2 == 0 ? any : " 0123456789.,;HSGDPT\n\r\t"[random() % 23];
    }
    exercise(text);
    if (HasFailure()) break;
  }
}

TEST(BadInput, DamagedBytes) {
  const std::string text = varied_sample().text();
  std::mt19937 random(5);
  for (int round = 0; round < 600; ++round) {
    std::string damaged = text;
    for (auto n = random() % 3 + 1; n > 0; --n) {
      const std::size_t at = random() % damaged.size();
      switch (random() % 4) {
        case 0:
          damaged[at] = static_cast<char>(random());
          break;
        case 1:
          damaged[at] = "0123456789-,;H.\n"[random() % 16];
          break;
        case 2:
          damaged.erase(at, random() % 90);
          break;
        default:
          damaged.insert(at, damaged.substr(random() % damaged.size(), random() % 90));
          break;
      }
    }
    SCOPED_TRACE("round " + std::to_string(round) + "\n" + damaged);
    exercise(damaged);
    if (HasFailure()) break;
  }
}

TEST(BadInput, HugeNumbersEverywhere) {
  const char* const numbers[] = {"2147483647", "-2147483647", "-2147483648", "2147483648",      "99999999999999999999",
                                 "-1",         "1.D+999",     "-1.D-999",    "1.D+99999999999", "1H"};
  for (const char* number : numbers) {
    SCOPED_TRACE(number);
    IgesBuilder builder;
    for (const std::string before : {"", "1,", "2,", "2,2,", "3,", "1,2,0.,"}) {
      for (const int form : {1, 2, 3, 11, 12, 13}) builder.entity(106, form, before + number + ",1.,2.,3.");
    }
    builder.entity(116, 0, std::string("1.,2.,3.,") + number);
    builder.entity(100, 0, std::string(number) + ",0.,0.,1.,0.,0.,1.");
    builder.entity(110, 0, std::string("0.,0.,0.,0.,0.,") + number);
    exercise(builder.text());
    for (std::size_t parameter = 3; parameter <= 25; ++parameter) exercise(sample().global(parameter, number).text());
  }
}

TEST(BadInput, HugeDirectoryFields) {
  for (const int field : {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 15, 19, 20}) {
    for (const char* number : {"9999999", "-9999999", "99999999", "-1", "3", "-3", "5", "0", "", "1.5", "ABCDEFGH"}) {
      if (field == 20 && std::string(number) != "9999999") continue;
      SCOPED_TRACE(std::to_string(field) + " is " + number);
      exercise(varied_sample().de_field(3, field, number).text());
    }
  }
  for (const char* number : {"9999999", "      0", "     -1", "9999998", "       "}) {
    exercise(varied_sample().columns('P', 2, 66, number).text());
    exercise(varied_sample().columns('P', 2, 74, number).text());
    exercise(varied_sample().columns('T', 1, 26, number).text());
  }
}

TEST(BadInput, SelfReferences) {
  IgesBuilder builder;
  for (const int de : {1, 3}) {
    const int other = 4 - de;
    builder.entity(
        116, 0, "1.,2.,3.," + std::to_string(other),
        {.line_font = -de, .level = -de, .view = de, .matrix = other, .label_display = de, .colour = -other});
  }
  builder.entity(116, 0, "1.,2.,3.,5", {.matrix = 5});
  EXPECT_EQ(exercise(builder.text()), 1);
}

}  // namespace
