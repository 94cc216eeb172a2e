#include "igs/structure/igsCompound.h"

#include <gtest/gtest.h>

#include <climits>

#include "igs/file/igsFile.h"
#include "igs/support/undefined.h"
#include "objects/test_node.h"

namespace {

using igs_test::make_compound;
using igs_test::Node;
using igs_test::TestCompound;

TEST(Compound, FreshCompoundHasNoCount) {
  igsFile file;
  TestCompound& compound = *new TestCompound;
  EXPECT_EQ(compound.number_of_entities(), unset_int);
  compound.set_index_list();
  for (const int index : {-1, 0, 1}) {
    EXPECT_EQ(compound.get_original_index(index), -1);
    EXPECT_EQ(compound.get_current_index(index), -1);
    EXPECT_EQ(compound.get_entity(index).object(), nullptr);
  }
}

TEST(Compound, CountReplacesTheList) {
  igsFile file;
  Node* node = new Node;
  TestCompound* compound = make_compound({node, nullptr, node});
  EXPECT_EQ(node->num_references(), 2);
  EXPECT_EQ(compound->get_entity(2).object(), node);
  for (const int outside : {-1, 3, INT_MAX}) {
    EXPECT_EQ(compound->set_entity(outside, igsObjectPtr(node)), 0) << outside;
    EXPECT_EQ(compound->get_entity(outside).object(), nullptr) << outside;
  }
  compound->set_number_of_entities(-5);
  EXPECT_EQ(compound->number_of_entities(), -5);
  EXPECT_EQ(compound->get_original_index(0), -1) << "a count below 1 has no positions";
  compound->set_number_of_entities(2);
  EXPECT_EQ(compound->get_entity(0).object(), nullptr);
  EXPECT_EQ(node->num_references(), 0);
}

TEST(Compound, IndexListMapsBothWays) {
  igsFile file;
  TestCompound* compound = make_compound({nullptr, nullptr, nullptr, nullptr});
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(compound->get_current_index(i), i);
    EXPECT_EQ(compound->get_original_index(i), i);
  }
  EXPECT_EQ(compound->get_original_index(-1), -1);
  const int moved[] = {-1, 0, -1, 1};
  for (int i = 0; i < 4; ++i) compound->set_index(i, moved[i]);
  for (const int outside : {-1, 4, INT_MIN, INT_MAX}) compound->set_index(outside, 0);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(compound->get_current_index(i), moved[i]);
  EXPECT_EQ(compound->get_original_index(0), 1);
  EXPECT_EQ(compound->get_original_index(1), 3);
  EXPECT_EQ(compound->get_original_index(-1), 0) << "the first position that holds the value";
  EXPECT_EQ(compound->get_original_index(2), -1);
}

TEST(Compound, ReleasesItsMembers) {
  igsFile file;
  Node *shared = new Node, *exclusive = new Node;
  const igsObjectPtr other(shared);
  igsObjectPtr root(make_compound({exclusive, nullptr, shared, shared}));
  root.unreference();
  EXPECT_EQ(file.num_entities(), 1);
  EXPECT_EQ(other.object(), shared);
  EXPECT_EQ(shared->num_references(), 1);
}

/// A group, as far as the list is concerned: classes are told by their names.
class Group : public igsTyped<Group, "igsGroup", TestCompound> {};

Group* group(const std::vector<igsObject*>& members) {
  auto* made = new Group;
  made->set_number_of_entities(static_cast<int>(members.size()));
  for (std::size_t i = 0; i < members.size(); ++i) made->set_entity(static_cast<int>(i), igsObjectPtr(members[i]));
  return made;
}

TEST(Compound, FlattensGroupsInOrder) {
  igsFile file;
  igsObject* nodes[4];
  for (igsObject*& node : nodes) node = new Node;
  Group* inner = group({nodes[1], nullptr, nodes[2]});
  Group* outer = group({nodes[0], inner, nodes[3]});
  TestCompound* compound = make_compound({outer, nodes[0]});
  compound->flatten_groups();
  std::vector<igsObject*> members;
  for (int i = 0; i < compound->number_of_entities(); ++i) members.push_back(compound->get_entity(i).object());
  EXPECT_EQ(members, (std::vector<igsObject*>{nodes[0], nodes[1], nullptr, nodes[2], nodes[3], nodes[0]}));

  Group* cyclic = group({nodes[0], nullptr});
  cyclic->set_entity(1, igsObjectPtr(cyclic));
  TestCompound* around = make_compound({cyclic});
  around->flatten_groups();
  ASSERT_EQ(around->number_of_entities(), 1) << "a group within itself gives its members once";
  EXPECT_EQ(around->get_entity(0).object(), nodes[0]);
  Group* chain = group({nodes[0]});
  for (int i = 1; i < 20'000; ++i) chain = group({chain});
  TestCompound* deep = make_compound({chain});
  deep->flatten_groups();
  EXPECT_EQ(deep->number_of_entities(), 1);
  EXPECT_EQ(deep->get_entity(0).object(), nodes[0]);
}

}  // namespace
