#pragma once

#include <initializer_list>
#include <utility>
#include <vector>

#include "igs/errors/igsErrorClass.h"
#include "igs/objects/igsObject.h"
#include "igs/structure/igsCompound.h"
#include "igs/support/utOstream.h"
#include "sanitizers.h"

namespace igs_test {

/// Long enough to break whatever recurses; shorter under a sanitizer, whose frames are larger and memory dearer.
inline constexpr int chain_length = is_sanitized ? 200'000 : 1'000'000;

/// Found by a Node's check when it is faulty, and when one of its children is.
class NodeFaulty : public igsErrorClass<NodeFaulty, "NodeFaulty", igsObjectError> {};
struct NodeBadChild : public igsErrorClass<NodeBadChild, "NodeBadChild", igsObjectError, int> {
  using igsErrorClass::igsErrorClass;
};

/// An entity that holds pointers and counts what is done to it.
class Node : public igsTyped<Node, "Node", igsObject> {
 public:
  /// Holds pointers to the entities with these DE numbers, now or later; null for 0.
  explicit Node(std::initializer_list<int> des = {}) {
    for (const int de : des) children.emplace_back(de);
    ++alive;
  }
  ~Node() override { --alive; }
  igsObject* make_one() override { return new Node; }
  int read_pd_data(igsInStream& /*in*/) override { return 1; }
  void write_pd_data(igsOutStream& /*out*/) override {}
  void print_pd_data(utOstream& os) const override {
    for (const igsObjectPtr& child : children) {
      if (child) child->print(os << "Child" << utEndl);
    }
  }
  void check_pd() const override {
    ++checks;
    if (faulty) tag_error(new NodeFaulty);
    int i = 0;
    for (const igsObjectPtr& child : children) {
      if (child && child->check() == 0) tag_error(new NodeBadChild(i));
      ++i;
    }
  }
  void check_de() const override {}
  void visit_pointers(igsPointerVisitor& visitor) override {
    for (igsObjectPtr& child : children) visitor.visit(child);
  }

  std::vector<igsObjectPtr> children;
  bool faulty = false;
  mutable int checks = 0;
  static inline int alive = 0;
};

/// A chain of nodes in the current file, each holding the only pointer to the next. Returns the first.
inline Node* make_chain(int length) {
  Node *const first = new Node, *last = first;
  for (; length > 1; --length) {
    auto* const next = new Node;
    std::exchange(last, next)->children.emplace_back(next);
  }
  return first;
}

/// A compound entity of its own class.
class TestCompound : public igsTyped<TestCompound, "TestCompound", igsCompound> {
 public:
  igsObject* make_one() override { return new TestCompound; }
  int read_pd_data(igsInStream& /*in*/) override { return 1; }
  void write_pd_data(igsOutStream& /*out*/) override {}
  void print_pd_data(utOstream& /*os*/) const override {}
  void check_pd() const override {}
  void check_de() const override {}
};

/// A compound with these members (null for null) and a fresh index list.
inline TestCompound* make_compound(const std::vector<igsObject*>& members) {
  auto* compound = new TestCompound;
  compound->set_number_of_entities(static_cast<int>(members.size()));
  int i = 0;
  for (igsObject* const member : members) compound->set_entity(i++, igsObjectPtr(member));
  compound->set_index_list();
  return compound;
}

}  // namespace igs_test
