// General notes, leaders, sectioned areas.

#include <gtest/gtest.h>

#include <memory>

#include "igs/annotation/igs212.h"
#include "igs/annotation/igs214.h"
#include "igs/annotation/igs230.h"
#include "igs/curves/igs110.h"
#include "igs/structure/igs310.h"
#include "objects/test_node.h"
#include "record_model.h"

namespace igs_test {
namespace {
const std::string lowest = "-1.7976931348623157D+308";

/// What the entity under test may refer to, from DE 3 on.
const std::vector<std::string> others{
    "310,1,4HFONT,0,8,1,65,10,0,1,0,5,5",  // 3: a text font
    "310,1,4HFONT,0,8,1,65,10,0,1,7,5,5",  // 5: one with a fault that can be repaired
    "310,1,4HFONT,0,0,1,65,10,0,1,0,5,5",  // 7: one with a fault that cannot
    "110,0.,0.,0.,1.,1.,0.",               // 9: a curve
    "102,1,15",                            // 11: a curve with a fault that can be repaired
    "102,0",                               // 13: one with a fault that cannot
    "106/2,2,2,0.,0.,0.,1.,0.,0.",         // 15: a point set
    "116,1.,2.,3.,0",                      // 17: a point
    "310,1,4HFONT,-1,8,1,65,10,0,0",       // 19: faulty in that it refers to what is no text font
    "102,1,1",                             // 21: faulty in that it refers to what is no curve
};

struct Model : RecordModel {
  explicit Model(const std::string& record) : RecordModel(with_others(record, others), 1) {}
};

std::string note(const std::string& text, const std::string& count) {
  return "212,1," + count + ",4.,2.,1001,1.5,0.5,1,1,1.,2.,3.," + text;
}

TEST(Notes, SoundOnesSurviveWritingAndReading) {
  const std::string text = "a;b,cH 5H d";
  const std::string long_text = std::string(50, 'x') + std::string(100, ' ') + ",;" + std::string(50, 'y');
  std::vector<std::string> records{
      "212,2,3,4.,2.,-3,1.5,0.5,2,0,1.,2.,3.,3HABC,1,4.,2.,17,1.4,-0.5,0,1,0.,0.,0.,1H,",
      note(hollerith(text), "11"),
      note(hollerith(long_text), "202"),
      note("0H", "0"),
      "214/4,1,0.,0.,0.,1.,2.,1.,2.",
      "230,9,19,1.,2.,3.,0.5,0.25,2,9,9",
      "230,9,0,1.,2.,3.,0.,0.,0",
  };
  for (const int form : {1, 2, 3, 4, 5, 6, 7, 8, 100, 101, 102, 105}) {
    records.push_back("212/" + std::to_string(form) + note("2HAB", "2").substr(3));
  }
  for (int form = 1; form <= 12; ++form) {
    records.push_back("214/" + std::to_string(form) + ",2,0.5,0.25,3.,1.,2.,3.,4.,3.,4.");
  }
  for (const std::string& record : records) {
    SCOPED_TRACE(record);
    Model model(record);
    ASSERT_EQ(model.read, 1);
    EXPECT_EQ(model.found(), "");
    EXPECT_EQ(model.file.entity(1)->directory_entry().form_number(), form_of(record));
    const std::string before = printed_data(*model.file.entity(1));
    const std::string first = written(model.file);
    igsFile again;
    ASSERT_EQ(read_text(again, first), 1);
    EXPECT_EQ(printed_data(*again.entity(1)), before);
    EXPECT_EQ(written(again), first);
    if (record.size() < 150) {
      EXPECT_EQ(model.data(), without_form(record));
    }
  }
  Model model(note(hollerith(long_text), "202"));
  EXPECT_EQ(entity_of<igs212>(model.file).string(0).text(), long_text);
}

TEST(Notes, WhatTheRecordDoesNotGiveHasTheStandardsDefaults) {
  const std::string half_pi = "1.5707963267949", quarter_pi = "0.785398163397448";
  const struct {
    std::string record, written, found;
  } cases[] = {
      {"212,1,2,4.,2.,,,,,,1.,2.,3.,2HAB", "212,1,2,4.,2.,1," + half_pi + ",0.,0,0,1.,2.,3.,2HAB", ""},
      {"212,1,2,4.,2.,0,0.,,,,1.,2.,3.,2HAB", "212,1,2,4.,2.,0,0.,0.,0,0,1.,2.,3.,2HAB", ""},
      {"212,1,0,4.", "212,1,0,4.,0.,1," + half_pi + ",0.,0,0,0.,0.,0.,0H", ""},
      {"212,2,1,1.,1.,1,1.,0.,0,0,0.,0.,0.,1HA",
       "212,2,1,1.,1.,1,1.,0.,0,0,0.,0.,0.,1HA,0,0.,0.,1," + half_pi + ",0.,0,0," + lowest + ',' + lowest + ',' +
           lowest + ",0H",
       "igs212InvalidStartPoint 1"},
      {"212,1,2,4.,2.,-9999,1.,0.,0,0,1.,2.,3.,2HAB", "212,1,2,4.,2.,1,1.,0.,0,0,1.,2.,3.,2HAB", ""},
      {"214/1,1", "214,1,0.,0.,0.,0.,0.," + lowest + ',' + lowest, "igs214InvalidTail 0"},
      {"230,9,1,0.,0.,0.,1.,,0", "230,9,1,0.,0.,0.,1.," + quarter_pi + ",0", ""},
      {"230,9,1,0.,0.,0.,1.", "230,9,1,0.,0.,0.,1.," + quarter_pi + ",0", ""},
      {"230,9,1,0.,0.,0.,1.,0.,0", "230,9,1,0.,0.,0.,1.,0.,0", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record);
    EXPECT_EQ(model.found(), c.found);
    EXPECT_EQ(model.data(), c.written);
  }
}

TEST(Notes, TheNumberOfCharactersIsWrittenAsTheTextIs) {
  const struct {
    std::string count, text, written_count, written_text, found;
  } cases[] = {
      {"4", "4HAB  ", "2", "2HAB", ""},
      {"2", "4HAB  ", "2", "2HAB", ""},
      {"3", "4HAB  ", "2", "2HAB", "igs212BadCharacterCount 0,3,4"},
      {"5", "2HAB", "2", "2HAB", "igs212BadCharacterCount 0,5,2"},
      {"-1", "2HAB", "2", "2HAB", "igs212BadCharacterCount 0,-1,2"},
      {"", "2HAB", "2", "2HAB", "igs212BadCharacterCount 0,0,2"},
      {"0", "3H   ", "0", "0H", ""},
      {"3", "3H  A", "3", "3H  A", ""},
      {"5", "", "0", "0H", "igs212BadCharacterCount 0,5,0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.count + ' ' + c.text);
    Model model(note(c.text, c.count));
    EXPECT_EQ(model.found(), c.found);
    EXPECT_EQ(model.data(), note(c.written_text, c.written_count));
    if (!c.found.empty()) {
      EXPECT_EQ(object_errors(model.file).front()->fix(), 1);
    }
    EXPECT_EQ(model.found(), "");
  }
}

TEST(Notes, Print) {
  const struct {
    const char *record, *printed;
  } cases[] = {
      {"212,1,3,4.,2.,-9999,1.5,0.5,1,0,1.,2.,3.,2HAB",
       "NumberOfStrings = 1\nStrings = {\n\t(0) = {\n\t\tNumberOfCharacters = 3\n\t\tBoxWidth = 4\n\t\tBoxHeight = 2\n"
       "\t\tFontCode = 1\n\t\tSlantAngle = 1.5\n\t\tRotationAngle = 0.5\n\t\tMirrorFlag = 1\n\t\tRotateFlag = 0\n"
       "\t\tStart = (1, 2, 3)\n\t\tText = AB\n\t}\n}\n"},
      {"214/1,1,0.5,0.25,3.,1.,2.,3.,4.",
       "NumberOfSegments = 1\nArrowHeight = 0.5\nArrowWidth = 0.25\nZLevel = 3\nArrowHead = (1, 2)\n"
       "Tails = {\n\t(0) = (3, 4)\n}\n"},
      {"230,0,2,1.,2.,3.,0.5,0.25,1,0",
       "Boundary = {\n\t(NullPointer)\n}\nPattern = 2\nPoint = (1, 2, 3)\nDistance = 0.5\nAngle = 0.25\n"
       "NumberOfIslands = 1\nIslands = {\n\t(0) = {\n\t\t(NullPointer)\n\t}\n}\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(printed_data(*Model(c.record).file.entity(1)), c.printed);
  EXPECT_NE(printed_data(*Model("212,1,2,4.,2.,-3,1.,0.,0,0,1.,2.,3.,2HAB").file.entity(1)).find("FontName = FONT"),
            std::string::npos);
}

TEST(Notes, EveryReferenceIsTested) {
  const std::vector<ReferenceCase> cases = {
      {"212,1,0,1.,1.,-@,1.,0.,0,0,0.,0.,0.,0H",
       "",
       "igs212WrongFontType 0",
       "igs212InvalidFont 0",
       {1, 9},
       {5, 7, 19}},
      {"230,@,0,0.,0.,0.,1.,1.,0",
       "igs230NullBoundary",
       "igs230WrongBoundaryType",
       "igs230InvalidBoundary",
       {1, 3, 15},
       {11, 13, 21}},
      {"230,9,0,0.,0.,0.,1.,1.,2,9,@",
       "igs230NullIsland 1",
       "igs230WrongIslandType 1",
       "igs230InvalidIsland 1",
       {1, 3, 15},
       {11, 13, 21}},
  };
  expect_references_tested(cases, [](const std::string& record) { return std::make_unique<Model>(record); });
}

TEST(Notes, OtherFaults) {
  const struct {
    std::string record, found;
  } cases[] = {
      {"212,0", "igs212NoStrings"},
      {"212,2,0,1.,1.,1,1.,0.,0,0,0.,0.,0.,0H,0,-1.,-2.,1,1.,0.,3,2," + lowest + ",0.,0.,0H",
       "igs212InvalidBoxWidth 1,-1; igs212InvalidBoxHeight 1,-2; igs212InvalidMirrorFlag 1,3; "
       "igs212InvalidRotateFlag 1,2; igs212InvalidStartPoint 1"},
      {"212,1,0,1.,1.,1,1.,0.,-1,-1,0.,0.,0.,0H", "igs212InvalidMirrorFlag 0,-1; igs212InvalidRotateFlag 0,-1"},
      {"214/1,0,1.,1.,0.,0.,0.", "igs214NoSegments"},
      {"214/1,2,-1.,-2.," + lowest + ',' + lowest + ",0.,0.,0.," + lowest + ",0.",
       "igs214InvalidArrowHeight -1; igs214InvalidArrowWidth -2; igs214InvalidZLevel; igs214InvalidArrowHead; "
       "igs214InvalidTail 1"},
      {"230,9,-1," + lowest + ",0.,0.,-1.," + lowest + ",0",
       "igs230InvalidPattern -1; igs230InvalidPoint; igs230InvalidDistance -1; igs230InvalidAngle"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    EXPECT_EQ(Model(c.record).found(), c.found);
  }
}

TEST(Notes, Repairs) {
  const struct {
    std::string record, repaired, left;  // "": nothing is changed
  } cases[] = {
      {"212,2,0,1.,1.,1,1.,0.,3,2,0.,0.,0.,0H,0,1.,1.,1,1.,0.,-1,0,0.,0.,0.,0H",
       "212,2,0,1.,1.,1,1.,0.,0,0,0.,0.,0.,0H,0,1.,1.,1,1.,0.,0,0,0.,0.,0.,0H", ""},
      {"212,1,0,-1.,-1.,1,1.,0.,0,0,0.,0.,0.,0H", "", "igs212InvalidBoxWidth 0,-1; igs212InvalidBoxHeight 0,-1"},
      {"212,1,0,1.,1.,-5,1.,0.,0,0,0.,0.,0.,0H", "", ""},
      {"212,1,0,1.,1.,-7,1.,0.,0,0,0.,0.,0.,0H", "", "igs212InvalidFont 0"},
      {"212,1,0,1.,1.,-9,1.,0.,0,0,0.,0.,0.,0H", "", "igs212WrongFontType 0"},
      {"212,0", "", "igs212NoStrings"},
      {"214/1,1,-1.,1.,0.,0.,0.,1.,1.", "", "igs214InvalidArrowHeight -1"},
      {"230,9,-1,0.,0.,0.,1.,1.,0", "230,9,1,0.,0.,0.,1.,1.,0", ""},
      {"230,9,1,0.,0.,0.,-1.,1.,0", "", "igs230InvalidDistance -1"},
      {"230,11,1,0.,0.,0.,1.,1.,1,11", "", ""},
      {"230,13,1,0.,0.,0.,1.,1.,1,13", "", "igs230InvalidBoundary; igs230InvalidIsland 0"},
      {"230,15,1,0.,0.,0.,1.,1.,0", "230,23,1,0.,0.,0.,1.,1.,0", ""},  // others share the point set
      {"230,17,1,0.,0.,0.,1.,1.,1,17", "", "igs230WrongBoundaryType; igs230WrongIslandType 0"},
      {"230,0,1,0.,0.,0.,1.,1.,0", "", "igs230NullBoundary"},
      {"230,9,1,0.,0.,0.,1.,1.,5,0,11,0,0,9", "230,9,1,0.,0.,0.,1.,1.,2,11,9", ""},
      {"230,9,1,0.,0.,0.,1.,1.,4,0,13,0,17", "230,9,1,0.,0.,0.,1.,1.,2,13,17",
       "igs230InvalidIsland 0; igs230WrongIslandType 1"},
      {"230,9,1,0.,0.,0.,1.,1.,2,0,0", "230,9,1,0.,0.,0.,1.,1.,0", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record);
    Model model(c.record);
    model.file.clean(0);
    EXPECT_EQ(model.errors().empty(), c.left.empty());  // an entity that keeps errors is one to delete
    EXPECT_EQ(model.found(), c.left);
    EXPECT_EQ(model.data(), without_form(c.repaired.empty() ? c.record : c.repaired));
  }
}

TEST(Notes, ACountThatCannotBeUsedLosesTheEntity) {
  const struct {
    const char *record, *error;
  } cases[] = {
      {"212,-1", "igs212BadNumStrings 1 -1"},
      {"212,257,2,1.,1.,1,1.,0.,0,0,0.,0.,0.,2HAB", "igs212BadNumStrings 1 257"},
      {"214/1,2000000000,1.,1.,0.,0.,0.,1.,1.", "igs214BadNumSegments 1 2000000000"},
      {"214/1,-2147483648,1.,1.,0.,0.,0.,1.,1.", "igs214BadNumSegments 1 -2147483648"},
      {"230,9,1,0.,0.,0.,1.,1.,257,9", "igs230BadNumIslands 1 257"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.error);
    const Model model(c.record);
    EXPECT_EQ(model.file.entity(1), nullptr);
    ASSERT_FALSE(object_errors(model.file).empty());
    EXPECT_EQ(describe(*object_errors(model.file).front()), c.error);
  }
}

TEST(Notes, AreBuiltFromNothing) {
  igsFile file;
  auto* const note = new igs212;
  EXPECT_EQ(found_by_check(*note), std::vector<std::string>{"igs212NoStrings 1"});
  igsNoteString string("M 10,5");
  string.set_start({1, 2, 0});
  string.set_slant_angle(1.5);
  string.set_width(4);
  string.set_height(1);
  note->add_string(string);
  EXPECT_EQ(note->set_number_of_strings(-1), 0);
  EXPECT_EQ(note->set_number_of_strings(3), 1);
  string.set_font_code(igsFontCode(igsObjectPtr(new igs310)));  // DE 3
  string.set_text("x");
  EXPECT_EQ(note->set_string(1, string), 1);
  EXPECT_EQ(note->set_string(3, string), 0);
  EXPECT_EQ(note->string_at(3), nullptr);
  ASSERT_NE(note->string_at(2), nullptr);
  *note->string_at(2) = string;
  note->string_at(2)->set_font_code(igsFontCode(1003));
  EXPECT_EQ(note->string(3).text(), "");
  EXPECT_EQ(written_data(file),
            "212,3,6,4.,1.,1,1.5,0.,0,0,1.,2.,0.,6HM 10,5,1,4.,1.,-3,1.5,0.,0,0,1.,2.,0.,1Hx,1,4.,1.,1003,1.5,0.,0,0,"
            "1.,2.,0.,1Hx;");
  string = igsNoteString();
  EXPECT_EQ(file.entity(3)->num_references(), 1);
  delete file.entity(3);
  EXPECT_EQ(found_by_check(*note), std::vector<std::string>());
  EXPECT_EQ(note->string(1).font_code().field(), 1);

  auto* const leader = new igs214;  // takes the place that has become free, or the next
  EXPECT_EQ(leader->set_number_of_segments(1), 1);
  EXPECT_EQ(leader->check(), 0);
  leader->set_arrow_head({1, 2});
  leader->set_z_level(0);
  EXPECT_EQ(leader->set_tail(1, {3, 4}), 0);
  EXPECT_EQ(leader->set_tail(0, {3, 4}), 1);
  leader->add_tail({5, 6});
  EXPECT_EQ(leader->check(), 1);
  EXPECT_TRUE(leader->tail(2).is_undefined());
  EXPECT_EQ(leader->tail(1), giPoint2(5, 6));

  auto* const area = new igs230;
  auto* const line = new igs110;
  area->set_boundary(line);
  area->set_point({0, 0, 0});
  area->set_islands({line, igsObjectPtr()});
  EXPECT_EQ(area->set_island(2, line), 0);
  EXPECT_EQ(area->island(2).object(), nullptr);
  EXPECT_EQ(area->island(0).object(), line);
  area->remove_null_islands(1);
  EXPECT_EQ(area->number_of_islands(), 1);
  EXPECT_EQ(area->get_current_index(1), -1);
}

TEST(Notes, ManyFaultsOfOneEntityTakeLinearTime) {
  igsFile file;
  auto* const note = new igs212;
  igsNoteString string("text");
  string.set_start({0, 0, 0});
  string.set_mirror_flag(9);
  string.set_number_of_characters(9);
  for (int i = 0; i < chain_length / 4; ++i) note->add_string(string);
  auto* const area = new igs230;
  auto* const line = new igs110;
  line->set_start_point({0, 0, 0});
  line->set_end_point({1, 0, 0});
  area->set_boundary(line);
  area->set_point({0, 0, 0});
  std::vector<igsObjectPtr> islands;
  for (int i = 0; i < chain_length / 4; ++i) islands.insert(islands.end(), {igsObjectPtr(), igsObjectPtr(line)});
  area->set_islands(std::move(islands));
  file.clean(0);
  EXPECT_EQ(note->num_logged_errors(), 0);
  EXPECT_EQ(area->num_logged_errors(), 0);
  EXPECT_EQ(area->number_of_islands(), chain_length / 4);
  EXPECT_EQ(area->get_current_index(0), -1);
  area->check();
  EXPECT_EQ(area->get_current_index(0), 0);
}
}  // namespace
}  // namespace igs_test
