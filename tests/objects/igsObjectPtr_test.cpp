#include "igs/objects/igsObjectPtr.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObjectManager.h"
#include "objects/test_node.h"

namespace {

using igs_test::make_chain;
using igs_test::Node;

/// The pointers registered on an object, in slot order.
std::vector<const igsObjectPtr*> registered(const igsObject* object) {
  std::vector<const igsObjectPtr*> pointers;
  igsObjectManagerIT it(object->manager());
  while (++it != 0) pointers.push_back(it());
  EXPECT_EQ(static_cast<int>(pointers.size()), object->num_references());
  return pointers;
}

TEST(ObjectPtr, OnlyOddPositiveNumbersName) {
  igsFile file;
  for (const int de : {0, 2, 8, -1, -7, INT_MIN}) {
    const igsObjectPtr pointer(de);
    new Node;
    EXPECT_EQ(static_cast<void*>(pointer), nullptr) << de;
    EXPECT_EQ(pointer.de_number(), 0) << de;
  }
  EXPECT_EQ(igsObjectPtr(INT_MAX).object(), nullptr);
  EXPECT_EQ(igsObjectPtr(static_cast<igsObject*>(nullptr)).object(), nullptr);
}

TEST(ObjectPtr, BindsToTheSlotNowOrLater) {
  igsFile file;
  const igsObjectPtr ahead(7), same(7), copy(ahead);
  { const igsObjectPtr gone(7); }
  Node* nodes[5];
  for (Node*& node : nodes) node = new Node;
  EXPECT_EQ(igsObjectPtr(1).object(), nodes[0]);
  for (const igsObjectPtr* pointer : {&ahead, &same, &copy}) {
    EXPECT_EQ(pointer->object(), nodes[3]);
    EXPECT_EQ(pointer->de_number(), 7);
  }
  EXPECT_EQ(nodes[3]->num_references(), 3);
  EXPECT_TRUE(ahead == igsObjectPtr(nodes[3]));
  EXPECT_FALSE(ahead == igsObjectPtr(nodes[0]));
  EXPECT_TRUE(igsObjectPtr() == igsObjectPtr(4));
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

TEST(ObjectPtr, PointersOutliveTheirFile) {
  igsObjectPtr pending, bound;
  {
    igsFile file;
    pending = igsObjectPtr(99);
    bound = igsObjectPtr(new Node);
  }
  EXPECT_EQ(pending.object(), nullptr);
  EXPECT_EQ(bound.object(), nullptr);
  EXPECT_EQ(Node::alive, 0);
}

TEST(ObjectPtr, TableReusesTheSlotFreedLast) {
  igsFile file;
  const Node* node = new Node;
  igsObjectPtr a(1), b(1), c(1), x, y;
  a = igsObjectPtr();
  c = igsObjectPtr();
  x = b;
  y = b;
  EXPECT_EQ(registered(node), (std::vector<const igsObjectPtr*>{&y, &b, &x}));
  b = igsObjectPtr();
  EXPECT_EQ(registered(node), (std::vector<const igsObjectPtr*>{&y, &x}));
}

TEST(ObjectPtr, IteratorWrapsAround) {
  igsFile file;
  const Node* node = new Node;
  igsObjectManagerIT none(node->manager());
  EXPECT_EQ(++none, 0);
  igsObjectPtr a(1), b(1);
  igsObjectManagerIT it(node->manager());
  EXPECT_EQ(it(), nullptr);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(++it, 1);
    EXPECT_EQ(it(), &a);
    EXPECT_EQ(++it, 1);
    EXPECT_EQ(it(), &b);
    EXPECT_EQ(++it, 0);
  }
}

TEST(ObjectPtr, AssignmentKeepsTheCountsRight) {
  igsFile file;
  const Node *one = new Node, *two = new Node;
  igsObjectPtr p(1), null;
  const igsObjectPtr& self = p;
  p = self;
  EXPECT_EQ(registered(one), std::vector<const igsObjectPtr*>{&p});
  p = igsObjectPtr(3);
  EXPECT_EQ(one->num_references(), 0);
  EXPECT_EQ(registered(two), std::vector<const igsObjectPtr*>{&p});
  igsObjectPtr moved(std::move(p));
  EXPECT_EQ(p.object(), nullptr);  // NOLINT(bugprone-use-after-move): a moved pointer is null
  EXPECT_EQ(registered(two), std::vector<const igsObjectPtr*>{&moved});
  p = std::move(moved);
  std::swap(p, null);
  EXPECT_EQ(registered(two), std::vector<const igsObjectPtr*>{&null});
  null = igsObjectPtr(4);
  EXPECT_EQ(two->num_references(), 0);
}

TEST(ObjectPtr, RegistrationSurvivesContainersAndGrowth) {
  igsFile file;
  Node* const targets[] = {new Node, new Node, new Node};
  std::vector<igsObjectPtr> pointers;
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    switch (random() % 4) {
      case 0:
        if (!pointers.empty()) {
          pointers.erase(pointers.begin() + static_cast<long>(random() % std::min<std::size_t>(8, pointers.size())));
        }
        break;
      case 1:
        if (!pointers.empty()) pointers[random() % pointers.size()] = pointers.back();
        break;
      default:
        pointers.emplace_back(targets[random() % 3]);
    }
  }
  for (const Node* target : targets) {
    std::set<const igsObjectPtr*> expected;
    for (const igsObjectPtr& pointer : pointers) {
      if (pointer.object() == target) expected.insert(&pointer);
    }
    const auto found = registered(target);
    EXPECT_GT(found.size(), 1000U);
    EXPECT_EQ(std::set<const igsObjectPtr*>(found.begin(), found.end()), expected);
  }
  delete targets[1];
  for (const igsObjectPtr& pointer : pointers) EXPECT_NE(pointer.object(), targets[1]);
}

