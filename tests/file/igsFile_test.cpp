#include "igs/file/igsFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/support/coResourceTable.h"
#include "objects/test_node.h"

namespace {

using namespace igs_test;  // NOLINT(google-build-using-namespace): the test's own vocabulary
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using Strings = std::vector<std::string>;

/// A polyline of 20 points: several Parameter Data records.
int add_long_polyline(IgesBuilder& builder) {
  std::string data = "2,20";
  for (int i = 0; i < 60; ++i) data += "," + std::to_string(i) + ".5";
  return builder.entity(106, 12, data);
}

/// A line (DE 1), a polyline of several records (DE 3) and a point (DE 5).
IgesBuilder sample() {
  IgesBuilder builder;
  builder.line();
  add_long_polyline(builder);
  builder.point();
  return builder;
}

Strings classes(const igsFile& file) {
  Strings names;
  igsFileIT it(&file);
  while (++it != 0) names.push_back(std::to_string(it()->de_number()) + " " + it()->objtype().id_string());
  return names;
}

TEST(File, ReadsASoundFile) {
  igsFile file;
  EXPECT_EQ(file.parameter_data_read(), 1);
  ASSERT_EQ(read_text(file, sample().text()), 1);
  EXPECT_THAT(active_errors(file), IsEmpty());
  EXPECT_THAT(classes(file), ElementsAre("1 igs110", "3 igsPolyline", "5 igs116"));
  EXPECT_EQ(file.num_entities(), 3);
  EXPECT_EQ(file.num_nulls() + file.num_unknowns(), 0);
  EXPECT_EQ(file.parameter_data_read(), 1);
  EXPECT_EQ(file.terminate_section().directory_lines(), 6);
  utString line;
  EXPECT_EQ(file.start_section().line(0, line), 1);
  EXPECT_THAT(line, HasSubstr("A file made for a test."));
  const auto* segment = dynamic_cast<igs110*>(file.entity(1));
  ASSERT_NE(segment, nullptr);
  EXPECT_EQ(segment->end_point(), giPoint3(1, 0, 0));
  for (const int de : {-1, 0, 2, 7, 9999999}) EXPECT_EQ(file.entity(de), nullptr) << de;
  file.check();
  EXPECT_THAT(active_errors(file), IsEmpty());
}

// ---- errors of the file, and what their repair prints and answers

struct Fault {
  const char* name;
  void (*damage)(IgesBuilder&);  ///< done to sample()
  Strings errors;                ///< after reading
  Strings entities;              ///< left after reading
  const char* message = "";      ///< printed by the repair
  int num_fixed = 0;
};
void PrintTo(const Fault& fault, std::ostream* os) { *os << fault.name; }

const Strings all_entities{"1 igs110", "3 igsPolyline", "5 igs116"};
const Strings without_line{"3 igsPolyline", "5 igs116"};
const Strings without_polyline{"1 igs110", "5 igs116"};

const Fault faults[] = {
    {"TypeFieldsDiffer",
     [](IgesBuilder& b) { b.de_field(1, 11, "116"); },
     {"igsFileDEEntityTypeMismatch 1 110,116"},
     without_line},
    {"TypeNotInTheStandard",
     [](IgesBuilder& b) { b.de_field(1, 1, "999").de_field(1, 11, "999"); },
     {"igsFileInvalidIGESEntity 1 999"},
     without_line},
    {"FormWithADefault",
     [](IgesBuilder& b) { b.de_field(1, 15, "7"); },
     {"igsFileDefaultedForm 1 110,7"},
     all_entities},
    {"FormWithoutADefault",
     [](IgesBuilder& b) { b.de_field(3, 15, "99"); },
     {"igsFileUnknownForm 3 106,99"},
     without_polyline},
    {"NulInADirectoryEntry",
     [](IgesBuilder& b) { b.columns('D', 4, 44, std::string(1, '\0')); },
     {"igsFileDENullCharacters 3"},
     all_entities,
     "Warning : There were null characters found in line 3 of the Directory Entry section.\nThese have been replaced "
     "with spaces.\n",
     1},
    {"SequenceNumbersInTheDirectory",
     [](IgesBuilder& b) { b.sequence('D', 4, 77); },
     {"igsFileInvalidLineNumbers"},
     all_entities,
     "Warning : There were out of sequence line numbers found in this file.\nThis may cause some data to be processed "
     "incorrectly.\n",
     1},
    {"SequenceNumbersInTheGlobalSection",
     [](IgesBuilder& b) { b.sequence('G', 2, 1); },
     {"igsFileInvalidLineNumbers"},
     all_entities,
     "Warning : There were out of sequence line numbers found in this file.\nThis may cause some data to be processed "
     "incorrectly.\n",
     1},
    {"SequenceNumbersWithinParameterData",
     [](IgesBuilder& b) { b.sequence('P', 3, 9); },
     {"igsFileInvalidLineNumbers"},
     all_entities,
     "Warning : There were out of sequence line numbers found in this file.\nThis may cause some data to be processed "
     "incorrectly.\n",
     1},
    {"SequenceNumbersInTheStartSection",
     [](IgesBuilder& b) { b.sequence('S', 1, 2); },
     {"igsStartSectionInvalid"},
     all_entities,
     "Warning : The start section of this file cannot be read.\n",
     1},
    {"BlankLineInTheDirectory",
     [](IgesBuilder& b) { b.insert('D', 2, "   "); },
     {"igsFileBlankLine"},
     all_entities,
     "Warning : There are blank line(s) in this file.\n",
     1},
    {"BlankLineInTheGlobalSection",
     [](IgesBuilder& b) { b.insert('G', 2, ""); },
     {"igsFileBlankLine"},
     all_entities,
     "Warning : There are blank line(s) in this file.\n",
     1},
    {"BlankLineWithinParameterData",
     [](IgesBuilder& b) { b.insert('P', 3, "").insert('P', 3, "\t"); },
     {"igsFileBlankLine"},
     all_entities,
     "Warning : There are blank line(s) in this file.\n",
     1},
    {"WrongStartOfParameterData",
     [](IgesBuilder& b) { b.de_field(3, 2, "1"); },
     {"igsFileIncorrectStartOfPD 3 2,1"},
     all_entities},
    {"WrongLineCount",
     [](IgesBuilder& b) { b.de_field(1, 14, "2"); },
     {"igsFileIncorrectPDLineCount 1 1,2"},
     all_entities},
    {"WrongLineCountOfTheLastEntity",
     [](IgesBuilder& b) { b.de_field(5, 14, "0"); },
     {"igsFileIncorrectPDLineCount 5 1,0"},
     all_entities},
    {"NoParameterData",
     [](IgesBuilder& b) { b.drop('P', 7); },
     {"igsFileNoPDData 5", "igsTerminateSectionBadCount 3,7,6"},
     {"1 igs110", "3 igsPolyline"},
     "Warning : There is no Parameter Data associated with object DE 5.\n",
     2},
    {"OtherTypeInParameterData",
     [](IgesBuilder& b) { b.columns('P', 1, 1, "116"); },
     {"igsFilePDEntityTypeMismatch 1 116", "igsFileNoPDData 1"},
     without_line,
     "Warning : There is no Parameter Data associated with object DE 1.\n",
     1},
    {"NulInParameterData",
     [](IgesBuilder& b) { b.columns('P', 3, 64, std::string(1, '\0')); },
     {"igsFilePDNullCharacters 3"},
     all_entities,
     "Warning : There were null characters found in the Parameter Data for DE 3.\nThese have been replaced with "
     "spaces.\n",
     1},
    {"NotANumber",
     [](IgesBuilder& b) { b.columns('P', 1, 5, "NAN,0,"); },
     {"igsFileCorruptObjectData 1"},
     all_entities},
    {"WrongTerminateCount",
     [](IgesBuilder& b) { b.columns('T', 1, 10, "     11"); },
     {"igsTerminateSectionBadCount 1,11,3"},
     all_entities,
     "",
     1},
    {"WrongTerminateLetter",
     [](IgesBuilder& b) { b.columns('T', 1, 9, "X"); },
     {"igsTerminateSectionBadName 1,X"},
     all_entities,
     "",
     1},
};

class FileFault : public testing::TestWithParam<Fault> {};

TEST_P(FileFault, IsReportedAndRepaired) {
  const Fault& fault = GetParam();
  IgesBuilder builder = sample();
  fault.damage(builder);
  RecordingSink sink;
  igsFile file;
  file.set_message_stream(&sink);
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_THAT(active_errors(file), ElementsAreArray(fault.errors));
  EXPECT_THAT(classes(file), ElementsAreArray(fault.entities));
  EXPECT_EQ(sink.text, "") << "nothing is printed before the repair";
  file.clean(0);
  EXPECT_EQ(sink.text, fault.message);
  EXPECT_EQ(fixed_errors(file).size(), static_cast<std::size_t>(fault.num_fixed));
  EXPECT_EQ(active_errors(file).size(), fault.errors.size() - static_cast<std::size_t>(fault.num_fixed));
  for (const std::string& tag : sink.tags) EXPECT_EQ(tag, "iges");
  EXPECT_EQ(column_fault(written(file)), "");
}

INSTANTIATE_TEST_SUITE_P(File, FileFault, testing::ValuesIn(faults),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(File, LineFaultsAreReportedWhereverTheyAre) {
  for (const char section : {'S', 'G', 'D', 'P', 'T'}) {
    const std::size_t count = sample().records()[std::string("SGDPT").find(section)].size();
    for (std::size_t record = 1; record <= count; ++record) {
      SCOPED_TRACE(section + std::to_string(record));
      igsFile blank;
      ASSERT_EQ(read_text(blank, sample().insert(section, record, " ").text()), 1);
      EXPECT_THAT(active_errors(blank), ElementsAre("igsFileBlankLine"));
      EXPECT_EQ(classes(blank), all_entities);
      if (section == 'S' || (record == 1 && section != 'T')) continue;  // told apart, and taken as a section's start
      igsFile out_of_order;
      ASSERT_EQ(read_text(out_of_order, sample().sequence(section, record, 77).text()), 1);
      EXPECT_THAT(active_errors(out_of_order), ElementsAre("igsFileInvalidLineNumbers"));
      EXPECT_EQ(classes(out_of_order), all_entities);
    }
  }
}

TEST(File, LimitErrorsSayWhichLimit) {
  igsFile file;
  RecordingSink sink;
  igsError* lines = new igsFileLineNumberTooLarge;
  igsError* pointers = new igsFileBackPtrTooLarge;
  EXPECT_EQ(lines->fix(), 0);
  lines->set_message_stream(&sink);
  EXPECT_EQ(lines->fix(), 0);
  EXPECT_EQ(sink.text,
            "Error: IGES limit of 10 million lines per section exceeded.\n"
            "See the Frequently Asked Questions in the Help for more details");
  sink.text.clear();
  pointers->set_message_stream(&sink);
  EXPECT_EQ(pointers->fix(), 0);
  EXPECT_EQ(sink.text,
            "Error: IGES limit of 5 million entities exceeded.\n"
            "See the Frequently Asked Questions in the Help for more details");
  EXPECT_EQ(file.error_log().structure_log().num_errors(), 2);
}

TEST(File, VocabularyErrorsHaveNoRepair) {
  igsFile file;
  for (igsError* error :
       std::initializer_list<igsError*>{new igsFilePrematureObjectEnd(1), new igsFileObjectExtraData(3),
                                        new igsFileDeletedNullEntity(5), new igsFileDeletedUnknownEntity(7)}) {
    EXPECT_EQ(error->fix(), 0) << describe(*error);
  }
  EXPECT_THAT(active_errors(file), ElementsAre("igsFilePrematureObjectEnd 1", "igsFileObjectExtraData 3",
                                               "igsFileDeletedNullEntity 5", "igsFileDeletedUnknownEntity 7"));
}

// ---- what reading drops

TEST(File, DropsNullAndUnknownEntities) {
  IgesBuilder builder;
  builder.entity(0, 0, "");
  builder.entity(0, 5, "1,2,3");
  builder.entity(125, 0, "1.,2.");
  builder.entity(124, 10, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.");
  builder.entity(116, 0, "1.,2.,3.,5", {.view = 1, .matrix = 7, .label_display = 99});
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_EQ(file.num_nulls(), 2);
  EXPECT_EQ(file.num_unknowns(), 2);
  EXPECT_THAT(classes(file), ElementsAre("9 igs116"));
  EXPECT_THAT(active_errors(file), IsEmpty());
  EXPECT_EQ(file.dropped_entities(),
            (std::map<std::pair<int, int>, int>{{{0, 0}, 1}, {{0, 5}, 1}, {{124, 10}, 1}, {{125, 0}, 1}}));
  const auto* point = dynamic_cast<igs116*>(file.entity(9));
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->display_symbol().object(), nullptr);
  EXPECT_EQ(point->directory_entry().view().object(), nullptr);
  EXPECT_EQ(point->directory_entry().matrix().object(), nullptr);
  EXPECT_EQ(point->directory_entry().label_display().object(), nullptr);
}

// ---- slots, iterators, replacement

TEST(File, WritingClosesGaps) {
  IgesBuilder builder;
  for (int i = 1; i <= 3; ++i) builder.line(i);
  builder.entity(116, 0, "1.,2.,3.,5");
  igsFile file("part.igs");
  ASSERT_EQ(read_text(file, builder.text()), 1);
  delete file.entity(3);
  EXPECT_EQ(file.num_entities(), 3);
  EXPECT_THAT(printed(file), HasSubstr("NoOfEntities = 4\n"));
  EXPECT_EQ(file.pathname(), "part.igs");
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  EXPECT_THAT(classes(file), ElementsAre("1 igs110", "3 igs110", "5 igs116"));
  EXPECT_THAT(printed(file), HasSubstr("NoOfEntities = 3\n"));
  EXPECT_THAT(records_of(text, 'P').back(), HasSubstr("116,1.,2.,3.,3;")) << "the reference follows";
  EXPECT_EQ((new Node)->de_number(), 7) << "no free slot is left";
}

TEST(File, ReplacementTakesOverNumberAndReferences) {
  igsFile file;
  auto *old = new igs110, *other = new igs110;
  auto* point = new igs116;
  point->set_display_symbol(igsObjectPtr(old));
  const igsObjectPtr pointer(1), to_new(5), to_other(other);
  auto* replacement = new Node;
  const igsObjectPtr direct(replacement);
  EXPECT_EQ(replacement->de_number(), 7);
  igsFile elsewhere;
  EXPECT_EQ(file.replace_entity(old, new Node), 0) << "of another file";
  EXPECT_EQ(elsewhere.replace_entity(old, replacement), 0);
  EXPECT_EQ(file.replace_entity(old, replacement), 1);
  igsObjectSystem::set_current_file(file);
  EXPECT_EQ(replacement->de_number(), 1);
  EXPECT_EQ(file.entity(1), replacement);
  for (const igsObjectPtr* p : {&pointer, &direct, &point->display_symbol()}) EXPECT_EQ(p->object(), replacement);
  EXPECT_EQ(to_new.object(), point);
  EXPECT_EQ(to_other.object(), other);
  EXPECT_EQ(replacement->num_references(), 3);
  EXPECT_EQ(file.num_entities(), 3);
  EXPECT_EQ(file.entity(7), nullptr);
  EXPECT_EQ((new Node)->de_number(), 7) << "the replacement's former slot is free";
}

TEST(FileIterator, PassesOverWhatItShould) {
  igsFile file;
  auto *a = new Node, *b = new Node;
  auto* line = new igs110;
  auto* c = new Node;
  a->children = {igsObjectPtr(c)};
  delete b;
  const auto walk = [](auto it) {
    std::vector<igsObject*> objects;
    EXPECT_EQ(it(), nullptr);
    while (++it != 0) objects.push_back(it());
    EXPECT_EQ(it(), nullptr);
    return objects;
  };
  EXPECT_THAT(walk(igsFileIT(&file)), ElementsAre(a, line, c));
  EXPECT_THAT(walk(igsFileIT(&file, 1)), ElementsAre(a, line));
  EXPECT_THAT(walk(igsFileTypeIT(&file, Node::type())), ElementsAre(a, c));
  EXPECT_THAT(walk(igsFileTypeIT(&file, Node::type(), 1)), ElementsAre(a));
  EXPECT_THAT(walk(igsFileTypeIT(&file, igsCurve::type())), IsEmpty()) << "exact classes only";
  igsFileIT it(&file);
  while (++it != 0) delete it();
  EXPECT_EQ(file.num_entities(), 0);
}

// ---- check and clean

TEST(File, FreshFileIsWrittenSound) {
  igsFile fresh, back;
  ASSERT_EQ(read_text(back, written(fresh)), 1);
  back.check();
  EXPECT_THAT(active_errors(back), IsEmpty());
  EXPECT_EQ(back.global_section().binary_bits_for_int(), 32);
  EXPECT_EQ(back.global_section().dp_sig_digs(), 15);
}

TEST(File, CleanDeletesWhatStaysFaulty) {
  IgesBuilder builder;
  builder.line();                                  // sound
  builder.entity(110, 0, "0.,0.,0.,0.,0.,0.");     // repaired
  builder.entity(100, 0, "0.,1.,1.,1.,1.,1.,1.");  // no repair
  builder.point();                                 // a structure error without a repair
  builder.de_field(7, 2, "9");
  for (const int delete_faulty : {0, 1}) {
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    file.clean(delete_faulty);
    EXPECT_THAT(active_errors(file), ElementsAre("igs100ZeroRadius 5", "igsFileIncorrectStartOfPD 7 4,9"));
    const Strings kept{"1 igs110", "3 igsPolyline"}, all{"1 igs110", "3 igsPolyline", "5 igs100", "7 igs116"};
    EXPECT_EQ(classes(file), delete_faulty != 0 ? kept : all);
  }
}

TEST(File, CheckIsRepeatable) {
  IgesBuilder builder;
  builder.entity(110, 0, "0.,0.,0.,0.,0.,0.", {.level = -1});
  igsFile file;
  ASSERT_EQ(read_text(file, builder.global(13, "-1.").text()), 1);
  file.check();
  const Strings once = active_errors(file);
  EXPECT_THAT(once, ElementsAre("igs110CoincidentPoints 1 1e-06", testing::StartsWith("igsDEInvalidLevel 1"),
                                testing::StartsWith("igsGlobalSectionInvalidModelSpaceScale")));
  file.check();
  EXPECT_EQ(active_errors(file), once);
}

TEST(File, CopiedSectionsBelongToTheirNewFile) {
  RecordingSink sink;
  igsFile from, to;
  ASSERT_EQ(read_text(from, sample().global(14, "1").start({"Hello"}).text()), 1);
  to.set_message_stream(&sink);
  to.set_global_section(from.global_section());
  to.set_start_section(from.start_section());
  to.clean(0);
  EXPECT_THAT(fixed_errors(to), ElementsAre("igsGlobalSectionUnitNameTypeMismatch 1,MM"));
  EXPECT_THAT(active_errors(from), IsEmpty());
  EXPECT_EQ(sink.text,
            "Warning : There is a mismatch between the specified unit type and the unit name.\n"
            "Length units are being defaulted to INCH.\n");
  EXPECT_THAT(written(to), testing::AllOf(testing::StartsWith("Hello "), HasSubstr(",1,4HIN")));
  EXPECT_THAT(written(from), HasSubstr(",1,2HMM,"));
}

// ---- print

TEST(File, PrintsItsParts) {
  IgesBuilder builder;
  builder.line();
  igsFile file("a part.igs");
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const std::string text = printed(file);
  EXPECT_EQ(text.rfind("IgesFile = {\n\tPathname = \"a part.igs\"\n", 0), 0U) << text;
  const char* parts[] = {
      "Pathname = ", "NoOfLinesInStartSection = 1\n", "NoOfEntities = 1\n", "Entities = {\n", "@1(110) = {\n",
      "EndPoint = ", "TerminateSection = {"};
  std::size_t position = 0;
  for (const char* part : parts) {
    position = text.find(part, position);
    ASSERT_NE(position, std::string::npos) << part << " in\n" << text;
  }
  EXPECT_THAT(text, HasSubstr("\n\tEntities = {\n\t\t@1(110) = {\n\t\t\t"));
  EXPECT_EQ(text.substr(text.size() - 3), "\n}\n");
  EXPECT_EQ(printed(file), text) << "each print is a pass of its own";
}

// ---- writing

/// Entities with every kind of attribute, references forwards and backwards.
IgesBuilder attributed() {
  IgesBuilder builder = sample();
  builder.entity(116, 0, "1.5,-2.25,1.D10,1",
                 {.structure = -3,
                  .line_font = -1,
                  .level = -9,
                  .view = 1,
                  .matrix = 11,
                  .label_display = 5,
                  .status = "01020301",
                  .line_weight = 1,
                  .colour = -3,
                  .label = "POINT_1",
                  .subscript = 1234567});
  builder.entity(100, 0, "1.,0.,0.,1.,0.,0.,1.", {.line_font = 4, .level = 12, .status = "01000500", .colour = 8});
  builder.entity(123, 0, "0.,0.,1.", {.label = "LONGNAME"});
  builder.start({"First line", "", "Third line, of which the last column is not blank" + std::string(22, '-') + "|"});
  return builder;
}

TEST(FileWriter, ObeysEveryColumnRuleAndIsStable) {
  igsFile file;
  ASSERT_EQ(read_text(file, attributed().text()), 1);
  EXPECT_THAT(active_errors(file), IsEmpty());
  const std::string first = written(file);
  EXPECT_EQ(column_fault(first), "");
  EXPECT_EQ(records_of(first, 'S').size(), 3U);
  EXPECT_EQ(first.substr(0, 80), left("First line", 72) + "S      1");
  igsFile again;
  ASSERT_EQ(read_text(again, first), 1);
  EXPECT_THAT(active_errors(again), IsEmpty());
  EXPECT_EQ(written(again), first);
  EXPECT_EQ(written(again), first) << "and once more from the same file";
  EXPECT_EQ(classes(again), classes(file));
}

TEST(FileWriter, KeepsOtherDelimiters) {
  IgesBuilder builder;
  builder.delimiters('/', '$');
  builder.entity(116, 0, "1./2./3./0");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_THAT(active_errors(file), IsEmpty());
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  EXPECT_EQ(records_of(text, 'P').at(0).substr(0, 20), "116/1./2./3./0$     ");
  EXPECT_EQ(records_of(text, 'G').at(0).substr(0, 8), "1H//1H$/");
}

TEST(FileWriter, ParametricEntitiesHaveTheirOwnPrecision) {
  IgesBuilder builder;
  for (const char* status : {"00000000", "00000500", "00000000"}) {
    builder.entity(116, 0, "1.23456789,2.,3.,0", {.status = status});
  }
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const int usual = kel_resource_table_inquire().value(kelOptDoubleParametricPrecision);
  kel_resource_table_inquire().set_value(kelOptDoubleParametricPrecision, 4);
  const Strings data = records_of(written(file), 'P');
  kel_resource_table_inquire().set_value(kelOptDoubleParametricPrecision, usual);
  const char* const expected[] = {"116,1.23456789,", "116,1.235,2.,3.", "116,1.23456789,"};
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(data.at(i).substr(0, 15), expected[i]);
}

TEST(FileWriter, EmptyFileIsAFile) {
  igsFile file;
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  EXPECT_EQ(records_of(text, 'T').at(0).substr(16, 16), "D      0P      0");
  igsFile again;
  EXPECT_EQ(read_text(again, text), 1);
  EXPECT_EQ(again.num_entities(), 0);
}

/// A directory of the test's own, gone with it.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "igs_test_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary directory");
    m_path = name;
  }
  ~TemporaryDirectory() { std::filesystem::remove_all(m_path); }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  const std::filesystem::path& path() const { return m_path; }
  bool empty() const { return std::filesystem::is_empty(m_path); }

