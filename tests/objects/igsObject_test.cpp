// Entities, the pointers to them, and what walks from one to the next.
#include <gmock/gmock.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <random>
#include <set>

#include "iges_builder.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObjectManager.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {

using Pointers = std::vector<const igsObjectPtr*>;

/// The pointers registered on an object, in slot order, twice the same.
Pointers registered(const igsObject* object) {
  Pointers pointers, again;
  igsObjectManagerIT it(object->manager());
  EXPECT_EQ(it(), nullptr);
  while (++it != 0) pointers.push_back(it());
  while (++it != 0) again.push_back(it());
  EXPECT_EQ(pointers, again);
  EXPECT_EQ(static_cast<int>(pointers.size()), object->num_references());
  return pointers;
}

TEST(ObjectPtr, BindsToTheSlotNowOrLater) {
  igsFile file;
  const igsObjectPtr ahead(7), same(7), copy(ahead);
  { const igsObjectPtr gone(7); }
  for (const int de : {0, 2, 8, -1, -7, INT_MIN, INT_MAX}) {
    const igsObjectPtr pointer(de);
    EXPECT_EQ(static_cast<void*>(pointer), nullptr) << de;
    EXPECT_EQ(pointer.de_number(), 0) << de;
  }
  Node* nodes[5];
  for (Node*& node : nodes) node = new Node;
  EXPECT_EQ(registered(nodes[3]), (Pointers{&ahead, &same, &copy}));
  for (const igsObjectPtr* pointer : {&ahead, &same, &copy}) {
    EXPECT_EQ(pointer->object(), nodes[3]);
    EXPECT_EQ(pointer->de_number(), 7);
  }
  EXPECT_EQ(igsObjectPtr(static_cast<igsObject*>(nullptr)).object(), nullptr);
}

TEST(ObjectPtr, DeletionNullsPointersAndFreesTheSlot) {
  igsFile file;
  Node* nodes[3];
  for (Node*& node : nodes) node = new Node;
  igsObjectPtr a(nodes[0]), b(1), c = a;
  const igsObjectPtr other(nodes[1]);
  delete nodes[0];
  for (const igsObjectPtr* pointer : {&a, &b, &c}) EXPECT_EQ(static_cast<void*>(*pointer), nullptr);
  EXPECT_EQ(other.object(), nodes[1]);
  delete nodes[2];
  EXPECT_EQ(file.num_entities(), 1);
  // The slot freed last is the next to be used; then the other one; then the end of the table.
  for (const int de : {5, 1, 7}) EXPECT_EQ((new Node)->de_number(), de);
  a = igsObjectPtr(1);
  EXPECT_EQ(a->de_number(), 1);
}

TEST(ObjectPtr, AssignmentKeepsTheRegistrationRight) {
  igsFile file;
  const Node *one = new Node, *two = new Node;
  igsObjectPtr p(1), null;
  const igsObjectPtr& self = p;
  p = self;
  EXPECT_EQ(registered(one), Pointers{&p});
  p = igsObjectPtr(3);
  EXPECT_EQ(registered(one), Pointers());
  igsObjectPtr moved(std::move(p));
  EXPECT_EQ(p.object(), nullptr);  // NOLINT(bugprone-use-after-move): a moved pointer is null
  EXPECT_EQ(registered(two), Pointers{&moved});
  p = std::move(moved);
  std::swap(p, null);
  EXPECT_EQ(registered(two), Pointers{&null});
  null = igsObjectPtr(4);
  EXPECT_EQ(registered(two), Pointers());
  igsObjectPtr a(1), b(1), c(1), x, y;  // the slot freed last is used first
  a = c = igsObjectPtr();
  x = b;
  y = b;
  EXPECT_EQ(registered(one), (Pointers{&x, &b, &y}));
}

TEST(ObjectPtr, RegistrationSurvivesContainersAndGrowth) {
  igsFile file;
  Node* const targets[] = {new Node, new Node, new Node};
  std::vector<igsObjectPtr> pointers;
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    const auto kind = pointers.empty() ? 3 : random() % 4;
    if (kind == 0) {
      pointers.erase(pointers.begin() + static_cast<long>(random() % std::min<std::size_t>(8, pointers.size())));
    } else if (kind == 1) {
      pointers[random() % pointers.size()] = pointers.back();
    } else {
      pointers.emplace_back(targets[random() % 3]);
    }
  }
  for (const Node* target : targets) {
    std::set<const igsObjectPtr*> expected;
    for (const igsObjectPtr& pointer : pointers) {
      if (pointer.object() == target) expected.insert(&pointer);
    }
    EXPECT_GT(expected.size(), 1000U);
    const Pointers found = registered(target);
    EXPECT_EQ(std::set<const igsObjectPtr*>(found.begin(), found.end()), expected);
  }
  delete targets[1];
  for (const igsObjectPtr& pointer : pointers) EXPECT_NE(pointer.object(), targets[1]);
}

