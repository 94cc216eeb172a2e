#include "igs/objects/igsCompound.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {
// The classes of groups, curves on surfaces and subfigure instances belong to other rooms; type records compare by
// name.
constexpr kluTypeInfo group_type{"igsGroup"};
constexpr kluTypeInfo curve_on_surface_type{"igs142"};
constexpr kluTypeInfo subfigure_instance_type{"igs408"};

igsCompound* as_group(const igsObjectPtr& member) {
  igsObject* const object = member.object();
  return object != nullptr && object->typeof(group_type) ? static_cast<igsCompound*>(object) : nullptr;
}

std::size_t index(int position) { return static_cast<std::size_t>(position); }
}  // namespace

void igsCompound::set_number_of_entities(int count) {
  m_number_of_entities = count;
  if (count >= 0) m_entities = igsObjectPtrcoDynArr(index(count));
}

igsObjectPtr igsCompound::get_entity(int position) const {
  return position >= 0 && position < size() ? m_entities[index(position)] : igsObjectPtr();
}

int igsCompound::set_entity(int position, const igsObjectPtr& entity) {
  if (position < 0 || position >= size()) return 0;
  m_entities[index(position)] = entity;
  return 1;
}

void igsCompound::set_entities(igsObjectPtrcoDynArr entities) {
  m_number_of_entities = static_cast<int>(entities.size());
  m_entities = std::move(entities);
}

void igsCompound::set_index_list() {
  if (m_number_of_entities < 0) return;
  m_index_list.resize(index(m_number_of_entities));
  std::iota(m_index_list.begin(), m_index_list.end(), 0);
}

void igsCompound::set_index(int original, int value) {
  if (m_index_list.empty()) set_index_list();
  if (original >= 0 && index(original) < m_index_list.size()) m_index_list[index(original)] = value;
}

int igsCompound::get_current_index(int original) const {
  if (m_index_list.empty()) return original >= 0 && original < size() ? original : -1;
  return original >= 0 && index(original) < m_index_list.size() ? m_index_list[index(original)] : -1;
}

int igsCompound::get_original_index(int value) const {
  if (m_number_of_entities < 1) return -1;
  if (m_index_list.empty()) return get_current_index(value);
  const auto found = std::find(m_index_list.begin(), m_index_list.end(), value);
  return found == m_index_list.end() ? -1 : static_cast<int>(found - m_index_list.begin());
}

// Every group is entered once and flattened after the groups that it holds.
void igsCompound::flatten_groups() {
  struct Step {
    igsCompound* compound;
    int next_member;
  };
  std::vector<Step> path{{this, 0}};
  std::unordered_set<const igsCompound*> entered{this};
  std::unordered_set<const igsCompound*> flattened;
  while (!path.empty()) {
    Step& step = path.back();
    if (step.next_member < step.compound->size()) {
      igsCompound* const group = as_group(step.compound->m_entities[index(step.next_member++)]);
      if (group != nullptr && entered.insert(group).second) path.push_back({group, 0});
    } else {
      step.compound->replace_groups(flattened);
      flattened.insert(step.compound);
      path.pop_back();
    }
  }
}

void igsCompound::replace_groups(const std::unordered_set<const igsCompound*>& flattened) {
  if (std::none_of(m_entities.begin(), m_entities.end(), as_group)) return;
  igsObjectPtrcoDynArr members;
  for (const igsObjectPtr& member : m_entities) {
    const igsCompound* const group = as_group(member);
    if (group == nullptr) {
      members.push_back(member);
    } else if (flattened.contains(group)) {
      members.insert(members.end(), group->m_entities.begin(), group->m_entities.end());
    }  // else the group holds itself, directly or through others: its members are on their way already
  }
  set_entities(std::move(members));
}

namespace {
/// Puts the members of groups, and what subfigure instances refer to, on a list of entities still to be looked at.
class MemberCollector : public igsPointerVisitor {
 public:
  void visit(igsObjectPtr& pointer) override {
    if (pointer.object() != nullptr) m_waiting.push_back(pointer.object());
  }
  igsObject* next() {
    if (m_waiting.empty()) return nullptr;
    igsObject* const object = m_waiting.back();
    m_waiting.pop_back();
    return object;
  }
  /// True the first time that an entity is to be descended into.
  bool enter(const igsObject* object) { return m_entered.insert(object).second; }

 private:
  std::vector<igsObject*> m_waiting;
  std::unordered_set<const igsObject*> m_entered;
};
}  // namespace

int igsCompound::count_142() const {
  MemberCollector members;
  members.enter(this);
  const_cast<igsCompound*>(this)->visit_pointers(members);
  int count = 0;
  while (igsObject* const object = members.next()) {
    if (object->isa(curve_on_surface_type)) ++count;
    const bool has_members = object->typeof(igsCompound::type()) || object->isa(subfigure_instance_type);
    if (has_members && members.enter(object)) object->visit_pointers(members);
  }
  return count;
}

void igsCompound::visit_pointers(igsPointerVisitor& visitor) {
  for (igsObjectPtr& entity : m_entities) visitor.visit(entity);
}