 private:
  std::filesystem::path m_path;
};

TEST(FileWriter, FailsCleanlyAtEveryByte) {
  const TemporaryDirectory directory;
  IgesBuilder builder;
  builder.line();
  builder.point();
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  file.set_write_dir(directory.path().string());
  const std::string whole = written(file);
  ASSERT_FALSE(whole.empty());
  std::ostringstream report;
  utOstream messages(report);
  for (std::size_t room = 0; room <= whole.size(); ++room) {
    FailingOutput buffer(room);
    std::ostream out(&buffer);
    const bool fits = room == whole.size();
    ASSERT_EQ(file.write(out, messages), fits ? 1 : 0) << room;
    ASSERT_EQ(buffer.text, whole.substr(0, buffer.text.size())) << room;
    ASSERT_TRUE(directory.empty()) << room;
  }
  EXPECT_EQ(written(file), whole) << "the file itself is none the worse";
}

TEST(FileWriter, NeedsItsTemporaryFile) {
  const TemporaryDirectory directory;
  igsFile file;
  new igs116;
  file.set_write_dir((directory.path() / "absent").string());
  std::string text;
  EXPECT_EQ(write_text(file, text), 0);
  EXPECT_TRUE(directory.empty());
  file.set_write_dir(directory.path().string());
  EXPECT_EQ(write_text(file, text), 1);
  EXPECT_TRUE(directory.empty());
}

