// Files in memory: their entities and slots, what is asked of them after reading, and how they are written. What files
// say and how they are damaged: cases/file.case; streams and folders that fail: stream_faults_test.cpp.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <utility>

#include "iges_builder.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igsConvert.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/support/coResourceTable.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The entities that an iterator visits, which then stands before the first again.
template <class Iterator>
std::vector<igsObject*> visited(Iterator it) {
  std::vector<igsObject*> objects;
  EXPECT_EQ(it(), nullptr);
  while (++it != 0) objects.push_back(it());
  EXPECT_EQ(it(), nullptr);
  return objects;
}

TEST(File, AnswersWhatItHasRead) {
  IgesBuilder builder;
  builder.line(2);
  for (const int form : {0, 5}) builder.entity(0, form, "");
  builder.entity(125, 0, "1.,2.");
  builder.entity(124, 10, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.");
  igsFile file;
  EXPECT_EQ(file.parameter_data_read(), 1);
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_THAT((std::vector{file.num_entities(), file.num_nulls(), file.num_unknowns()}), ElementsAre(1, 2, 2));
  EXPECT_EQ(file.dropped_entities(),
            (std::map<std::pair<int, int>, int>{{{0, 0}, 1}, {{0, 5}, 1}, {{124, 10}, 1}, {{125, 0}, 1}}));
  EXPECT_EQ(static_cast<igs110*>(file.entity(1))->end_point(), giPoint3(2, 0, 0));
  for (const int de : {-1, 0, 2, 3, 11, 9999999}) EXPECT_EQ(file.entity(de), nullptr) << de;
  for (const char section : std::string("SGDPT")) {  // a bad record ends the section before it
    igsFile damaged;
    EXPECT_EQ(read_text(damaged, IgesBuilder(builder).columns(section, 1, 73, "X").text()), 0);
    EXPECT_EQ(damaged.parameter_data_read(), 0) << section;
    EXPECT_EQ(damaged.read_fault().code, igsIONoSectionLetter) << section;
  }
}

TEST(File, WritingClosesGaps) {
  IgesBuilder builder;
  for (int i = 1; i <= 3; ++i) builder.line(i);
  builder.entity(116, 0, "1.,2.,3.,5");
  igsFile file("part.igs");
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_EQ(file.pathname(), "part.igs");
  const igsObject *first = file.entity(1), *second = file.entity(5), *point = file.entity(7);
  delete file.entity(3);
  EXPECT_EQ(file.num_entities(), 3);
  EXPECT_THAT(printed(file), HasSubstr("NoOfEntities = 4\n"));
  const std::string text = written(file);
  EXPECT_EQ(column_fault(text), "");
  EXPECT_THAT(visited(igsFileIT(&file)), ElementsAre(first, second, point));
  EXPECT_EQ(second->de_number(), 3);
  EXPECT_THAT(printed(file), HasSubstr("NoOfEntities = 3\n"));
  EXPECT_THAT(records_of(text, 'P').back(), HasSubstr("116,1.,2.,3.,3;")) << "the reference follows";
  EXPECT_EQ((new Node)->de_number(), 7) << "no free slot is left";
}

TEST(File, ReplacementTakesOverNumberAndReferences) {
  igsFile file;
  auto *old = new igs110, *other = new igs110;
  auto* point = new igs116;
  point->set_display_symbol(igsObjectPtr(old));
  const igsObjectPtr pointer(1), to_point(5), to_other(other);
  auto* replacement = new Node;
  const igsObjectPtr direct(replacement);
  file.make_kept_parts(*old).comment = "kept";
  EXPECT_EQ(replacement->de_number(), 7);
  EXPECT_EQ(file.replace_entity(old, nullptr) + file.replace_entity(nullptr, old) + file.replace_entity(old, old), 0);
  {
    igsFile elsewhere;
    EXPECT_EQ(file.replace_entity(old, new Node) + elsewhere.replace_entity(old, replacement), 0);
  }
  EXPECT_THAT(visited(igsFileIT(&file)), ElementsAre(old, other, point, replacement));
  EXPECT_EQ(file.replace_entity(old, replacement), 1);
  EXPECT_EQ(replacement->de_number(), 1);
  EXPECT_THAT(visited(igsFileIT(&file)), ElementsAre(replacement, other, point));
  for (const igsObjectPtr* p : {&pointer, &direct, &point->display_symbol()}) EXPECT_EQ(p->object(), replacement);
  EXPECT_EQ(std::pair(to_point.object(), to_other.object()), (std::pair<igsObject*, igsObject*>(point, other)));
  EXPECT_EQ(replacement->num_references(), 3);
  ASSERT_NE(file.kept_parts(*replacement), nullptr);
  EXPECT_EQ(file.kept_parts(*replacement)->comment, "kept");
  EXPECT_EQ(file.num_entities(), 3);
}

TEST(File, LinesWithoutEndsByOption) {
  IgesBuilder builder;
  for (const int form : {0, 1, 2, 3}) builder.entity(110, form, "1.,2.,3.,4.,5.,6.");
  for (const int form : {1, 2}) builder.entity(110, form, "1.,2.,3.,1.,2.,3.");
  for (const int directrix : {3, 5}) builder.entity(122, 0, std::to_string(directrix) + ",1.,2.,3.");
  igsFile file;
  file.set_options({.unbounded_lines = true});
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const auto line = [&file](int de) { return static_cast<const igs110*>(file.entity(de)); };
  EXPECT_TRUE(line(1)->is_bounded() && line(3)->has_start() && line(7)->is_bounded());
  EXPECT_FALSE(line(3)->is_bounded() || line(5)->is_bounded() || line(5)->has_start());
  EXPECT_NE(igsConvert::to_curve(line(7)), nullptr);
  for (const int de : {3, 5}) EXPECT_EQ(igsConvert::to_curve(line(de)), nullptr) << de;
  file.clean(0);
  EXPECT_THAT(active_errors(file), ElementsAre("igs110CoincidentPoints 9 1e-06", "igs110CoincidentPoints 11 1e-06",
                                               "igs122CoincidentPoints 13 1e-06", "igsFileDefaultedForm 7 110,3"));
  igsFile again, plain;
  again.set_options(file.options());
  const std::string text = written(file);
  ASSERT_EQ(read_text(again, text) + read_text(plain, text), 2);
  EXPECT_EQ(written(again), text);
  for (const int de : {3, 5}) {
    EXPECT_EQ(again.entity(de)->directory_entry().form_number(), de / 2);
    EXPECT_EQ(plain.entity(de)->directory_entry().form_number(), 0);
  }
  EXPECT_EQ(igsInfoDB::form_name(110, 2, file.options()), "Unbounded");
  EXPECT_FALSE(igsInfoDB::form_exists(110, 3, file.options()) || igsInfoDB::form_exists(110, 2, {}));
}

TEST(File, IteratorsPassOverWhatTheyShould) {
  igsFile file;
  auto *a = new Node, *b = new Node;
  auto* line = new igs110;
  auto* c = new Node;
  a->children = {igsObjectPtr(c)};
  delete b;
  EXPECT_THAT(visited(igsFileIT(&file)), ElementsAre(a, line, c));
  EXPECT_THAT(visited(igsFileIT(&file, 1)), ElementsAre(a, line));
  EXPECT_THAT(visited(igsFileTypeIT(&file, Node::type())), ElementsAre(a, c));
  EXPECT_THAT(visited(igsFileTypeIT(&file, Node::type(), 1)), ElementsAre(a));
  EXPECT_THAT(visited(igsFileTypeIT(&file, igsCurve::type())), IsEmpty()) << "exact classes only";
  igsFileIT it(&file);
  while (++it != 0) delete it();
  EXPECT_EQ(file.num_entities(), 0);
}

TEST(File, OtherDelimitersAreReadAndKept) {
  using Row = std::array<std::string, 3>;  // both, and how the file says them
  for (const auto& [both, first, second] : {Row{"/$", "1H/", "1H$"}, Row{"|#", "1H|", "1H#"}, Row{";,", "1H;", "1H,"},
                                            Row{",;", "", ""}, Row{",;", "1H,", " 1H;"}, Row{",#", "", "1H#"}}) {
    const std::string p = both.substr(0, 1), record = both.substr(1);
    IgesBuilder builder;
    builder.delimiters(p[0], record[0]).global(1, first).global(2, second).global(3, "1Ht");
    builder.entity(116, 0, "1." + p + "2.");
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1) << both;
    EXPECT_THAT(active_errors(file), IsEmpty()) << both;
    const std::string text = written(file);
    EXPECT_EQ(column_fault(text), "");
    EXPECT_EQ(records_of(text, 'P').at(0).substr(0, 14), "116" + p + "1." + p + "2." + p + "0." + p + '0') << both;
    EXPECT_EQ(records_of(text, 'G').at(0).substr(0, 8), "1H" + p + p + "1H" + record + p);
  }
}

TEST(File, ParametricEntitiesHaveTheirOwnPrecision) {
  IgesBuilder builder;
  for (const char* use : {"000", "500", "000"})
    builder.entity(116, 0, "1.23456789,2.,3.,0", {.status = std::string("00000") + use});
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  coResourceTable& options = kel_resource_table_inquire();
  const coResourceTable usual = options;
  options.set_value(kelOptDoubleParametricPrecision, 4);
  std::string starts;
  for (const std::string& record : records_of(written(file), 'P')) starts += record.substr(4, 10) + ' ';
  options = usual;
  EXPECT_EQ(starts, "1.23456789 1.235,2.,3 1.23456789 ");
}

}  // namespace
}  // namespace igs_test
