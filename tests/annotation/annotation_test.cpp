// What hosts do to drawing entities, beyond what files can say.

#include <gtest/gtest.h>

#include "geometry/geometry_fixture.h"

namespace igs_test {
namespace {
TEST(Annotation, PositionsAreFollowedThroughRepairs) {
  igsFile file;
  igsObjectPtr ends[5];
  for (igsObjectPtr& end : ends) end = new igs310;  // 1, 3, 5, 7, 9
  auto* const symbol = new igs228;
  symbol->set_geometry({nullptr, ends[0], nullptr, ends[1]});
  symbol->set_leaders({ends[2], nullptr, ends[3]});
  symbol->check();
  symbol->remove_null_geometry(2);
  symbol->remove_null_leaders(1);
  EXPECT_EQ(answers(0, 3, [&](int i) { return symbol->current_geometry_index(i); }), "-1 0 -1 1 ");
  EXPECT_EQ(symbol->current_leader_index(2), 1);
  EXPECT_EQ(answers(1, 2, [&](int i) { return symbol->leader(i).de_number(); }), "7 0 ");
  EXPECT_EQ(symbol->set_leader(2, ends[4]) + symbol->set_geometry(-1, ends[4]), 0);
  EXPECT_EQ(symbol->set_leader(1, ends[4]) + symbol->set_geometry(0, ends[4]), 2);
  EXPECT_EQ(written_data(file, 11), "228,0,2,9,3,2,5,9;");
}

/// The second leader of a radius dimension, and the leader of an ordinate dimension, exist in form 1 alone.
TEST(Annotation, AFieldThatTheFormLacksIsNotWrittenButGivenUp) {
  for (const bool ordinate : {false, true}) {
    igsFile file;
    read_entities(file,
                  (ordinate ? "218:1 5,7,3" : "222:1 5,3,1.,2.,3") + std::string(" 214:1 1,1.,1.,0.,0.,0.,1.,1."));
    auto& dimension = entity_of<igsObject>(file);
    if (!ordinate) entity_of<igs222>(file).set_leader({});
    dimension.directory_entry().set_form_number(0);
    EXPECT_EQ(printed_data(dimension).find("@3"), std::string::npos);
    EXPECT_EQ(file.entity(3)->num_references(), 1);
    EXPECT_EQ(written_data(file), ordinate ? "218,0,0;" : "222,0,0,1.,2.;");
    dimension.unreference_children();
    EXPECT_EQ(file.entity(3), nullptr);
  }
}

TEST(Annotation, NotesAndLinesOfHosts) {
  igsFile file;
  auto* const note = new igs212;  // 1
  igsNoteString string("M 10,5");
  string.set_start({1, 2, 0});
  string.set_slant_angle(1.5);
  note->add_string(string);
  EXPECT_EQ(note->set_number_of_strings(2), 1);
  string.set_font_code(igsFontCode(igsObjectPtr(new igs310)));  // 3
  *note->string_at(1) = string;
  EXPECT_EQ(written_data(file),
            "212,2,6,0.,0.,1,1.5,0.,0,0,1.,2.,0.,6HM 10,5,6,0.,0.,-3,1.5,0.,0,0,1.,2.,0.,6HM 10,5;");
  string = igsNoteString();
  EXPECT_EQ(file.entity(3)->num_references(), 1);
  delete file.entity(3);
  EXPECT_EQ(note->string(1).font_code().field(), 1);
  auto* const line = new igsWitnessLine;
  EXPECT_EQ(line->set_size(-1), 0);
  EXPECT_EQ(line->set_size(2), 1);
  EXPECT_EQ(answers(1, 2, [&](int i) { return line->set_planar_point(i, {1, 1}); }), "1 0 ");
  line->append_point({2, 2});
  EXPECT_EQ(line->number_of_points(), 3);
  for (int left = 2; left >= -1; --left) line->remove_last_point();
  EXPECT_EQ(line->number_of_points(), 0);
}
}  // namespace
}  // namespace igs_test
