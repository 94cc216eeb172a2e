#include "igs/objects/igsObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/curves/igs110.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsObjectManager.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// Those of entities and structure.
std::vector<std::string> entity_errors(const igsFile& file) {
  std::vector<std::string> errors = active_errors(file);
  std::erase_if(errors, [](const std::string& error) { return error.rfind("igsGlobal", 0) == 0; });
  return errors;
}

TEST(Object, KnowsItsPlaceAndClass) {
  igsFile file;
  new Node;
  const igsObject* line = new igs110;
  EXPECT_EQ(line->de_number(), 3);
  EXPECT_EQ(line->name(), "Line");
  EXPECT_EQ(&line->file(), &file);
  EXPECT_EQ(line->manager()->object(), line);
  EXPECT_EQ(line->directory_entry().entity_type(), igsEntity110);
  EXPECT_TRUE(line->isa(igs110::type()) && line->typeof(igsCurve::type())&& line->typeof(igsObject::type()));
  EXPECT_FALSE(line->isa(igsCurve::type()) || line->typeof(Node::type()));
}

TEST(Object, ChecksOnceAPass) {
  igsFile file;
  Node *top = new Node, *shared = new Node;
  shared->faulty = true;
  top->children = {igsObjectPtr(shared), igsObjectPtr(shared)};
  for (int pass = 1; pass <= 3; ++pass) {
    file.check();
    EXPECT_EQ(shared->checks, pass);
    EXPECT_EQ(top->checks, pass);
    EXPECT_THAT(entity_errors(file), UnorderedElementsAre("NodeFaulty 3", "NodeBadChild 1 0", "NodeBadChild 1 1"));
    EXPECT_EQ(shared->manager()->validated(), 0);
  }
  shared->faulty = false;
  igsObjectSystem::reentrant_start();
  EXPECT_EQ(top->check(), 1);
  shared->faulty = true;
  EXPECT_EQ(shared->check(), 1);  // the pass goes on: the first result stands
  EXPECT_EQ(shared->checks, 4);
  igsObjectSystem::reentrant_end();
  EXPECT_THAT(entity_errors(file), ElementsAre());
  EXPECT_EQ(shared->check(), 0);
  EXPECT_EQ(shared->checks, 5);
}

TEST(Object, CheckKeepsStructureErrorsAndCountsBoth) {
  igsFile file;
  Node* node = new Node;
  node->faulty = true;
  new igsFileNoPDData(1);
  new igsFileNoPDData(3);
  EXPECT_EQ(node->check(), 0);
  EXPECT_EQ(node->num_logged_errors(), 2);
  node->faulty = false;
  EXPECT_EQ(node->check(), 0) << "a structure error alone makes an entity invalid";
  EXPECT_THAT(entity_errors(file), ElementsAre("igsFileNoPDData 1", "igsFileNoPDData 3"));
}

TEST(Object, CheckAndPrintEndOnCycles) {
  igsFile file;
  Node *a = new Node, *b = new Node, *self = new Node;
  a->children = {igsObjectPtr(b)};
  b->children = {igsObjectPtr(a)};
  self->children = {igsObjectPtr(self)};
  file.check();
  EXPECT_THAT(entity_errors(file), ElementsAre()) << "a sound cycle does not accuse itself";
  for (int pass = 0; pass < 2; ++pass) {
    std::string headings;
    std::istringstream text(printed(*a));
    for (std::string line; std::getline(text, line);) {
      if (line.find_first_of("@}") != std::string::npos) headings += line + '|';
    }
    EXPECT_EQ(headings, "@1(-1) = {|\t@3(-1) = {|\t\t@1(-1) = {|\t\t}|\t}|}|");
  }
}

TEST(Object, LongChainIsCheckedAsByRecursion) {
  igsFile file;
  Node* const first = make_chain(chain_length);
  auto* const last = static_cast<Node*>(file.entity(2 * chain_length - 1));
  last->faulty = true;
  EXPECT_EQ(first->check(), 0);
  EXPECT_EQ(file.error_log().object_log().num_errors(), chain_length);
  last->faulty = false;
  EXPECT_EQ(first->check(), 1);
  EXPECT_EQ(file.error_log().object_log().num_errors(), 0);
}

TEST(Object, LongChainIsPrintedToItsEnd) {
  igsFile file;
  make_chain(2000);
  const std::string text = printed(file);
  for (int de = 1; de < 4000; de += 2) {
    ASSERT_NE(text.find('@' + std::to_string(de) + "(-1) = {"), std::string::npos) << de;
  }
}

TEST(Object, TaggingSetsKeyAndStream) {
  igsFile file;
  new Node;
  const Node* node = new Node;
  RecordingSink sink;
  auto *before = new NodeFaulty, *after = new NodeFaulty;
  node->tag_error(before);
  file.set_message_stream(&sink);
  node->tag_error(after);
  auto* structure = new igsFileNoPDData(77);
  node->tag_error(structure);
  EXPECT_EQ(before->key(), 3);
  EXPECT_EQ(before->message_stream(), nullptr);
  EXPECT_EQ(after->message_stream(), &sink);
  EXPECT_EQ(structure->key(), 77);
  EXPECT_EQ(structure->message_stream(), &sink);
  node->tag_error(static_cast<igsObjectError*>(nullptr));
  node->tag_error(static_cast<igsStructureError*>(nullptr));
  EXPECT_EQ(node->num_logged_errors(), 2);
}

/// The DE numbers of the headings, in the order in which they are printed.
std::vector<int> headings(const std::string& text) {
  std::vector<int> des;
  for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1)) {
    des.push_back(std::atoi(text.c_str() + at + 1));
  }
  return des;
}

void expected_headings(const Node& node, std::set<int>& seen, std::vector<int>& des) {
  des.push_back(node.de_number());
  if (!seen.insert(node.de_number()).second) return;
  for (const igsObjectPtr& child : node.children) expected_headings(static_cast<Node&>(*child.object()), seen, des);
}

TEST(Object, PrintsWhatIsNestedDeeplyWhereItStands) {
  igsFile file;
  constexpr int length = 300;
  Node* const first = igs_test::make_chain(length);
  std::minstd_rand random(1);
  for (int i = 0; i < length; ++i) {
    auto* const node = static_cast<Node*>(file.entity(2 * i + 1));
    const auto any = [&random] { return igsObjectPtr(2 * static_cast<int>(random() % length) + 1); };
    if (i % 3 != 0) node->children.insert(node->children.begin(), any());
    if (i % 2 != 0) node->children.push_back(any());
  }
  std::set<int> seen;
  std::vector<int> des;
  expected_headings(*first, seen, des);
  const std::string text = igs_test::printed(*first);
  EXPECT_EQ(headings(text), des);
  EXPECT_EQ(std::count(text.begin(), text.end(), '{'), std::count(text.begin(), text.end(), '}'));
  EXPECT_EQ(text.substr(text.size() - 3), "\n}\n");
}

TEST(Object, PrintOfALongChainNeedsNoStackAndNoLongLines) {
  igsFile file;
  constexpr int length = 20000;
  const std::string text = igs_test::printed(*igs_test::make_chain(length));
  EXPECT_EQ(headings(text).size(), length);
  EXPECT_EQ(text.find(std::string(36, '\t')), std::string::npos);
}

}  // namespace
}  // namespace igs_test
