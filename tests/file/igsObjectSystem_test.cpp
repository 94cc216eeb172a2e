#include "igs/file/igsObjectSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/curves/igs110.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/objects/igsObjectManager.h"
#include "objects/test_node.h"

namespace {

using namespace igs_test;  // NOLINT(google-build-using-namespace): the test's own vocabulary
using testing::ElementsAre;
using testing::IsEmpty;

igsFilecoDynArr all_files() {
  igsFilecoDynArr files{nullptr, nullptr};  // to be replaced
  igsObjectSystem::get_all_files(files);
  return files;
}

TEST(ObjectSystem, ComesUpWithOneEmptyFile) {
  igsObjectSystem::initialize_system();
  igsObjectSystem::initialize_system();
  ASSERT_THAT(all_files(), testing::SizeIs(1));
  EXPECT_EQ(&igsObjectSystem::file(), all_files()[0]);
  EXPECT_EQ(all_files()[0]->num_entities(), 0);
  EXPECT_EQ(&igsObjectSystem::log(), &all_files()[0]->error_log());
}

TEST(ObjectSystem, LocationsAreReused) {
  auto a = std::make_unique<igsFile>(), b = std::make_unique<igsFile>(), c = std::make_unique<igsFile>();
  EXPECT_EQ(&igsObjectSystem::file(), c.get());
  igsFilecoDynArr files = all_files();
  const igsFile *old_a = a.get(), *old_b = b.get();
  a.reset();
  EXPECT_EQ(&igsObjectSystem::file(), c.get()) << "another file's deletion changes nothing";
  EXPECT_EQ(all_files().size(), files.size() - 1);
  b.reset();
  igsFile d, e;  // the location freed last is used first
  std::replace(files.begin(), files.end(), const_cast<igsFile*>(old_b), &d);
  std::replace(files.begin(), files.end(), const_cast<igsFile*>(old_a), &e);
  EXPECT_EQ(all_files(), files);
}

TEST(ObjectSystem, LowestRemainingFileBecomesCurrent) {
  igsObjectSystem::initialize_system();
  for (int i = 0; i < 3; ++i) new igsFile;
  while (all_files().size() > 1) {
    igsFile* current = &igsObjectSystem::file();
    delete current;
    EXPECT_EQ(&igsObjectSystem::file(), all_files()[0]);
    if (all_files().size() > 1) igsObjectSystem::set_current_file(*all_files()[1]);
    if (all_files().size() == 3) delete all_files()[0];  // which is not the current one
  }
}

TEST(ObjectSystem, NewThingsGoToTheCurrentFile) {
  igsFile one, two;
  EXPECT_EQ((new Node)->de_number(), 1);
  igsObjectSystem::set_current_file(one);
  const Node* node = new Node;
  const igsObjectPtr here(1);
  new igsFileNoPDData(1);
  igsObjectSystem::set_current_file(two);
  const igsObjectPtr there(1);
  new igsFileNoPDData(3);
  new igsFileNoPDData(5);
  EXPECT_EQ(&node->file(), &one);
  EXPECT_EQ(here.object(), node);
  EXPECT_EQ(there.object(), two.entity(1));
  EXPECT_EQ(active_errors(one).size(), 1U);
  EXPECT_EQ(active_errors(two).size(), 2U);
  // A pointer to an entity ahead is filled by its own file alone.
  const igsObjectPtr ahead(3);
  igsObjectSystem::set_current_file(one);
  new Node;
  EXPECT_EQ(ahead.object(), nullptr);
  igsObjectSystem::set_current_file(two);
  EXPECT_EQ((new Node)->de_number(), 3);
  EXPECT_EQ(ahead.object(), two.entity(3));
}

TEST(ObjectSystem, DriversWorkOnTheirOwnFile) {
  IgesBuilder builder;
  builder.entity(110, 0, "0.,0.,0.,0.,0.,0.");
  builder.entity(999, 0, "");
  igsFile one, two;
  ASSERT_EQ(read_text(one, builder.text()), 1);
  EXPECT_EQ(&igsObjectSystem::file(), &two) << "the current file is what it was";
  EXPECT_EQ(one.num_entities(), 1);
  EXPECT_EQ(two.num_entities(), 0);
  EXPECT_THAT(active_errors(one), ElementsAre("igsFileInvalidIGESEntity 3 999"));
  one.check();
  EXPECT_THAT(active_errors(one), ElementsAre("igs110CoincidentPoints 1 1e-06", "igsFileInvalidIGESEntity 3 999"));
  one.clean(0);
  EXPECT_EQ(one.entity(1)->objtype().id_string(), "igsPolyline");
  EXPECT_EQ(column_fault(written(one)), "");
  EXPECT_NE(printed(one).find("@1(106)"), std::string::npos);
  EXPECT_EQ(&igsObjectSystem::file(), &two);
  EXPECT_THAT(active_errors(two), IsEmpty());
  EXPECT_EQ(two.num_entities(), 0);
}

TEST(ObjectSystem, EntitiesMayBeDeletedWhileAnotherFileIsCurrent) {
  igsFile one;
  Node* node = new Node;
  const igsObjectPtr pointer(node);
  igsFile two;
  new Node;
  delete node;
  EXPECT_EQ(pointer.object(), nullptr);
  EXPECT_EQ(one.num_entities(), 0);
  EXPECT_EQ(two.num_entities(), 1);
}

TEST(ObjectSystem, EntitiesAreCheckedAndPrintedInTheirOwnFile) {
  igsFile file;
  const igsObject& line = *new igs110;  // without its points
  line.manager()->set_visited(1);       // as reading leaves it
  igsFile other;
  std::ostringstream text;
  utOstream os(text);
  line.print(os);
  EXPECT_NE(text.str().find("StartPoint"), std::string::npos);
  EXPECT_EQ(line.check(), 0);
  EXPECT_EQ(active_errors(file).size(), 2U);
  EXPECT_EQ(active_errors(other).size(), 0U);
  EXPECT_EQ(&igsObjectSystem::file(), &other);
}

TEST(ObjectSystem, OutermostPassClearsTheVisitFlags) {
  igsFile file;
  const Node* node = new Node;
  node->manager()->set_visited(1);
  igsObjectSystem::reentrant_start();
  EXPECT_EQ(node->manager()->visited(), 0);
  node->manager()->set_visited(1);
  igsObjectSystem::reentrant_start();
  EXPECT_EQ(node->manager()->visited(), 1);
  igsObjectSystem::reentrant_end();
  igsObjectSystem::reentrant_end();
  EXPECT_EQ(node->manager()->visited(), 1);
  igsObjectSystem::reentrant_start();
  EXPECT_EQ(node->manager()->visited(), 0);
  igsObjectSystem::reentrant_end();
}

}  // namespace