TEST(Unreference, LetsGoOrDeletesWithWhatNobodyElseHolds) {
  igsFile file;
  igsObjectPtr null;
  null.unreference();
  Node* const parent = new Node({3, 0, 5, 5});
  new Node({5});
  Node *shared = new Node, *matrix = new Node, *owner = new Node({5});
  parent->directory_entry().set_matrix(igsObjectPtr(matrix));
  igsObjectPtr a(parent), b(a);
  a.unreference();
  EXPECT_EQ(a.object(), nullptr);
  EXPECT_EQ(b->num_references(), 1);
  EXPECT_EQ(file.num_entities(), 5);
  b.unreference();
  EXPECT_EQ(b.object(), nullptr);
  EXPECT_EQ(file.num_entities(), 2);
  EXPECT_EQ(owner->children[0].object(), shared);
  EXPECT_EQ(shared->num_references(), 1);
}

TEST(Unreference, EndsOnCycles) {
  igsFile file;
  Node* const a = new Node({3});
  new Node({1});
  Node* const self = new Node({5});
  igsObjectPtr held(a), held_self(self);
  held.unreference();
  held_self.unreference();
  EXPECT_EQ(held.object(), nullptr);
  EXPECT_EQ(held_self.object(), nullptr);
  EXPECT_EQ(Node::alive, 3);  // each is still referred to from within its cycle
  a->children[0].unreference();
  self->children[0].unreference();
  EXPECT_EQ(file.num_entities(), Node::alive);
}

TEST(Unreference, EntityOutlivesItsOwnRelease) {
  igsFile file;
  Node* const a = new Node({3, 5});
  new Node({1});
  new Node;
  a->unreference_children();
  EXPECT_EQ(file.entity(1), a);
  EXPECT_EQ(file.num_entities(), 1);
  for (const igsObjectPtr& child : a->children) EXPECT_EQ(child.object(), nullptr);
}

TEST(Unreference, LongChainGoesAtOnceOrWithItsFileWhichPointersOutlive) {
  igsObjectPtr pending, bound;
  {
    igsFile file;
    igsObjectPtr root(make_chain(chain_length));
    bound = igsObjectPtr(make_chain(chain_length));
    pending = igsObjectPtr(4 * chain_length + 1);
    root.unreference();
    EXPECT_EQ(Node::alive, chain_length);
    EXPECT_EQ(file.num_entities(), chain_length);
  }
  EXPECT_TRUE(pending == nullptr && bound == nullptr);
  EXPECT_EQ(Node::alive, 0);
}

using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// Those of entities and structure.
std::vector<std::string> entity_errors(const igsFile& file) {
  std::vector<std::string> errors = active_errors(file);
  std::erase_if(errors, [](const std::string& error) { return error.rfind("igsGlobal", 0) == 0; });
  return errors;
}

TEST(Object, ChecksOnceAPass) {
  igsFile file;
  Node *top = new Node({3, 3}), *shared = new Node;
  shared->faulty = true;
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
  const Node& first = *new Node({3});
  new Node({1});
  new Node({5});
  file.check();
  EXPECT_THAT(entity_errors(file), ElementsAre()) << "a sound cycle does not accuse itself";
  for (int pass = 0; pass < 2; ++pass) {
    std::string headings;
    std::istringstream text(printed(first));
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
  Node* const first = make_chain(length);
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
  const std::string text = printed(*first);
  EXPECT_EQ(headings(text), des);
  EXPECT_EQ(std::count(text.begin(), text.end(), '{'), std::count(text.begin(), text.end(), '}'));
  EXPECT_EQ(text.substr(text.size() - 3), "\n}\n");
}

TEST(Object, PrintOfALongChainNeedsNoStackAndNoLongLines) {
  igsFile file;
  constexpr int length = 20000;
  const std::string text = printed(*make_chain(length));
  std::vector<int> expected;
  for (int de = 1; de < 2 * length; de += 2) expected.push_back(de);
  EXPECT_EQ(headings(text), expected);
  EXPECT_EQ(text.find(std::string(36, '\t')), std::string::npos);
}

}  // namespace
}  // namespace igs_test