TEST(FileWriter, ThrowsNothingForThrowingStreams) {
  igsFile file;
  new igs116;
  std::ostringstream report;
  utOstream messages(report);
  for (const std::size_t room : {0U, 100U, 400U}) {
    FailingOutput buffer(room);
    std::ostream out(&buffer);
    out.exceptions(std::ios::badbit | std::ios::failbit);
    int result = 1;
    EXPECT_NO_THROW(result = file.write(out, messages)) << room;
    EXPECT_EQ(result, 0) << room;
  }
}

TEST(File, ViewNumbersBecomeUnique) {
  IgesBuilder builder;
  for (const char* number : {"3", "3", "-2", "1"}) {
    builder.entity(410, 0, std::string(number) + ",1.,0,0,0,0,0,0", {.status = "00000100"});
  }
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  ASSERT_EQ(file.num_entities(), 4);
  file.check();
  EXPECT_THAT(active_errors(file), ElementsAre(testing::StartsWith("igs410_0RepeatedView 3"),
                                               testing::StartsWith("igs410_0InvalidViewNumber 5")));
  EXPECT_EQ(file.entity(1)->manager()->validated(), 1);
  EXPECT_EQ(file.entity(3)->manager()->validated(), 0);
  file.clean(0);
  EXPECT_THAT(active_errors(file), IsEmpty());
  const Strings data = records_of(written(file), 'P');
  ASSERT_EQ(data.size(), 4U);
  const char* const expected[] = {"410,3,", "410,4,", "410,5,", "410,1,"};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(data[i].substr(0, 6), expected[i]);
}

}  // namespace
