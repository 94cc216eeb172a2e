#include "igs/file/igsObjectSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "iges_builder.h"
#include "igs/curves/igs110.h"
#include "igs/file/igsFile_errors.h"
#include "igs/objects/igsObjectManager.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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
  for (const int de : {3, 5}) new igsFileNoPDData(de);
  igsObjectSystem::set_current_file(one);
  const Node* node = new Node;
  const igsObjectPtr here(1);
  new igsFileNoPDData(1);
  EXPECT_EQ(&node->file(), &one);
  EXPECT_EQ(here.object(), node);
  EXPECT_EQ(there.object(), two.entity(1));
  EXPECT_THAT(active_errors(one), SizeIs(1));
  EXPECT_THAT(active_errors(two), SizeIs(2));
  new Node;
  EXPECT_EQ(ahead.object(), nullptr) << "a pointer to an entity ahead is filled by its own file alone";
  igsObjectSystem::set_current_file(two);
  EXPECT_EQ((new Node)->de_number(), 3);
  EXPECT_EQ(ahead.object(), two.entity(3));
  delete node;
  EXPECT_EQ(here.object(), nullptr);
  EXPECT_EQ(std::pair(one.num_entities(), two.num_entities()), std::pair(1, 2));
}

TEST(ObjectSystem, DriversWorkOnTheirOwnFile) {
  IgesBuilder builder;
  builder.line(0);
  builder.entity(999, 0, "");
  igsFile one, two;
  ASSERT_EQ(read_text(one, builder.text()), 1);
  EXPECT_EQ(&igsObjectSystem::file(), &two) << "the current file is what it was";
  one.check();
  EXPECT_THAT(active_errors(one), ElementsAre("igs110CoincidentPoints 1 1e-06", "igsFileInvalidIGESEntity 3 999"));
  EXPECT_EQ(one.entity(1)->check(), 0);
  one.clean(0);
  EXPECT_EQ(column_fault(written(one)), "");
  EXPECT_THAT(printed(one), testing::HasSubstr("@1(106)"));
  EXPECT_THAT(printed(*one.entity(1)), testing::HasSubstr("NumberOfPoints"));
  EXPECT_EQ(&igsObjectSystem::file(), &two);
  EXPECT_THAT(active_errors(two), IsEmpty());
  EXPECT_EQ(two.num_entities(), 0);
}

TEST(ObjectSystem, OutermostPassClearsTheVisitFlags) {
  igsFile file;
  igsObjectManager* const manager = (new Node)->manager();
  for (int pass = 0; pass < 2; ++pass) {
    for (const int inner : {0, 1}) {
      manager->set_visited(1);
      igsObjectSystem::reentrant_start();
      EXPECT_EQ(manager->visited(), inner);
    }
    for (int i = 0; i < 2; ++i) igsObjectSystem::reentrant_end();
    EXPECT_EQ(manager->visited(), 1);
  }
}

}  // namespace
}  // namespace igs_test
