#include "igs/file/igsTerminateSection.h"

#include <gmock/gmock.h>

#include "file/section_reading.h"
#include "igs/file/igsTerminateSection_errors.h"

namespace {

using igs_test::section_records;
using testing::ElementsAre;

class Section : public igsTerminateSection {
 public:
  using igsTerminateSection::igsTerminateSection;
  using igsTerminateSection::read;
  using igsTerminateSection::tag_error;
  using igsTerminateSection::write;

  std::array<int, 4> counts() const { return {start_lines(), global_lines(), directory_lines(), parameter_lines()}; }
};

TEST(TerminateSection, SettersTakeWhatSevenColumnsCanHold) {
  struct Case {
    int (igsTerminateSection::*set)(int);
    int value, taken;
  };
  const Case cases[] = {
      {&igsTerminateSection::set_start_lines, 1, 1},         {&igsTerminateSection::set_start_lines, 0, 0},
      {&igsTerminateSection::set_start_lines, -4, 0},        {&igsTerminateSection::set_global_lines, 9999999, 1},
      {&igsTerminateSection::set_global_lines, 10000000, 0}, {&igsTerminateSection::set_directory_lines, 7, 0},
      {&igsTerminateSection::set_directory_lines, 8, 1},     {&igsTerminateSection::set_directory_lines, 0, 0},
      {&igsTerminateSection::set_directory_lines, -2, 0},    {&igsTerminateSection::set_directory_lines, 10000000, 0},
      {&igsTerminateSection::set_parameter_lines, 7, 1},     {&igsTerminateSection::set_parameter_lines, 10000000, 0}};
  for (const Case& c : cases) {
    Section section;
    EXPECT_EQ((section.*c.set)(c.value), c.taken) << c.value;
    const auto counts = section.counts();
    EXPECT_EQ(std::count(counts.begin(), counts.end(), c.value), c.taken) << c.value;
    EXPECT_EQ(std::count(counts.begin(), counts.end(), igs_unset_int), 4 - c.taken) << c.value;
  }
}

// A file of 2 Start, 1 Global, 2 Directory and 12 Parameter Data records stands before the Terminate record.
struct ReadCase {
  const char* name;
  const char* record;
  std::array<int, 4> counts;
  std::vector<std::string> errors;
};

TEST(TerminateSection, ReadKeepsAndReportsWhatIsWrong) {
  const ReadCase cases[] = {
      {"sound", "S      2G      1D      2P     12", {2, 1, 2, 12}, {}},
      {"count", "S      2G      1D      2P     11", {2, 1, 2, 11}, {"igsTerminateSectionBadCount 3,11,12"}},
      {"letter",
       "S      2X      3D      2P     12",
       {2, 3, 2, 12},
       {"igsTerminateSectionBadName 1,X", "igsTerminateSectionBadCount 1,3,1"}},
      {"small letter", "s      2G      1D      2P     12", {2, 1, 2, 12}, {"igsTerminateSectionBadName 0,s"}},
      {"no number", "S      2G      1D  abc  P     12", {2, 1, 0, 12}, {"igsTerminateSectionBadCount 2,0,2"}},
      {"blank",
       " ",
       {0, 0, 0, 0},
       {"igsTerminateSectionBadName 0, ", "igsTerminateSectionBadCount 0,0,2", "igsTerminateSectionBadName 1, ",
        "igsTerminateSectionBadCount 1,0,1", "igsTerminateSectionBadName 2, ", "igsTerminateSectionBadCount 2,0,2",
        "igsTerminateSectionBadName 3, ", "igsTerminateSectionBadCount 3,0,12"}}};
  for (const ReadCase& c : cases) {
    igs_test::SectionInput input(section_records('S', utString(144, 's')) + section_records('G', ",;") +
                                 section_records('D', utString(144, ' ')) +
                                 [] {
                                   std::string data;
                                   for (int i = 1; i <= 12; ++i) {
                                     data += igs_test::left("0", 65) + "      1P" + igs_test::right(i, 7) + "\n";
                                   }
                                   return data;
                                 }() +
                                 section_records('T', c.record));
    while (input.in.fatal_error() == 0 && input.in.in_section(igsTerminateSectionId) == 0) {
      input.in.skip_line();
      input.in.reset();
    }
    const igsFile file;
    Section section;
    EXPECT_EQ(section.read(input.in), 1) << c.name;
    EXPECT_EQ(section.counts(), c.counts) << c.name;
    EXPECT_EQ(igs_test::active_errors(file), c.errors) << c.name;

    igsSimpleSectionLogIT errors(file.error_log().get_section_log(igsTerminateLog));
    while (++errors != 0) EXPECT_EQ(errors()->fix(), 1) << c.name;
    EXPECT_THAT(section.counts(), ElementsAre(2, 1, 2, 12)) << c.name;
  }
}

TEST(TerminateSection, FixesWithoutASectionOrWithACountThatIsRefused) {
  const igsFile file;
  EXPECT_EQ((new igsTerminateSectionBadCount(igsStartSectionId, 1, 2))->fix(), 0);
  EXPECT_EQ((new igsTerminateSectionBadName(igsStartSectionId, "X"))->fix(), 1);
  EXPECT_EQ((new igsTerminateSectionNoConstruct)->fix(), 0);
  const Section section;
  auto* const odd = new igsTerminateSectionBadCount(igsDirectorySectionId, 4, 3);
  section.tag_error(odd);
  EXPECT_EQ(odd->fix(), 1);
  EXPECT_EQ(section.directory_lines(), igs_unset_int);
  section.tag_error(nullptr);
}

TEST(TerminateSection, TakesTheCountsFromWhatWasWritten) {
  std::ostringstream text;
  igsOutStream out(&text);
  out.set_section(igsStartSectionId);
  for (int i = 0; i < 2; ++i) out.write_string(72, "s");
  Section section;
  section.set_global_lines(77);
  EXPECT_EQ(section.write(out), 1);
  EXPECT_THAT(section.counts(), ElementsAre(2, 0, 0, 0));
  EXPECT_EQ(igs_test::records_of(text.str(), 'T'),
            std::vector{igs_test::left("S      2G      0D      0P      0", 72) + "T      1"});
}

TEST(TerminateSection, PrintsUnsetCounts) {
  EXPECT_EQ(igs_test::printed(igsTerminateSection()),
            "TerminateSection = {\n"
            "\tNoOfLinesInStartSection = -2147483647\n\tNoOfLinesInGlobalSection = -2147483647\n"
            "\tNoOfLinesInDirectorySection = -2147483647\n\tNoOfLinesInParameterSection = -2147483647\n}\n");
}

TEST(TerminateSection, BecomeCopiesTheCounts) {
  Section section, other;
  section.set_start_lines(3);
  other.become(section);
  EXPECT_EQ(other.counts(), section.counts());
}

}  // namespace