TEST(Unreference, LetsGoOrDeletes) {
  igsFile file;
  igsObjectPtr null;
  null.unreference();
  igsObjectPtr a(new Node), b(a);
  a.unreference();
  EXPECT_EQ(a.object(), nullptr);
  ASSERT_NE(b.object(), nullptr);
  EXPECT_EQ(b->num_references(), 1);
  b.unreference();
  EXPECT_EQ(b.object(), nullptr);
  EXPECT_EQ(Node::alive, 0);
}

TEST(Unreference, CascadesToWhatNobodyElseHolds) {
  igsFile file;
  Node *parent = new Node, *exclusive = new Node, *shared = new Node, *matrix = new Node;
  parent->children = {igsObjectPtr(exclusive), igsObjectPtr(), igsObjectPtr(shared), igsObjectPtr(shared)};
  exclusive->children = {igsObjectPtr(shared)};
  parent->directory_entry().set_matrix(igsObjectPtr(matrix));
  Node* owner = new Node;
  owner->children = {igsObjectPtr(shared)};
  igsObjectPtr root(parent);
  root.unreference();
  EXPECT_EQ(root.object(), nullptr);
  EXPECT_EQ(file.num_entities(), 2);
  EXPECT_EQ(owner->children[0].object(), shared);
  EXPECT_EQ(shared->num_references(), 1);
}

TEST(Unreference, EndsOnCycles) {
  igsFile file;
  Node *a = new Node, *b = new Node;
  a->children = {igsObjectPtr(b)};
  b->children = {igsObjectPtr(a)};
  Node* self = new Node;
  self->children = {igsObjectPtr(self)};
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
  Node *a = new Node, *b = new Node, *other = new Node;
  a->children = {igsObjectPtr(b), igsObjectPtr(other)};
  b->children = {igsObjectPtr(a)};
  a->unreference_children();
  EXPECT_EQ(file.entity(1), a);
  EXPECT_EQ(file.num_entities(), 1);
  for (const igsObjectPtr& child : a->children) EXPECT_EQ(child.object(), nullptr);
}

TEST(Unreference, LongChainGoesAtOnce) {
  igsFile file;
  igsObjectPtr root(make_chain(igs_test::chain_length));
  EXPECT_EQ(Node::alive, igs_test::chain_length);
  root.unreference();
  EXPECT_EQ(Node::alive, 0);
  EXPECT_EQ(file.num_entities(), 0);
}

TEST(Unreference, LongChainGoesWithItsFile) {
  {
    igsFile file;
    igsObjectPtr root(make_chain(igs_test::chain_length));
  }
  EXPECT_EQ(Node::alive, 0);
}

}  // namespace
