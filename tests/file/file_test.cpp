// Files in memory: their entities and slots, what is asked of them after reading, how they are written, and which one
// is the current file. What files say and how they are damaged: cases/file.case; streams and folders that fail:
// stream_faults_test.cpp.
#include <gmock/gmock.h>

#include <map>
#include <memory>

#include "iges_builder.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igsConvert.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsKeptParts.h"
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
  EXPECT_THAT(printed(file), HasSubstr("NoOfEntities = 4\n"));
  EXPECT_THAT(records_of(written(file), 'P').back(), HasSubstr("116,1.,2.,3.,3;")) << "the reference follows";
  EXPECT_THAT(visited(igsFileIT(&file)), ElementsAre(first, second, point));
  EXPECT_EQ(second->de_number(), 3);
  EXPECT_THAT(printed(file), HasSubstr("NoOfEntities = 3\n"));
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
  EXPECT_EQ(std::pair(replacement->num_references(), file.num_entities()), std::pair(3, 3));
  ASSERT_NE(file.kept_parts(*replacement), nullptr);
  EXPECT_EQ(file.kept_parts(*replacement)->comment, "kept");
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
    const std::string p = both.substr(0, 1);
    IgesBuilder builder;
    builder.delimiters(both[0], both[1]).global(1, first).global(2, second).global(3, "1Ht");
    builder.entity(116, 0, "1." + p + "2.");
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1) << both;
    EXPECT_THAT(active_errors(file), IsEmpty()) << both;
    const std::string text = written(file);
    EXPECT_EQ(column_fault(text), "");
    EXPECT_EQ(records_of(text, 'P').at(0).substr(0, 14), "116" + p + "1." + p + "2." + p + "0." + p + '0') << both;
    EXPECT_THAT(records_of(text, 'G').at(0), testing::StartsWith("1H" + p + p + "1H" + both[1] + p));
  }
}

igsFilecoDynArr all_files() {
  igsFilecoDynArr files{nullptr, nullptr};  // to be replaced
  igsObjectSystem::get_all_files(files);
  return files;
}

TEST(ObjectSystem, ComesUpWithOneEmptyFile) {
  for (int i = 0; i < 2; ++i) igsObjectSystem::initialize_system();
  ASSERT_THAT(all_files(), ElementsAre(&igsObjectSystem::file()));
  EXPECT_EQ(igsObjectSystem::file().num_entities(), 0);
  EXPECT_EQ(&igsObjectSystem::log(), &igsObjectSystem::file().error_log());
}

TEST(ObjectSystem, LocationsAreReused) {
  auto a = std::make_unique<igsFile>(), b = std::make_unique<igsFile>();
  const igsFile c;
  const igsFile* const first = all_files()[0];
  EXPECT_EQ(&igsObjectSystem::file(), &c);
  a.reset();
  EXPECT_EQ(&igsObjectSystem::file(), &c) << "another file's deletion changes nothing";
  EXPECT_THAT(all_files(), ElementsAre(first, b.get(), &c));
  b.reset();
  const igsFile d, e;  // the location freed last is used first
  EXPECT_THAT(all_files(), ElementsAre(first, &e, &d, &c));
}

TEST(ObjectSystem, LowestRemainingFileBecomesCurrent) {
  for (int i = 0; i < 3; ++i) new igsFile;
  while (all_files().size() > 1) {
    delete &igsObjectSystem::file();
    EXPECT_EQ(&igsObjectSystem::file(), all_files()[0]);
    if (all_files().size() > 1) igsObjectSystem::set_current_file(*all_files()[1]);
    if (all_files().size() == 3) delete all_files()[0];  // which is not the current one
  }
}

TEST(ObjectSystem, NewThingsGoToTheCurrentFile) {
  igsFile one, two;
  EXPECT_EQ((new Node)->de_number(), 1);
  const igsObjectPtr there(1), ahead(3);
  new igsFileNoPDData(3);
  igsObjectSystem::set_current_file(one);
  const Node* node = new Node;
  const igsObjectPtr here(1);
  new igsFileNoPDData(1);
  EXPECT_EQ(&node->file(), &one);
  EXPECT_EQ(here.object(), node);
  EXPECT_EQ(there.object(), two.entity(1));
  EXPECT_THAT(active_errors(one), ElementsAre("igsFileNoPDData 1"));
  EXPECT_THAT(active_errors(two), ElementsAre("igsFileNoPDData 3"));
  new Node;
  EXPECT_EQ(ahead.object(), nullptr) << "a pointer to an entity ahead is filled by its own file alone";
  igsObjectSystem::set_current_file(two);
  EXPECT_EQ((new Node)->de_number(), 3);
  EXPECT_EQ(ahead.object(), two.entity(3));
  delete node;
  EXPECT_EQ(here.object(), nullptr);
  EXPECT_EQ(std::pair(one.num_entities(), two.num_entities()), std::pair(1, 2));
}

TEST(File, StyleIsWrittenAsRead) {
  for (const std::string sample : {"D\n", "E\n", "D\r\n", "e\r\n"}) {
    const std::string letter = sample.substr(0, 1), capital = letter == "e" ? "E" : letter, end = sample.substr(1);
    const std::string begin = "110,0.1,-1.7976931348623157", middle = "+308,0.30000000000000004,1.,1.", rest = "+30,";
    IgesBuilder builder;
    builder.global(19, letter == "e" ? "1.e-6" : "1.").global(21, "6H,1.E+5").line_end(end);
    for (int i = 0; i < 900; ++i) builder.line(i);  // more than a block
    builder.entity(110, 0, begin.substr(4) + letter + middle + letter + rest + "0.");
    igsFile file;
    igsFileOptions options;
    options.style = {true, igsExponentLetter::as_read, igsLineEnd::as_read};
    file.set_options(options);
    ASSERT_EQ(read_text(file, builder.text()), 1);
    std::string text = written(file);
    for (std::size_t i = 80; end.size() == 2 && i < text.size(); i += 81) {
      ASSERT_EQ(text.substr(i, 2), end);
      text.erase(i, 1);
    }
    EXPECT_EQ(column_fault(text), "");
    EXPECT_EQ(records_of(text, 'P').at(900).substr(0, 64), left(begin + capital + middle + capital + rest, 64));
  }
}

}  // namespace
}  // namespace igs_test
