#include "igs/file/igsDirectoryEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/curves/igs116.h"
#include "igs/file/igsFile.h"
#include "objects/test_node.h"

namespace {

using namespace igs_test;  // NOLINT(google-build-using-namespace): the test's own vocabulary
using testing::ElementsAreArray;
using Strings = std::vector<std::string>;

TEST(DirectoryEntry, FieldsStandInTheirColumns) {
  igsFile file;
  Node* nodes[20];
  for (Node*& node : nodes) node = new Node;
  auto* point = new igs116;
  point->set_point({1, 2, 3});
  igsDirectoryEntry& entry = point->directory_entry();
  entry.set_structure(-3);
  entry.set_line_font(igsLineFont(-5));
  entry.set_level(igsLevel(-37));
  entry.set_view(igsObjectPtr(7));
  entry.set_label_display(igsObjectPtr(9));
  entry.set_status_flags(igsStatusFlags(1, 0, 5, 0));
  entry.set_line_weight(6);
  entry.set_colour(igsColour(7));
  entry.set_entity_label("A LABEL");
  entry.set_entity_subscript(12345);
  EXPECT_EQ(entry.level().level(), 0);
  EXPECT_EQ(entry.level().definition().object(), nodes[18]);
  EXPECT_FALSE(entry.level().predefined_colour());
  const Strings records = records_of(written(file), 'D');
  ASSERT_EQ(records.size(), 42U);
  const std::string first = "     116      21      -3      -5     -37       7       0       901000500D     41";
  const std::string second = "     116       6       7       1       0                 A LABEL   12345D     42";
  EXPECT_EQ(records[40], first);
  EXPECT_EQ(records[41], second);
  entry.set_entity_label("A LONGER LABEL");
  EXPECT_EQ(records_of(written(file), 'D').at(41).substr(40, 24), right("A LONGER", 24))
      << "reserved columns stay blank";
}

TEST(DirectoryEntry, EveryFieldSurvivesARoundTrip) {
  IgesBuilder builder;
  for (int i = 0; i < 4; ++i) builder.line();
  builder.point();
  builder.de_field(9, 3, "-7").de_field(9, 4, "-1").de_field(9, 5, "-3").de_field(9, 6, "5").de_field(9, 7, "7");
  builder.de_field(9, 8, "1").de_field(9, 9, "01020301").de_field(9, 12, "3").de_field(9, 13, "-5");
  builder.de_field(9, 18, "ABCDEFGH").de_field(9, 19, "9999999");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const igsDirectoryEntry& entry = file.entity(9)->directory_entry();
  EXPECT_EQ(entry.start_of_parameter_data(), 5);
  EXPECT_EQ(entry.parameter_line_count(), 1);
  EXPECT_EQ(entry.structure(), -7);
  EXPECT_EQ(entry.line_font().definition().de_number(), 1);
  EXPECT_EQ(entry.line_font().pattern_value(), 0);
  EXPECT_EQ(entry.level().definition().de_number(), 3);
  EXPECT_EQ(entry.view().de_number(), 5);
  EXPECT_EQ(entry.matrix().de_number(), 7);
  EXPECT_EQ(entry.label_display().de_number(), 1);
  EXPECT_EQ(entry.status_flags(), igsStatusFlags(1, 2, 3, 1));
  EXPECT_EQ(entry.line_weight(), 3);
  EXPECT_EQ(entry.colour().definition().de_number(), 5);
  EXPECT_EQ(entry.entity_label(), "ABCDEFGH");
  EXPECT_EQ(entry.entity_subscript(), 9999999);
  EXPECT_EQ(records_of(written(file), 'D'), builder.records()[2]);
}

TEST(DirectoryEntry, AttributeIsANumberOrAPointer) {
  igsFile file;
  new Node;
  for (const int number : {0, 1, 37, 99999999}) {
    const igsLevel level(number);
    EXPECT_EQ(level.level(), number);
    EXPECT_TRUE(level.predefined_colour());
    EXPECT_EQ(level.field(), number);
  }
  const igsColour colour(-1);
  EXPECT_EQ(colour.colour_value(), 0);
  EXPECT_FALSE(colour.predefined_colour());
  EXPECT_EQ(colour.field(), -1);
  for (const int nowhere : {-2, -2147483647, -2147483647 - 1}) {
    EXPECT_EQ(igsLineFont(nowhere).field(), 0) << nowhere;
    EXPECT_EQ(igsLineFont(nowhere).pattern_value(), 0) << nowhere;
  }
  delete file.entity(1);
  EXPECT_TRUE(colour.predefined_colour());
}

TEST(DirectoryEntry, BecomeCopiesEverythingButTheOwner) {
  igsFile file;
  const Node* node = new Node;
  auto *from = new igs116, *to = new igs116;
  from->directory_entry().set_matrix(igsObjectPtr(1));
  from->directory_entry().set_view(igsObjectPtr(1));
  from->directory_entry().set_entity_label("L");
  to->directory_entry().become(from->directory_entry());
  EXPECT_EQ(to->directory_entry().matrix().object(), node);
  EXPECT_EQ(to->directory_entry().entity_label(), "L");
  EXPECT_EQ(to->directory_entry().manager(), to->manager());
  EXPECT_EQ(node->num_references(), 4);
  to->directory_entry().remove_view();
  EXPECT_EQ(to->directory_entry().view().object(), nullptr);
  EXPECT_EQ(node->num_references(), 3);
}

struct Fault {
  const char* name;
  int field;
  const char* value;
  const char* error;  ///< begin of what check logs for the entity; "" for nothing
  bool repaired;
};
void PrintTo(const Fault& fault, std::ostream* os) { *os << fault.name; }

const Fault faults[] = {
    {"Sound", 4, "5", "", true},
    {"LineFontTooLarge", 4, "6", "igsDEInvalidLineFont", true},
    {"LineFontNoDefinition", 4, "-1", "igsDEInvalidLineFont", true},
    {"LevelNumber", 5, "9999999", "", true},
    {"LevelNoDefinition", 5, "-1", "igsDEInvalidLevel", true},
    {"MatrixOfAnotherClass", 7, "1", "igsDEInvalidMatrix", false},
    {"MatrixNowhere", 7, "99", "", true},
    {"ColourNumber", 13, "8", "", true},
    {"ColourTooLarge", 13, "9", "igsDEInvalidColour", true},
    {"ColourNoDefinition", 13, "-1", "igsDEInvalidColour", true},
    {"StatusFlags", 9, "02000000", "igsDEInvalidStatusFlags", false},
    {"StatusFlagsOfUse", 9, "00000700", "igsDEInvalidStatusFlags", false},
    {"LineWeightAtTheLimit", 12, "4", "", true},
    {"LineWeightAboveTheLimit", 12, "5", "igsDEInvalidLineWeight", true},
    {"LineWeightNegative", 12, "-1", "igsDEInvalidLineWeight", true},
    {"SubscriptNegative", 19, "-1", "igsDEInvalidEntitySubscript", false},
    {"ViewIsNotTested", 6, "1", "", true},
};

class DirectoryFault : public testing::TestWithParam<Fault> {};

TEST_P(DirectoryFault, IsTaggedAndRepaired) {
  const Fault& fault = GetParam();
  IgesBuilder builder;
  builder.line();
  builder.point();
  builder.global(16, "4").de_field(3, fault.field, fault.value);
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  file.check();
  const Strings errors = active_errors(file);
  if (*fault.error == '\0') {
    EXPECT_THAT(errors, testing::IsEmpty());
  } else {
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_THAT(errors[0], testing::MatchesRegex(std::string(fault.error) + " 3( .*)?"));
  }
  file.clean(0);
  EXPECT_EQ(active_errors(file).size(), fault.repaired ? 0U : 1U);
  if (!fault.repaired) return;
  file.check();
  EXPECT_THAT(active_errors(file), testing::IsEmpty()) << "a repaired entry is sound";
  const std::string field = records_of(written(file), 'D')
                                .at(fault.field > 10 ? 3 : 2)
                                .substr(static_cast<std::size_t>((fault.field - 1) % 10) * 8, 8);
  const bool kept = *fault.error == '\0' && std::string(fault.name) != "MatrixNowhere";
  EXPECT_EQ(field, right(kept ? fault.value : "0", 8));
}

INSTANTIATE_TEST_SUITE_P(DirectoryEntry, DirectoryFault, testing::ValuesIn(faults),
                         [](const auto& info) { return std::string(info.param.name); });

Strings class_names(const igsFile& file) {
  Strings names;
  for (const std::string& error : active_errors(file)) names.push_back(error.substr(0, error.find(' ')));
  return names;
}

TEST(DirectoryEntry, OneEntryCollectsAllItsFaultsInOrder) {
  const De bad{
      .line_font = 9, .level = -3, .matrix = 3, .status = "02000000", .line_weight = -1, .colour = 9, .subscript = -1};
  IgesBuilder builder;
  builder.entity(116, 0, "1.,2.,3.,0", bad);
  builder.entity(110, 0, "0.,0.,0.,0.,0.,0.");  // fails its own check
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  file.entity(1)->check();
  Strings names = class_names(file);
  names.erase(std::remove(names.begin(), names.end(), "igs110CoincidentPoints"), names.end());
  EXPECT_THAT(names, ElementsAreArray({"igsDEInvalidLineFont", "igsDEInvalidLevel", "igsDEInvalidMatrix",
                                       "igsDEInvalidMatrixData", "igsDEInvalidColour", "igsDEInvalidStatusFlags",
                                       "igsDEInvalidLineWeight", "igsDEInvalidEntitySubscript"}));
  // The matrix' own fault is repaired first, and with it the complaint about its data.
  file.clean(0);
  EXPECT_THAT(class_names(file),
              ElementsAreArray({"igsDEInvalidMatrix", "igsDEInvalidStatusFlags", "igsDEInvalidEntitySubscript"}));
}

TEST(DirectoryEntry, DirectionsHaveAShorterCheck) {
  const De bad{
      .line_font = 9, .level = -3, .matrix = 3, .status = "02000000", .line_weight = 2, .colour = 9, .subscript = -1};
  for (const bool heavy : {true, false}) {
    De de = bad;
    if (!heavy) de.line_weight = -1;
    IgesBuilder builder;
    builder.entity(123, 0, "1.,2.,3.", de);
    builder.line();
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    file.check();
    Strings expected{"igsDEInvalidLineFont", "igsDEInvalidLevel", "igsDEInvalidColour", "igsDEInvalidStatusFlags"};
    if (heavy) expected.emplace_back("igsDEInvalidLineWeight");
    expected.emplace_back("igsDEInvalidEntitySubscript");
    EXPECT_THAT(class_names(file), ElementsAreArray(expected));
  }
}

TEST(StatusFlags, ValuesHaveNames) {
  using F = igsStatusFlags;
  const struct {
    const char* (*name)(int);
    Strings names;
  } tables[] = {
      {F::blank_status_name, {"Visible", "Blanked"}},
      {F::subordinate_status_name,
       {"Independent", "Physically Dependent", "Logically Dependent", "Physically and Logically Dependent"}},
      {F::entity_use_name,
       {"Geometry", "Annotation", "Definition", "Other", "Logical/Positional", "2D Parametric", "Constructional"}},
      {F::hierarchy_name, {"Global top down", "Global defer", "Use hierarchy property"}},
  };
  for (const auto& table : tables) {
    const int count = static_cast<int>(table.names.size());
    for (int i = 0; i < count; ++i) EXPECT_EQ(table.name(i), table.names[static_cast<std::size_t>(i)]);
    EXPECT_STREQ(table.name(-1), "Unknown");
    EXPECT_STREQ(table.name(count), "Unknown");
  }
}

}  // namespace
