#include "igs/file/igsStartSection.h"

#include <gmock/gmock.h>

#include <random>

#include "file/section_reading.h"

namespace {

using igs_test::section_records;
using testing::ElementsAre;

class Section : public igsStartSection {
 public:
  using igsStartSection::igsStartSection;
  using igsStartSection::read;
  using igsStartSection::tag_error;
  using igsStartSection::write;

  std::vector<utString> lines() const {
    std::vector<utString> all(static_cast<std::size_t>(num_lines()));
    for (int i = 0; i < num_lines(); ++i) line(i, all[static_cast<std::size_t>(i)]);
    return all;
  }
};

const std::string global_record = section_records('G', ",;");

TEST(StartSection, SetLineGrowsOrRefuses) {
  struct Case {
    const char* name;
    int index;
    utString text;
    int taken, lines;
  };
  const Case cases[] = {{"first", 0, "a", 1, 1},
                        {"beyond the end", 5, "a", 1, 6},
                        {"72 characters", 1, utString(72, 'x'), 1, 2},
                        {"73 characters", 1, utString(73, 'x'), 0, 1},
                        {"empty", 1, "", 0, 1},
                        {"negative", -1, "a", 0, 1},
                        {"no such sequence number", 9999999, "a", 0, 1}};
  for (const Case& c : cases) {
    Section section;
    EXPECT_EQ(section.set_line(c.index, c.text), c.taken) << c.name;
    EXPECT_EQ(section.num_lines(), c.lines) << c.name;
    utString line = "untouched";
    EXPECT_EQ(section.line(c.index, line), c.taken) << c.name;
    EXPECT_EQ(line, c.taken != 0 ? c.text : "untouched") << c.name;
    EXPECT_EQ(section.valid(), 1) << c.name;
  }
  Section section;
  section.set_line(3, "d");
  EXPECT_THAT(section.lines(), ElementsAre("", "", "", "d"));
}

TEST(StartSection, LinesChangeInAnyOrder) {
  constexpr std::size_t count = 40;
  Section section;
  std::vector<utString> expected(count);
  std::mt19937 random(1);
  section.set_line(count - 1, "last");
  expected[count - 1] = "last";
  for (int step = 0; step < 3000; ++step) {
    const std::size_t i = random() % count;
    utString text(1 + random() % 72, static_cast<char>('a' + random() % 26));
    for (std::size_t blanks = random() % 80, j = text.size(); blanks > 0 && j > 0; --blanks) text[--j] = ' ';
    ASSERT_EQ(section.set_line(static_cast<int>(i), text), 1);
    expected[i] = text;
    ASSERT_EQ(section.lines(), expected) << step;
  }
  Section copy;
  copy.become(section);
  section.set_line(0, "changed");
  EXPECT_EQ(copy.lines(), expected);
}

TEST(StartSection, ReadsUntilTheGlobalSection) {
  struct Case {
    const char* name;
    std::string text;
    std::vector<utString> lines;
  };
  const utString first = utString(72, 'a');
  const utString second = igs_test::left("b", 72);
  const Case cases[] = {
      {"two lines", section_records('S', first + "b"), {first, second}},
      {"a blank line is a line", section_records('S', second + utString(72, ' ')), {second, utString(72, ' ')}},
      {"none", "", {""}}};
  for (const Case& c : cases) {
    igs_test::SectionInput input(c.text + global_record);
    Section section;
    EXPECT_EQ(section.read(input.in), 1) << c.name;
    EXPECT_EQ(section.lines(), c.lines) << c.name;
    EXPECT_EQ(input.in.in_section(igsGlobalSectionId), 1) << c.name;
  }
}

TEST(StartSection, KeepsLinesBeyondThoseRead) {
  igs_test::SectionInput input(section_records('S', "new") + global_record);
  Section section;
  section.set_line(1, "old");
  EXPECT_EQ(section.read(input.in), 1);
  EXPECT_THAT(section.lines(), ElementsAre(igs_test::left("new", 72), "old"));
}

TEST(StartSection, FailsWithoutANextSection) {
  for (const std::string& text :
       {section_records('S', "alone"), section_records('S', "a") + section_records('X', "b")}) {
    igs_test::SectionInput input(text);
    Section section;
    EXPECT_EQ(section.read(input.in), 0) << text;
    EXPECT_EQ(section.num_lines(), 1) << text;
  }
}

TEST(StartSection, ReportsSequenceNumbersOutOfOrder) {
  igsFile file;
  igs_test::RecordingSink sink;
  file.set_message_stream(&sink);
  igs_test::SectionInput input(section_records('S', "one") + igs_test::left("two", 72) + "S      5\n" + global_record);
  Section section(&file);
  EXPECT_EQ(section.read(input.in), 1);
  EXPECT_EQ(section.num_lines(), 2);
  EXPECT_THAT(igs_test::active_errors(file), ElementsAre("igsStartSectionInvalid"));
  igsSimpleSectionLogIT errors(file.error_log().get_section_log(igsStartLog));
  ++errors;
  EXPECT_EQ(errors()->fix(), 1);
  EXPECT_EQ(sink.text, "Warning : The start section of this file cannot be read.\n");
}

TEST(StartSection, TheStreamRemembersWhatAResetForgets) {
  struct Case {
    const char* name;
    std::string text;
    bool out_of_order, blank_lines;
  };
  const std::string start = section_records('S', "one");
  for (const Case& c : {Case{"sound", start + global_record, false, false},
                        {"blank line", start + "   \n" + global_record, false, true},
                        {"first Global record", start + igs_test::left(",;", 72) + "G      2\n", true, false}}) {
    igs_test::SectionInput input(c.text);
    Section section;
    EXPECT_EQ(section.read(input.in), 1) << c.name;
    EXPECT_EQ(input.in.error(), 0) << c.name;
    EXPECT_EQ(input.in.ever_met(igsIOSequenceOutOfOrder), c.out_of_order) << c.name;
    EXPECT_EQ(input.in.ever_met(igsIOBlankLine), c.blank_lines) << c.name;
  }
}

TEST(StartSection, WritesOneRecordALine) {
  Section section;
  section.set_line(0, "first");
  section.set_line(2, utString(72, 'x'));
  EXPECT_EQ(igs_test::written_records([&](igsOutStream& out) { EXPECT_EQ(section.write(out), 1); }),
            section_records('S', igs_test::left("first", 144) + utString(72, 'x')));
}

TEST(StartSection, PrintsNumberedLines) {
  igsStartSection section;
  section.set_line(1, "b");
  EXPECT_EQ(igs_test::printed(section), "NoOfLinesInStartSection = 2\nStartSection = {\n\t1 = \"\"\n\t2 = \"b\"\n}\n");
}

TEST(StartSection, AFileKeepsItsOwnSection) {
  igsFile file, other;
  igs_test::RecordingSink sink;
  file.set_message_stream(&sink);
  Section section(&other);
  section.set_line(0, "shared");
  file.set_start_section(section);
  utString line;
  EXPECT_EQ(file.start_section().line(0, line), 1);
  EXPECT_EQ(line, "shared");
  EXPECT_EQ(igs_test::read_text(file, igs_test::IgesBuilder().sequence('S', 1, 4).text()), 1);
  igsSimpleSectionLogIT errors(file.error_log().get_section_log(igsStartLog));
  ASSERT_EQ(++errors, 1);
  EXPECT_EQ(errors()->message_stream(), &sink);
}

}  // namespace
