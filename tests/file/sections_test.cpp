// What hosts ask and set of the sections of a file and of directory entries. What is read, checked, repaired and
// written of them: cases/file.case, global.case and directory.case.
#include <gmock/gmock.h>

#include <cmath>
#include <cstring>
#include <iterator>
#include <random>

#include "iges_builder.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsGlobalSection_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/file/igsTerminateSection_errors.h"
#include "igs/support/systemDate.h"

namespace igs_test {
namespace {

using Strings = std::vector<std::string>;

Strings words(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

class Sections : public testing::Test {
 protected:
  void SetUp() override {
    ut_set_clock([] { return utDateTime{2026, 11, 21, 12, 30, 59}; });
  }
  void TearDown() override { ut_set_clock(nullptr); }
};

// The bounds are those of the check, in global.case.
TEST_F(Sections, GlobalSettersRefuseWhatTheCheckReports) {
  igsGlobalSection section;
  const std::string before = printed(section);
  int taken = section.set_binary_bits_for_int(-1) + section.set_file_name("") + section.set_name_of_author("");
  for (const double refused : {-1., HUGE_VAL, std::nan("")})
    taken += section.set_model_space_scale(refused) + section.set_width_of_max_line_weight(refused) +
             section.set_minimum_resolution(refused);
  EXPECT_EQ(taken, 0);
  EXPECT_EQ(printed(section), before);
  EXPECT_EQ(section.set_dp_sig_digs(16) + section.set_system_id("text") + section.set_model_space_scale(2.5), 3);
  EXPECT_THAT(printed(section),
              testing::AllOf(testing::HasSubstr("DPSigDigs = 16\n"), testing::HasSubstr("SystemID = \"text\"\n"),
                             testing::HasSubstr("ModelSpaceScale = 2.5\n")));
}

TEST_F(Sections, DelimitersAreNoPartOfNumbersAndDiffer) {
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    const bool valid = code > 32 && code != 127 && std::string_view("0123456789+-.DEH").find(c) == std::string::npos;
    igsGlobalSection section, other;
    EXPECT_EQ(section.set_parameter_delimiter(c), valid && c != ';' ? 1 : 0) << code;
    EXPECT_EQ(section.parameter_delimiter(), valid && c != ';' ? c : ',');
    EXPECT_EQ(other.set_record_delimiter(c), valid && c != ',' ? 1 : 0) << code;
    EXPECT_EQ(other.record_delimiter(), valid && c != ',' ? c : ';');
  }
}

TEST_F(Sections, NewFileHasDefaults) {
  igsFile file;
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  std::string global;
  for (const std::string& record : records_of(text, 'G')) global += record.substr(0, 72);
  EXPECT_THAT(global, testing::StartsWith(
                          "1H,,1H;,7HUnknown,7HUnknown,7HUnknown,7HUnknown,32,38,6,308,15,7HUnknown,1.,2,2HMM,1,0.,"
                          "15H20261121.123059,0.0001,1.7976931348623157D+308,7HUnknown,7HUnknown,3,0; "));
  EXPECT_EQ(file.global_section().max_version(), 11);
  EXPECT_EQ(printed(igsTerminateSection()).find("= 0"), std::string::npos) << "counts are not set";
  EXPECT_EQ(file.global_section().file_modification_date().date_string(), "20261121.123059") << "written or not";
}

TEST_F(Sections, CopiesBelongToTheirNewFile) {
  RecordingSink sink;
  igsFile from, to;
  ASSERT_EQ(read_text(from, IgesBuilder().global(14, "1").start({"Hello"}).text()), 1);
  to.set_message_stream(&sink);
  to.set_global_section(from.global_section());
  to.set_start_section(from.start_section());
  from.check();
  EXPECT_EQ(&igsObjectSystem::file(), &to) << "reading and checking one file leave the other current";
  to.clean(0);
  EXPECT_EQ(fixed_errors(to), Strings{"igsGlobalSectionUnitNameTypeMismatch 1,MM"});
  EXPECT_THAT(sink.text, testing::HasSubstr("defaulted to INCH.\n"));
  EXPECT_THAT(sink.tags, testing::Each("iges"));
  EXPECT_THAT(written(to), testing::AllOf(testing::StartsWith("Hello "), testing::HasSubstr(",1,4HIN")));
  EXPECT_THAT(written(from), testing::HasSubstr(",1,2HMM,"));
}

TEST_F(Sections, ErrorsThatRepairNothing) {
  igsFile file;
  RecordingSink sink;
  for (igsError* const error : std::initializer_list<igsError*>{
           // without the section that they are about, mostly
           new igsGlobalSectionUserDefinedUnits, new igsGlobalSectionFatal, new igsGlobalSectionIllegalDefault(3, 1),
           new igsGlobalSectionInvalidIntegerSize(1), new igsGlobalSectionInvalidMaxNumLineWeightGrads(1),
           new igsGlobalSectionInvalidUnitsFlag(0), new igsGlobalSectionUnitNameTypeMismatch(1, "MM"),
           new igsTerminateSectionBadCount(igsStartSectionId, 1, 2), new igsFileObjectExtraData(3),
           new igsFileLineNumberTooLarge, new igsFileBackPtrTooLarge}) {
    EXPECT_EQ(error->fix(), 0) << describe(*error);
    error->set_message_stream(&sink);
    EXPECT_EQ(error->fix(), 0) << describe(*error);
  }
  const std::string see = "See the Frequently Asked Questions in the Help for more details";
  EXPECT_EQ(sink.text, "Error: IGES limit of 10 million lines per section exceeded.\n" + see +
                           "Error: IGES limit of 5 million entities exceeded.\n" + see);
}

TEST_F(Sections, TerminateTakesWhatSevenColumnsCanHold) {
  igsTerminateSection section, other;
  const auto taken = [&section](int start, int global, int directory, int parameter) {
    return section.set_start_lines(start) + section.set_global_lines(global) + section.set_directory_lines(directory) +
           section.set_parameter_lines(parameter);
  };
  for (const int lines : {0, -4, 10000000}) EXPECT_EQ(taken(lines, lines, lines, lines), 0) << lines;
  EXPECT_EQ(taken(1, 9999999, 8, 7) + section.set_directory_lines(9), 4);
  other.become(section);
  EXPECT_EQ((std::array{other.start_lines(), other.global_lines(), other.directory_lines(), other.parameter_lines()}),
            (std::array{1, 9999999, 8, 7}));
}

Strings lines_of(const igsStartSection& section) {
  Strings lines(static_cast<std::size_t>(section.num_lines()));
  for (int i = 0; i < section.num_lines(); ++i) section.line(i, lines[static_cast<std::size_t>(i)]);
  return lines;
}

TEST_F(Sections, StartLinesAreTakenOrRefused) {
  for (const auto& [i, size, taken, lines] : std::initializer_list<std::array<int, 4>>{
           {0, 1, 1, 1}, {5, 1, 1, 6}, {1, 72, 1, 2}, {1, 73, 0, 1}, {1, 0, 0, 1}, {-1, 1, 0, 1}, {9999999, 1, 0, 1}}) {
    utString line;
    igsStartSection section;
    EXPECT_EQ((std::array{section.set_line(i, utString(static_cast<std::size_t>(size), 'a')), section.line(i, line),
                          section.num_lines(), static_cast<int>(line.size())}),
              (std::array{taken, taken, lines, taken * size}))
        << i;
    EXPECT_EQ(section.valid(), 1);
  }
  igsFile file;
  igsStartSection old;
  old.set_line(2, "old");
  file.set_start_section(old);
  EXPECT_EQ(read_text(file, IgesBuilder().start({"new", ""}).text()), 1);
  EXPECT_EQ(lines_of(file.start_section()), (Strings{left("new", 72), left("", 72), "old"}));
  EXPECT_EQ(printed(igsStartSection()), "NoOfLinesInStartSection = 1\nStartSection = {\n\t1 = \"\"\n}\n");
}

TEST_F(Sections, StartLinesChangeInAnyOrder) {
  igsStartSection section, copy;
  Strings expected(40);
  std::mt19937 random(1);
  for (int step = 0; step < 3000; ++step) {
    const std::size_t i = step == 0 ? expected.size() - 1 : random() % expected.size();
    const std::size_t size = 1 + random() % 72;
    expected[i] = left(std::string(size - random() % size, static_cast<char>('a' + random() % 26)), size);
    if (random() % 8 == 0) expected[i].assign(size, ' ');
    ASSERT_EQ(section.set_line(static_cast<int>(i), expected[i]), 1);
    ASSERT_EQ(lines_of(section), expected) << step;
  }
  copy.become(section);
  section.set_line(0, "changed");
  EXPECT_EQ(lines_of(copy), expected);
}

TEST_F(Sections, DatesHaveAFormAndACalendar) {
  EXPECT_EQ(igsDate().date_string() + igsDate("yesterday").date_string(), "20261121.123059yesterday");
  // the first days and last days that there are
  for (const std::string& valid : words(R"(19800101.000000 800101.000000 20261231.235959 261231.235959 20000229.000000
         20200229.000000 20210131.000000 20210331.000000 20210430.000000 20210531.000000 20210630.000000 20210731.000000
         20210831.000000 20210930.000000 20211031.000000 20211130.000000 20211231.000000)")) {
    EXPECT_EQ(igsDate(valid).check(), 1) << valid;
    std::string other = valid;
    valid.find("0101") != std::string::npos ? --other[other.size() - 8] : ++other[other.size() - 8];
    EXPECT_EQ(igsDate(other).check(), 0) << other;
  }
  Strings invalid = words(R"(20270101.000000 19791231.235959 790101.000000 270101.000000 20210229.000000 20211301.000000
       20210001.000000 20210101.240000 20210101.006000 20210101.000060 . 20210101 20210101.00000 210101.0000000
       20210101.0000000 202101010.00000 20210101:000000 +210101.000000 2021010a.000000 zzzzzzzzzzzzzzz **0103.144123)");
  invalid.insert(invalid.end(), {"", "2021 101.000000", "20210101.00000\n"});
  for (const std::string& text : invalid) EXPECT_EQ(igsDate::check_date_string(text), 0) << text;
  utDateTime date{1, 2, 3, 4, 5, 6};
  EXPECT_EQ(igsDate::decode_date_string("20210101.00000x", date), 0);
  std::string years = igsDate::encode_date_string(date);  // left alone
  for (const char* year : {"99", "00", "26", "27", "0026", "2099"}) {
    igsDate::decode_date_string(year + std::string("0102.030405"), date);
    years += ' ' + igsDate::encode_date_string(date).substr(0, 4);
  }
  EXPECT_EQ(years, "00010203.040506 1999 2000 2026 1927 0026 2099");
  const auto is_day = igsDate::check_day_against_month;
  EXPECT_EQ((std::array{is_day(29, 2, 1900), is_day(29, 2, 2000), is_day(1, 0, 2000), is_day(1, 13, 2000)}),
            (std::array{0, 1, 0, 0}));
}

TEST_F(Sections, UnitsHaveNamesAndLengths) {
  constexpr double inches[] = {0,          1,     1 / 25.4,    0,         12,   63360, 1000 / 25.4,
                               1e6 / 25.4, 0.001, 1e-3 / 25.4, 10 / 25.4, 1e-6, 0};  // 0: no name
  int flag = 0;
  for (const std::string& name : words("UNKNOWN INCH MM UNKNOWN FT MI M KM MIL UM CM UIN UNKNOWN")) {
    const double length = inches[flag];
    EXPECT_EQ(igsUnits(flag).name(), name);
    EXPECT_EQ(igsUnits::type(name), length > 0 ? flag : 0) << name;
    EXPECT_DOUBLE_EQ(igsUnits::convert_between_units(flag, 1), length > 0 ? length : 1) << name;
    EXPECT_EQ(igsUnits::check_units(flag, "MM"), flag == 2 || flag == 3 ? 1 : 0) << name;
    ++flag;
  }
  EXPECT_EQ(igsUnits::type("IN"), 1);
  EXPECT_EQ(igsUnits::convert_between_units(5, 7), 1.609344) << "exactly";
  for (const char* name : {"", "in", " MM", "INCHES"}) EXPECT_EQ(igsUnits::type(name), 0) << name;
  EXPECT_EQ(igsUnits::name(igs_unset_int), "UNKNOWN");
  for (const char* name : {"", "in", "Inch", " MM", "MM ", "INCHES"}) EXPECT_EQ(igsUnits::type(name), 0) << name;
}

TEST_F(Sections, UnitsNamesAreUnderstoodWhenAskedFor) {
  for (const char* line : {"1 in. Inches ins", "2 mm. Millimetres", "4 ft FEET", "5 miles", "6 metre.", "7 km",
                           "8 mils", "9 Micron um", "10 centimeters", "11 uin MicroInches", "0 . mm.. mmm i.n"}) {
    const Strings names = words(line);
    for (std::size_t i = 1; i < names.size(); ++i)
      EXPECT_EQ(std::to_string(igsUnits::recognised("  " + names[i] + ' ')), names[0]) << names[i];
  }
  const std::string said = "; igsGlobalSectionReadUnitsName ", section = "; igsGlobalSection";
  const struct {
    const char *flag, *name;
    bool recover;
    std::string expected;  // units and errors, and the units when all is repaired
  } cases[] = {{"1", "Inches", true, "1 INCH" + said + "Inches,INCH => 1 INCH"},
               {"3", "mm.", true, "2 MM" + said + "mm.,MM => 2 MM"},
               {"", "feet", true, "4 FT" + section + "IllegalDefault 14,2" + said + "feet,FT => 4 FT"},
               {"77", "metre", true, "77 M" + said + "metre,M" + section + "InvalidUnitsFlag 77 => 6 M"},
               {"2", "feet", true, "2 feet" + section + "UnitNameTypeMismatch 2,feet => 2 MM"},
               {"3", "KM", true, "3 KM => 3 KM"},
               {"1", "Inches", false, "1 Inches" + section + "UnitNameTypeMismatch 1,Inches => 1 INCH"}};
  for (const auto& c : cases) {
    igsFile file;
    igsFileOptions options;
    options.recover = c.recover;
    file.set_options(options);
    read_text(file,
              IgesBuilder().global(14, c.flag).global(15, std::to_string(std::strlen(c.name)) + "H" + c.name).text());
    const auto units = [&u = file.global_section().units()] { return std::to_string(u.type()) + ' ' + u.name(); };
    file.check();
    std::string told = units();
    for (const std::string& error : active_errors(file)) told += "; " + error;
    file.clean(0);
    EXPECT_EQ(told + " => " + units(), c.expected);
    EXPECT_THAT(active_errors(file), testing::IsEmpty());
  }
}

TEST_F(Sections, DirectoryEntryBecomesAnotherButForItsOwner) {
  igsFile file;
  IgesBuilder builder;
  for (int i = 0; i < 4; ++i) builder.line();
  builder.entity(116, 0, "", {-7, -1, -3, 5, 7, 1, "01020301", 3, -5, "ABCDEFGH", 9999999});
  ASSERT_EQ(read_text(file, builder.text()), 1);
  igsDirectoryEntry &from = file.entity(9)->directory_entry(), &to = file.entity(1)->directory_entry();
  from.set_parameter_line_count(6);
  const int references = file.entity(5)->num_references();
  to.become(from);
  EXPECT_EQ(printed(to), printed(from));
  EXPECT_EQ(std::pair(to.start_of_parameter_data(), to.parameter_line_count()), std::pair(5, 6));
  EXPECT_EQ(to.manager(), file.entity(1)->manager());
  EXPECT_EQ(file.entity(5)->num_references(), references + 2);
  to.remove_view();
  EXPECT_EQ(file.entity(5)->num_references(), references + 1);
  to.set_entity_label("A LONGER LABEL");
  to.become(to);
  EXPECT_EQ(records_of(written(file), 'D').at(1).substr(40, 24), right("A LONGER", 24));
  using F = igsStatusFlags;
  EXPECT_EQ(std::string(F::blank_status_name(2)) + F::subordinate_status_name(3) + F::entity_use_name(6) +
                F::hierarchy_name(-1),
            "UnknownPhysically and Logically DependentConstructionalUnknown");
}

}  // namespace
}  // namespace igs_test
