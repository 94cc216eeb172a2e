// Line fonts, text fonts, text templates, colours.

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "igs/file/igsObjectSystem.h"
#include "igs/structure/igs304_1.h"
#include "igs/structure/igs304_2.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igs310.h"
#include "igs/structure/igs312.h"
#include "igs/structure/igs314.h"
#include "objects/test_node.h"
#include "record_model.h"

namespace igs_test {
namespace {
const std::string lowest = "-1.7976931348623157D+308";

/// What the entity under test may refer to, from DE 3 on.
const std::vector<std::string> others{
    "308,0,3HSUB,1,17",                    // 3: a subfigure definition
    "308,-1,3HSUB,1,17",                   // 5: one with a fault that can be repaired
    "310,1,4HFONT,0,8,1,65,10,0,1,0,5,5",  // 7: a text font
    "310,1,4HFONT,0,8,1,65,10,0,1,7,5,5",  // 9: one with a fault that can be repaired
    "310,1,4HFONT,0,0,1,65,10,0,1,0,5,5",  // 11: one with a fault that cannot
    "310,1,4HFONT,-1,8,1,65,10,0,0",       // 13: one that refers back
    "308,0,3HSUB,1,0",                     // 15: a subfigure definition without its member
    "110,0.,0.,0.,1.,1.,0.",               // 17: a curve
    "124,1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.",
};

struct Model : RecordModel {
  explicit Model(const std::string& record) : RecordModel(with_others(record, others), 1) {}
};

TEST(FontsAndColours, SoundOnesSurviveWritingAndReading) {
  const struct {
    std::string record, class_name, written;  // "": the same
  } cases[] = {
      {"304/1,1,3,0.5,2.", "igs304_1", ""},
      {"304/1,2,3,0.5", "igs304_1", "304,2,3,0.5,1."},
      {"304/2,2,0.1,0.2,1H2", "igs304_2", ""},
      {"304/2,1,0.,4H0aFe", "igs304_2", ""},
      {"310,3,8HA,B;C H8,2,8,2,65,11,0,2,0,4,8,1,-4,0,66,0,-9,0", "igs310", ""},
      {"310,3,0H,-7,8,1,0,11,0,0", "igs310", ""},
      {"310,3,0H,-1,8,1,127,11,0,0", "igs310", ""},  // a cycle is no fault
      {"310,3,0H,-17999,8,1,65,11,0,1,,5,6", "igs310", "310,3,0H,0,8,1,65,11,0,1,0,5,6"},
      {"312,1.,2.,17,1.5,0.5,2,1,1.,2.,3.", "igs312", ""},
      {"312/1,0.,0.,-7,0.,0.,0,0,0.,0.,0.", "igs312", ""},
      {"312/1,1.,2.", "igs312", "312,1.,2.,1,1.5707963267949,0.,0,0,0.,0.,0."},
      {"312,1.,2.,-99,,0.,0,0,1.,1.,1.", "igs312", "312,1.,2.,1,1.5707963267949,0.,0,0,1.,1.,1."},
      {"314,0.,100.,50.5,11Hlime; green", "igs314", ""},
      {"314,0.,100.,50.5", "igs314", "314,0.,100.,50.5,0H"},
      {"314,-0.000001,100.000001,0.,0H", "igs314", "314,-1.D-06,100.000001,0.,0H"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record);
    ASSERT_EQ(model.read, 1);
    EXPECT_EQ(model.file.entity(1)->objtype().id_string(), c.class_name);
    EXPECT_EQ(model.found(), "");
    EXPECT_EQ(model.data(), without_form(c.written.empty() ? c.record : c.written));
    const std::string before = printed_data(*model.file.entity(1));
    const std::string first = written(model.file);
    igsFile again;
    ASSERT_EQ(read_text(again, first), 1);
    EXPECT_EQ(written(again), first);
    if (c.written.empty()) {
      EXPECT_EQ(printed_data(*again.entity(1)), before);
    }
  }
}

TEST(FontsAndColours, Print) {
  const struct {
    const char *record, *printed;
  } cases[] = {
      {"304/1,2,0,0.5,2.", "Orientation = 2\nTemplate = {\n\t(NullPointer)\n}\nSpacing = 0.5\nScale = 2\n"},
      {"304/2,1,0.5,1H1", "NumberOfSegments = 1\nLengths = {\n\t(0) = 0.5\n}\nPattern = 1\n"},
      {"310,3,1HF,2,8,1,65,11,12,1,1,-4,5",
       "FontCode = 3\nFontName = F\nSupersededFont = 2\nScale = 8\nNumberOfCharacters = 1\nCharacters = {\n\t(0) = {\n"
       "\t\tCode = 65\n\t\tNextX = 11\n\t\tNextY = 12\n\t\tNumberOfMotions = 1\n\t\tMotions = {\n\t\t\t(0) = {\n"
       "\t\t\t\tPenUp = 1\n\t\t\t\tX = -4\n\t\t\t\tY = 5\n\t\t\t}\n\t\t}\n\t}\n}\n"},
      {"312,1.,2.,17,1.5,0.5,2,1,1.,2.,3.",
       "CharacterWidth = 1\nCharacterHeight = 2\nFontCode = 17\nSlantAngle = 1.5\nRotationAngle = 0.5\nMirrorFlag = 2\n"
       "RotateFlag = 1\nStart = (1, 2, 3)\n"},
      {"314,1.,2.,3.,3Hred", "Red = 1\nGreen = 2\nBlue = 3\nName = red\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(printed_data(*Model(c.record).file.entity(1)), c.printed);
}

TEST(FontsAndColours, EveryReferenceIsTested) {
  const std::vector<ReferenceCase> cases = {
      {"304/1,1,@,0.5,2.",
       "igs304_1NullTemplate",
       "igs304_1WrongTemplateType",
       "igs304_1InvalidTemplate",
       {1, 7, 17, 19},
       {5, 15}},
      {"310,1,0H,-@,8,1,65,0,0,0",
       "",
       "igs310WrongSupersededFontType",
       "igs310InvalidSupersededFont",
       {3, 17, 19},
       {9, 11}},
      {"312,0.,0.,-@,0.,0.,0,0,0.,0.,0.", "", "igs312WrongFontType", "igs312InvalidFont", {1, 3, 17, 19}, {9, 11, 13}},
  };
  expect_references_tested(cases, [](const std::string& record) { return std::make_unique<Model>(record); });
}

TEST(FontsAndColours, FaultsAndRepairs) {
  const struct {
    std::string record, found, repaired, left;  // repaired "": nothing is changed
  } cases[] = {
      {"304/1,0,3,0.5,0.", "igs304_1InvalidOrientation 0; igs304_1InvalidScale 0", "304,1,3,0.5,1.", ""},
      {"304/1,3,5,0.5,-2.", "igs304_1InvalidOrientation 3; igs304_1InvalidTemplate; igs304_1InvalidScale -2",
       "304,1,5,0.5,1.", ""},
      {"304/1,1,3,0.,1.", "igs304_1InvalidSpacing 0", "", "igs304_1InvalidSpacing 0"},
      {"304/1,1,3,-1.,1.", "igs304_1InvalidSpacing -1", "", "igs304_1InvalidSpacing -1"},
      {"304/1,1,17,1.,1.", "igs304_1WrongTemplateType", "", "igs304_1WrongTemplateType"},
      {"304/2,0,0H", "igs304_2NoSegments; igs304_2InvalidPattern", "", "igs304_2NoSegments; igs304_2InvalidPattern"},
      {"304/2,2,1.,-1.,2H1G", "igs304_2InvalidLength 1,-1; igs304_2InvalidPattern", "",
       "igs304_2InvalidLength 1,-1; igs304_2InvalidPattern"},
      {"310,1,0H,0,0,0", "igs310InvalidScale 0; igs310NoCharacters", "", "igs310InvalidScale 0; igs310NoCharacters"},
      {"310,1,0H,0,8,2,-1,0,0,0,128,0,0,0", "igs310InvalidCharacterCode 0,-1; igs310InvalidCharacterCode 1,128", "",
       "igs310InvalidCharacterCode 0,-1; igs310InvalidCharacterCode 1,128"},
      {"310,1,0H,0,8,2,65,0,0,1,-1,0,0,66,0,0,2,1,0,0,2,0,0", "igs310InvalidPenFlag 0,0,-1; igs310InvalidPenFlag 1,1,2",
       "310,1,0H,0,8,2,65,0,0,1,0,0,0,66,0,0,2,1,0,0,0,0,0", ""},
      {"310,1,0H,-9,8,1,65,0,0,0", "igs310InvalidSupersededFont", "", ""},
      {"312,-1.,-2.,1,1.,0.,3,2," + lowest + ",0.,0.",
       "igs312InvalidCharacterWidth -1; igs312InvalidCharacterHeight -2; igs312InvalidMirrorFlag 3; "
       "igs312InvalidRotateFlag 2; igs312InvalidStartPoint",
       "312,-1.,-2.,1,1.,0.,0,0," + lowest + ",0.,0.",
       "igs312InvalidCharacterWidth -1; igs312InvalidCharacterHeight -2; igs312InvalidStartPoint"},
      {"312,0.,0.,-9,1.,0.,-1,-1,0.,0.,0.", "igs312InvalidFont; igs312InvalidMirrorFlag -1; igs312InvalidRotateFlag -1",
       "312,0.,0.,-9,1.,0.,0,0,0.,0.,0.", ""},
      {"312,0.,0.,-17,1.,0.,0,0,0.,0.,0.", "igs312WrongFontType", "", "igs312WrongFontType"},
      {"314,-0.5,100.5,255.,0H", "igs314InvalidRed -0.5; igs314InvalidGreen 100.5; igs314InvalidBlue 255",
       "314,0.,100.,100.,0H", ""},
      {"314," + lowest + ",-0.0000011,100.0000011,0H",
       "igs314InvalidRed -1.79769313486232e+308; igs314InvalidGreen -1.1e-06; igs314InvalidBlue 100.0000011",
       "314,0.,0.,100.,0H", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record);
    EXPECT_EQ(model.found(), c.found);
    model.file.clean(0);
    EXPECT_EQ(model.errors().empty(), c.left.empty());  // an entity that keeps errors is one to delete
    EXPECT_EQ(model.found(), c.left);
    EXPECT_EQ(model.data(), without_form(c.repaired.empty() ? c.record : c.repaired));
  }
}

TEST(FontsAndColours, AColourWhoseComponentIsNoNumberIsRepaired) {
  igsFile file;
  auto* const colour = new igs314;
  EXPECT_EQ(found_by_check(*colour).size(), 3U);
  colour->set_red(std::numeric_limits<double>::quiet_NaN());
  colour->set_green(std::numeric_limits<double>::infinity());
  colour->set_blue(0);
  EXPECT_EQ(found_by_check(*colour).size(), 2U);
  file.clean(0);
  EXPECT_EQ(colour->red(), 0);
  EXPECT_EQ(colour->green(), 100);
  EXPECT_EQ(colour->check(), 1);
}

TEST(FontsAndColours, ACountThatCannotBeUsedLosesTheEntity) {
  const struct {
    const char *record, *error;
  } cases[] = {
      {"304/2,-1,1.,1H1", "igs304_2BadNumSegments 1 -1"},
      {"304/2,1000000000,1.,1H1", "igs304_2BadNumSegments 1 1000000000"},
      {"310,1,0H,0,8,-1", "igs310BadNumCharacters 1 -1"},
      {"310,1,0H,0,8,257,65,0,0,1,0,0,0", "igs310BadNumCharacters 1 257"},
      {"310,1,0H,0,8,2,65,0,0,1,0,0,0,66,0,0,-1,67,0,0,-1", "igs310BadNumMotions 1 1,-1"},
      {"310,1,0H,0,8,2000000000,65,0,0,1,0,0,0,66,0,0,2000000000,0", "igs310BadNumMotions 1 1,2000000000"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.error);
    const Model model(c.record);
    EXPECT_EQ(model.file.entity(1), nullptr);
    ASSERT_EQ(object_errors(model.file).size(), 1U);
    EXPECT_EQ(describe(*object_errors(model.file).front()), c.error);
  }
}

TEST(FontsAndColours, AFontHoldsNoMoreMotionsThanItsRecordCanMean) {
  // Every character claims as many motions as are always believed.
  std::string record = "310,1,0H,0,8,256";
  for (int i = 0; i < 256; ++i) record += ",65,0,0,256";
  Model model(record);
  const igs310& font = entity_of<igs310>(model.file);
  std::size_t motions = 0;
  for (const igsFontCharacter& character : font.characters()) motions += character.motions.size();
  EXPECT_EQ(font.number_of_characters(), 256);
  EXPECT_LE(motions, 1024U / 3 + 256);
}

TEST(FontsAndColours, ManyPenMotionsAreRepairedInLinearTime) {
  igsFile file;
  auto* const font = new igs310;
  font->set_scale(8);
  font->set_number_of_characters(1);
  font->character_at(0)->motions.resize(chain_length / 2, {.pen_up = 5});
  file.clean(0);
  EXPECT_EQ(font->num_logged_errors(), 0);
}

TEST(FontsAndColours, AreBuiltFromNothing) {
  igsFile file;
  auto* const line_font = new igs304_1;
  EXPECT_EQ(line_font->check(), 0);
  line_font->set_subfigure(new igs308);
  line_font->set_spacing(2);
  EXPECT_EQ(written_data(file), "304,1,3,2.,1.;");
  auto* const dashes = new igs304_2;
  dashes->set_lengths({1, 2});
  EXPECT_EQ(dashes->set_length(2, 5), 0);
  EXPECT_EQ(dashes->set_length(1, 5), 1);
  EXPECT_EQ(dashes->length(2), undefined_real);
  dashes->set_pattern("2");
  EXPECT_EQ(dashes->check(), 1);
  EXPECT_EQ(written_data(file, 5), "304,2,1.,5.,1H2;");
  auto* const font = new igs310;
  font->set_scale(10);
  EXPECT_EQ(font->set_number_of_characters(-1), 0);
  EXPECT_EQ(font->set_number_of_characters(1), 1);
  EXPECT_EQ(font->set_character(1, {}), 0);
  EXPECT_EQ(font->set_character(0, {.code = 66, .next_x = 9, .motions = {{.x = 3, .y = 4}}}), 1);
  EXPECT_EQ(font->character_at(1), nullptr);
  EXPECT_EQ(font->check(), 1);
  EXPECT_EQ(written_data(file, 7), "310,0,0H,0,10,1,66,9,0,1,0,3,4;");
  auto* const style = new igs312;
  EXPECT_EQ(found_by_check(*style).back(), "igs312InvalidStartPoint 9");
  style->set_start({0, 0, 0});
  style->set_font_code(igsFontCode(igsObjectPtr(font)));
  EXPECT_EQ(style->check(), 1);
  EXPECT_EQ(font->num_references(), 1);
  style->unreference_children();
  EXPECT_EQ(file.entity(7), nullptr);  // nothing refers to the font any more
}

TEST(FontsAndColours, DirectoryEntriesKeepTheirDefinitions) {
  IgesBuilder builder;
  builder.entity(110, 0, "0.,0.,0.,1.,1.,0.", {.line_font = -7, .colour = -3});
  builder.entity(314, 0, "10.,20.,30.,4Hmine", {.status = "00000200", .colour = 4});
  builder.entity(110, 0, "0.,0.,0.,1.,1.,0.", {.line_font = -9, .colour = -3});
  builder.entity(304, 2, "2,0.1,0.1,1H2", {.line_font = 2, .status = "00000200"});
  builder.entity(304, 1, "1,11,0.5,1.", {.line_font = 1, .status = "00000200"});
  builder.entity(308, 0, "0,3HSUB,1,13", {.status = "00000200"});
  builder.entity(110, 0, "0.,0.,0.,1.,1.,0.", {.line_font = -3, .colour = -7});  // the wrong way round
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  igsFile again;
  ASSERT_EQ(read_text(again, written(file)), 1);
  for (const igsFile* each : {&file, &again}) {
    igsObjectSystem::set_current_file(*each);
    for (const int de : {1, 5}) {
      EXPECT_EQ(each->entity(de)->directory_entry().colour().field(), -3);
      EXPECT_EQ(each->entity(de)->directory_entry().line_font().field(), de == 1 ? -7 : -9);
      EXPECT_EQ(each->entity(de)->check(), 1);
    }
    EXPECT_EQ(each->entity(3)->num_references(), 3);
    EXPECT_EQ(each->entity(13)->check(), 0);
  }
}
}  // namespace
}  // namespace igs_test
