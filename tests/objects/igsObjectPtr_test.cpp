#include "igs/objects/igsObjectPtr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
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
  EXPECT_TRUE(ahead == igsObjectPtr(nodes[3]));
  EXPECT_FALSE(ahead == igsObjectPtr(1));
  EXPECT_TRUE(igsObjectPtr() == igsObjectPtr(4));
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

TEST(ObjectPtr, OutlivesItsFile) {
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
  Node *parent = new Node, *exclusive = new Node, *shared = new Node, *matrix = new Node, *owner = new Node;
  parent->children = {igsObjectPtr(exclusive), igsObjectPtr(), igsObjectPtr(shared), igsObjectPtr(shared)};
  exclusive->children = {igsObjectPtr(shared)};
  parent->directory_entry().set_matrix(igsObjectPtr(matrix));
  owner->children = {igsObjectPtr(shared)};
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
  Node *a = new Node, *b = new Node, *self = new Node;
  a->children = {igsObjectPtr(b)};
  b->children = {igsObjectPtr(a)};
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

TEST(Unreference, LongChainGoesAtOnceOrWithItsFile) {
  {
    igsFile file;
    igsObjectPtr root(make_chain(chain_length)), other(make_chain(chain_length));
    root.unreference();
    EXPECT_EQ(Node::alive, chain_length);
    EXPECT_EQ(file.num_entities(), chain_length);
  }
  EXPECT_EQ(Node::alive, 0);
}

}  // namespace
}  // namespace igs_test
