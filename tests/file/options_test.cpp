// What a host may ask of a file beyond the documented behaviour.

#include <gmock/gmock.h>

#include <regex>

#include "fuzz/invariants.h"
#include "iges_builder.h"
#include "igs/igs.h"
#include "igs/objects/igsKeptParts.h"

namespace igs_test {
namespace {

/// A file read with options, and what reading has found.
struct ReadFile {
  ReadFile(const std::string& text, const igsFileOptions& options) {
    file.set_options(options);
    read = read_text(file, text);
    for (const std::string& error : active_errors(file)) found += (found.empty() ? "" : "; ") + error;
  }
  igsFile file;
  int read;
  std::string found;
};

/// The parameter data of an entity of a written file.
std::string data_of(const std::string& text, int de) {
  std::string data;
  for (const std::string& record : records_of(text, 'P')) {
    if (igs_fuzz::number_at(record, 66, 7) == de) data += record.substr(0, 64);
  }
  return data.substr(0, data.find_last_not_of(' ') + 1);
}

std::string all_data(const std::string& text, int entities) {
  std::string all;
  for (int de = 1; de < 2 * entities; de += 2) all += data_of(text, de) + '\n';
  return all;
}

constexpr igsFileOptions kept{.keep = true};

/// A line in a group, with a name and a comment; a point with a faulty tail; entities without a class.
IgesBuilder kept_sample() {
  IgesBuilder builder;
  builder.global(25, "15H20260101.000000,4HLast;a remark");
  builder.entity(110, 0, "0.,0.,0.,1.,0.,0.,1,3,1,5");
  builder.entity(402, 7, "1,1");
  builder.entity(406, 15, "1,5HA;B  ");
  builder.entity(116, 0, "1.,2.,3.,0,0,0,0", {.structure = -3, .label = "Face", .subscript = 7});
  builder.entity(406, 3, "2,4,6HWelded");
  builder.entity(322, 0, "  +1.50d-3 ,, 0H,x y,-7", {.line_font = -3, .level = 4});
  builder.entity(116, 0, "1.,2.,3.,0,0");
  builder.change_data(1, [](std::string& data) { data += " and more " + std::string(80, '.'); });
  return builder;
}

TEST(Keep, WritesWhatWasRead) {
  const std::string given = kept_sample().text();
  ReadFile first(given, kept);
  const std::string text = written(first.file);
  EXPECT_EQ(column_fault(text), "");
  EXPECT_EQ(all_data(text, 7), "110,0.,0.,0.,1.,0.,0.,1,3,1,5; and more " + std::string(80, '.') +
                                   "\n402,1,1;\n406,1,5HA;B  ;\n116,1.,2.,3.,0,0,0,0;\n406,2,4,6HWelded;\n"
                                   "322,+1.50d-3,,0H,x y,-7;\n116,1.,2.,3.,0,0;\n");
  EXPECT_EQ(igs_fuzz::number_at(records_of(text, 'D').at(6), 24, 1), 3) << "the structure";
  EXPECT_THAT(records_of(text, 'G'), testing::Contains(testing::HasSubstr("4HLast;a remark")));
  ReadFile second(text, kept);
  EXPECT_EQ(written(second.file), text);
  EXPECT_EQ(printed(*second.file.entity(1)), printed(*first.file.entity(1)));

  igsFile plain;
  read_text(plain, given);
  EXPECT_EQ(std::tuple(plain.num_entities(), plain.num_unknowns(), first.file.num_unknowns()), std::tuple(4, 3, 0));
  plain.set_options(kept);  // too late: nothing is made up
  EXPECT_EQ(plain.entity(7)->directory_entry().structure(), -3);
}

TEST(Keep, NamesEntitiesAndLevels) {
  ReadFile sample(kept_sample().text(), kept);
  igsFile& file = sample.file;
  EXPECT_EQ(file.entity_name(*file.entity(1)) + '|' + file.entity_name(*file.entity(7)) + '|' +
                file.entity_name(*file.entity(3)),
            "A;B  |Face 7|");
  EXPECT_THAT(file.entities_named("Face 7"), testing::ElementsAre(file.entity(7)));
  EXPECT_THAT(file.level_names(), testing::ElementsAre(std::pair(4, "Welded")));
}

std::string global_text(const std::string& text) {
  std::string all;
  for (const std::string& record : records_of(text, 'G')) all += record.substr(0, 72);
  return all.substr(0, all.find_last_not_of(' ') + 1);
}

std::string parameters_given(const igsFile& file) {
  std::string all;
  for (int i = 0; i <= 27; ++i) all += file.global_section().given(i) ? '1' : '0';
  return all;
}

TEST(Keep, WritesTheGlobalParametersThatWereGiven) {
  IgesBuilder builder;
  builder.point();
  for (const int missing : {1, 2, 7, 15, 18, 20, 21}) builder.global(static_cast<std::size_t>(missing), "");
  builder.global(3, "0H").global(13, "0.1").global(19, "1.23456789012345678D-6").global(25, "15H20260101.000000,3Happ");
  ReadFile first(builder.text(), {.keep = true, .style = {.shortest_reals = true}});
  EXPECT_EQ(parameters_given(first.file), "0001111011111110110100111110");
  const std::string text = written(first.file);
  EXPECT_THAT(global_text(text),
              testing::AllOf(testing::StartsWith(",,0H,8Htest.igs,"),
                             testing::EndsWith("1.2345678901234567D-06,,,3Horg,11,0,15H20260101.000000,3Happ;"),
                             testing::HasSubstr(",0.1,2,,1,0.,,")));
  ReadFile second(text, {.keep = true, .style = {.shortest_reals = true}});
  EXPECT_EQ(second.found, first.found);
  EXPECT_EQ(parameters_given(second.file), parameters_given(first.file));
  EXPECT_EQ(written(second.file), text);

  igsGlobalSection global = second.file.global_section();
  EXPECT_EQ(global.repair(7) + global.set_name_of_author("Ann"), 2);
  second.file.set_global_section(global);
  EXPECT_THAT(global_text(written(second.file)),
              testing::AllOf(testing::HasSubstr(",4,38,"), testing::HasSubstr(",3HAnn,")));
  igsFile plain;
  read_text(plain, builder.text());
  EXPECT_EQ(parameters_given(plain).substr(0, 26), parameters_given(first.file).substr(0, 26));
  EXPECT_THAT(global_text(written(plain)), testing::StartsWith("1H,,1H;,0H,"));
}

// The date of an older version stands behind its parameters, and finds its place in a newer one.
TEST(Keep, ChangesOfTheVersionLoseNoDate) {
  IgesBuilder builder;
  builder.global(23, "6").point();
  ReadFile sample(builder.text(), kept);
  EXPECT_FALSE(sample.file.global_section().given(25));
  EXPECT_THAT(global_text(written(sample.file)), testing::EndsWith(",6,0,15H20200102.030405;"));
  igsGlobalSection global = sample.file.global_section();
  global.set_iges_version(11);
  sample.file.set_global_section(global);
  EXPECT_THAT(global_text(written(sample.file)), testing::EndsWith(",11,0,15H20200102.030405;"));
}

// While texts may hold DE numbers, all entities keep theirs, and new ones take none of those that went.
TEST(Keep, NumbersStayWhileTextsMayHoldThem) {
  ReadFile sample(kept_sample().text(), kept);
  igsFile& file = sample.file;
  igs_fuzz::check_memory(file);
  delete file.entity(3);
  EXPECT_EQ(file.entity(7)->directory_entry().structure(), 0);
  const igsFileScope current(file);
  EXPECT_EQ((new igs116)->de_number(), 15);
  EXPECT_EQ(file.replace_entity(file.entity(13), new igs116), 1);
  EXPECT_EQ(file.num_entities(), 7);
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  EXPECT_EQ(data_of(text, 1).substr(0, 34), "110,0.,0.,0.,1.,0.,0.,0,1,5; and m");
  EXPECT_EQ(data_of(text, 3) + data_of(text, 5), "0;406,1,5HA;B  ;");
  EXPECT_EQ(ReadFile(text, kept).file.num_nulls(), 1);
  igs_fuzz::check_memory(file);
  // Without those texts the entities close ranks.
  for (const int de : {5, 9, 11}) delete file.entity(de);
  EXPECT_EQ(data_of(written(file), 3), "116,1.,2.,3.,0,0,0,0;");
}

// What cannot be read, in part or at all, is written as it stood, in an entity of its class.
TEST(Keep, WritesWhatCannotBeRead) {
  IgesBuilder builder;
  builder.entity(126, 0, "99999999,3,0.,,1.,2,1,0,3Habc");
  builder.entity(110, 0, "0.,0.,0.,1O.,0.,0.,1,5");
  builder.entity(402, 7, "1,1");
  builder.entity(124, 0, "1.,0.,0.,0.");
  builder.entity(116, 0, "1.,2.,3.");
  builder.change_data(9, [](std::string& data) { data.replace(0, 3, "110"); });
  constexpr igsFileOptions options{.keep = true, .strict = true};
  ReadFile first(builder.text(), options);
  EXPECT_THAT(first.found, testing::HasSubstr("igsFileUnreadData 1"));
  EXPECT_THAT(first.found, testing::HasSubstr("igsFileUnreadData 9"));
  first.file.check();
  igs_fuzz::check_memory(first.file);
  const std::string text = written(first.file);
  EXPECT_EQ(
      all_data(text, 5),
      "126,99999999,3,0.,,1.,2,1,0,3Habc;\n110,0.,0.,0.,1O.,0.,0.,1,5;\n402,1,1;\n124,1.,0.,0.,0.;\n110,1.,2.,3.;\n");
  EXPECT_EQ(igs_fuzz::number_at(records_of(text, 'D').at(8), 1, 8), 116);
  ReadFile second(text, options);
  EXPECT_EQ(second.found, first.found);
  EXPECT_EQ(written(second.file), text);
}

// Pointers to what the file does not have, a lost matrix for one, keep their numbers until something else goes.
TEST(Keep, NumbersOfWhatIsMissing) {
  IgesBuilder builder;
  builder.entity(124, 0, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.");
  builder.entity(110, 0, "0.,0.,0.,1.,0.,0.,1,99,1,1", {.matrix = 1});
  builder.entity(102, 0, "2,3,1");
  builder.edit('P', [](auto& records) { records.erase(records.begin()); });
  constexpr igsFileOptions options{.keep = true, .strict = true};
  ReadFile first(builder.text(), options);
  EXPECT_THAT(first.found, testing::HasSubstr("igsFileLostReference 3 1"));
  EXPECT_THAT(first.found, testing::HasSubstr("igsFileLostReference 5 1"));
  EXPECT_EQ(first.file.entity(3)->directory_entry().matrix().object(), nullptr);
  const std::string text = written(first.file);
  EXPECT_EQ(all_data(text, 3), "0;\n110,0.,0.,0.,1.,0.,0.,1,99,1,1;\n102,2,3,1;\n");
  EXPECT_EQ(igs_fuzz::number_at(records_of(text, 'D').at(2), 49, 8), 1) << "the matrix";
  ReadFile second(text, options);
  EXPECT_EQ(written(second.file), text);
  const igsFileScope current(second.file);
  for (int i = 0; i < 60; ++i) new igs116;
  EXPECT_EQ(second.file.entity(99)->num_references(), 0);
  igs_fuzz::check_memory(second.file);
}

TEST(Strict, ReportsFieldsThatCannotHaveBeenReadAsTheyStand) {
  const std::string file = "igsFile";
  const struct {
    int type;
    const char *data, *found;
  } cases[] = {{110, "0.,0.,0.,1O.,0.,0.", "FieldNotNumber 1 4,1O."},
               {110, "0.,0.,0.,1.E400,0.,0.", "FieldNotNumber 1 4,1.E400"},
               {110, "0.,0.,0.,1.2.3,0.", "FieldNotNumber 1 4,1.2.3; igsFilePrematureObjectEnd 1 6"},
               {110, "0.,0.,0.,1,2,3.,0,0", ""},
               {110, "0.,0.,0.,1,2,3.,0,0,0", ""},
               {110, "0.,0.,0.,1,2,3.,0,0,2", "ObjectExtraData 1 7"},
               {116, "1.,2.,3.,12X", "FieldNotNumber 1 4,12X"},
               {116, "1.,2.,3.", ""},
               {116, "1.,2.,", ""},
               {116, "1.,2.", "PrematureObjectEnd 1 3"},
               {314, "1.,2.,3.,4Hgrey", ""},
               {314, "1.,2.,3.,3Hgrey", "WrongStringCount 1 4,3Hgrey"},
               {314, "1.,2.,3.,99Hgrey", "WrongStringCount 1 4,4Hgrey"},
               {402, "2,1", "PrematureObjectEnd 1 3"},
               {406, "1,abc", "FieldNotNumber 1 2,abc"},
               {126, "1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.", ""},
               {126, "1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.", "PrematureObjectEnd 1 18"}};
  for (const auto& c : cases) {
    IgesBuilder builder;
    builder.entity(c.type, c.type == 406 ? 15 : c.type == 402 ? 1 : 0, c.data);
    const std::string found = ReadFile(builder.text(), {.strict = true}).found;
    EXPECT_EQ(found.substr(0, found.find("; igs402")), *c.found == '\0' ? "" : file + c.found) << c.data;
    EXPECT_EQ(ReadFile(builder.text(), {}).found.find("igsFile"), std::string::npos) << c.data;
  }
  IgesBuilder open;
  open.point();
  open.change_data(1, [](std::string& data) { data.pop_back(); });
  EXPECT_EQ(ReadFile(open.text(), {.strict = true}).found, "igsFileNoRecordDelimiter 1");
}

IgesBuilder four_points() {
  IgesBuilder builder;
  for (int i = 1; i <= 4; ++i) builder.point(i);
  return builder;
}

TEST(Recover, UnderstandsMoreAndSaysSo) {
  const auto found = [](const IgesBuilder& builder, std::string& points) {
    ReadFile sample(builder.text(), {.recover = true});
    EXPECT_EQ(sample.read, 1);
    points.clear();
    igsFileIT entities(&sample.file);
    while (++entities != 0) points += std::to_string(entities()->de_number()) + ' ';
    igs_fuzz::check_memory(sample.file);
    EXPECT_EQ(column_fault(written(sample.file)), "");
    return std::regex_replace(sample.found, std::regex("; igs(Terminate.*|FileInvalidLine.*)"), "");
  };
  std::string left;
  const std::string wide = "116,1.,2.," + std::string(51, ' ') + "333,";
  EXPECT_EQ(found(four_points().columns('P', 1, 1, wide), left), "igsFileColumn65 1");
  for (const std::size_t record : {3U, 4U}) {
    EXPECT_EQ(found(four_points().drop('D', record), left), "igsFileLostDirectoryEntry 3");
    EXPECT_EQ(left, "1 5 7 ");
  }
  EXPECT_EQ(found(four_points().drop('D', 1).drop('D', 1).drop('D', 1), left),
            "igsFileLostDirectoryEntry 1; igsFileLostDirectoryEntry 3");
  EXPECT_EQ(left, "5 7 ");
  EXPECT_EQ(found(four_points().drop_section('T'), left), "igsFileMissingSection 4");
  EXPECT_EQ(found(four_points().drop_section('T').drop_section('P'), left).substr(0, 16), "igsFileNoPDData ");
  EXPECT_EQ(found(four_points().append(four_points().text()), left), "igsFileSecondFile 17");
  EXPECT_EQ(left, "1 3 5 7 ");
  std::string mixed = four_points().text();
  for (std::size_t i = 80; i < mixed.size(); i += 3 * 81) mixed[i] = '\r';
  EXPECT_EQ(ReadFile(mixed, {.recover = true}).found, "igsFileMixedLineEnds");
  ReadFile path(four_points().global(4, "20HC:\\part.igs").text(), {.recover = true});
  EXPECT_EQ(path.found, "igsGlobalSectionWrongStringCount 4");
  EXPECT_EQ(path.file.global_section().file_name() + path.file.global_section().units().name(), "C:\\part.igsMM");
  EXPECT_EQ(ReadFile(four_points().text(), {.recover = true}).found, "");
}

TEST(Lines, AreThoseOfAnEditor) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    IgesBuilder builder = four_points();
    builder.line_end(end).insert('D', 3, "").insert('P', 2, "   ");
    builder.edit('P', [&end](auto& records) { records.at(0).insert(30, end); });
    ReadFile sample(builder.text(), {.lines = true});
    const auto at = [&sample](int de) {
      const igsEntityLines lines = sample.file.lines(de);
      return std::pair(lines.directory_entry, lines.parameter_data);
    };
    const int first = 1 + static_cast<int>(records_of(four_points().text(), 'G').size()) + 1;
    EXPECT_EQ(at(1), std::pair(first, first + 9)) << end.size();
    EXPECT_EQ(at(3), std::pair(first + 3, first + 12)) << end.size();
    EXPECT_EQ(at(7), std::pair(first + 7, first + 14)) << end.size();
    EXPECT_EQ(sample.file.global_line(1), 2);
    EXPECT_EQ(sample.file.section_line(igsParameterSectionId), first + 9);
    EXPECT_EQ(sample.file.global_line(25), first - 1);
  }
}

}  // namespace
}  // namespace igs_test
