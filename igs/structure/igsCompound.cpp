#include "igs/structure/igsCompound.h"

#include <algorithm>
#include <utility>

#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"

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
}  // namespace

void igsCompound::set_number_of_entities(int count) {
  m_number_of_entities = count;
  if (count >= 0) m_entities.elements() = igsObjectPtrcoDynArr(static_cast<std::size_t>(count));
}

igsObjectPtr igsCompound::get_entity(int position) const { return std::as_const(m_entities).get(position); }

int igsCompound::set_entity(int position, const igsObjectPtr& entity) { return m_entities.set(position, entity); }

void igsCompound::set_entities(igsObjectPtrcoDynArr entities) {
  m_number_of_entities = static_cast<int>(entities.size());
  m_entities.elements() = std::move(entities);
}

void igsCompound::drop_null_entities(int original) {
  m_entities.drop_nulls(original);
  m_number_of_entities = size();
}

void igsCompound::set_index_list() {
  if (m_number_of_entities >= 0) m_entities.restart_index();
}

void igsCompound::set_index(int original, int value) { m_entities.set_index(original, value); }

int igsCompound::get_current_index(int original) const { return m_entities.current_index(original); }

int igsCompound::get_original_index(int value) const {
  if (m_number_of_entities < 1) return -1;
  if (value >= 0) return m_entities.original_index(value);
  for (int i = 0; i < m_entities.number_of_originals(); ++i) {
    if (m_entities.current_index(i) == value) return i;
  }
  return -1;
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
  std::int64_t members_left = std::max(always_flattened, flattened_per_entity * file().num_entities());
  while (!path.empty()) {
    Step& step = path.back();
    if (step.next_member < step.compound->size()) {
      igsCompound* const group = as_group(step.compound->get_entity(step.next_member++));
      if (group != nullptr && entered.insert(group).second) path.push_back({group, 0});
    } else {
      step.compound->replace_groups(flattened, members_left);
      flattened.insert(step.compound);
      path.pop_back();
    }
  }
}

void igsCompound::replace_groups(const std::unordered_set<const igsCompound*>& flattened, std::int64_t& members_left) {
  const igsObjectPtrcoDynArr& old_members = entities();
  if (std::none_of(old_members.begin(), old_members.end(), as_group)) return;
  igsObjectPtrcoDynArr members;
  for (const igsObjectPtr& member : old_members) {
    const igsCompound* const group = as_group(member);
    const bool is_flattened = group != nullptr && flattened.contains(group);
    if (group == nullptr || (is_flattened && group->size() > members_left)) {
      members.push_back(member);
    } else if (is_flattened) {
      members.insert(members.end(), group->entities().begin(), group->entities().end());
      members_left -= group->size();
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

namespace {
/// Takes solids and shells apart. Every shell gives its faces once, or a small file could make a list without end.
class FaceCollector {
 public:
  explicit FaceCollector(igsObjectPtrcoDynArr& list) : m_list(list) {}

  /// False for an entity that is neither a solid nor a shell.
  bool add(const igsObjectPtr& entity) {
    const igs186* const solid = igs_cast<igs186>(entity.object());
    if (solid != nullptr) {
      add_shell(solid->outer_shell().shell(), solid->de_number());
      for (int i = 0; i < solid->number_of_void_shells(); ++i) {
        add_shell(solid->void_shell(i).shell(), solid->de_number());
      }
    } else if (igs_cast<igs514>(entity.object()) != nullptr) {
      add_shell(entity, 0);
    } else {
      return false;
    }
    return true;
  }

 private:
  void add_shell(const igsObjectPtr& shell, int solid_de) {
    if (m_seen.insert(shell.object()).second) igsCompound::add_514_faces(shell, m_list, solid_de);
  }

  igsObjectPtrcoDynArr& m_list;
  std::unordered_set<const igsObject*> m_seen;
};

bool is_solid_or_shell(const igsObjectPtr& entity) {
  return igs_cast<igs186>(entity.object()) != nullptr || igs_cast<igs514>(entity.object()) != nullptr;
}
}  // namespace

void igsCompound::explode_solids() {
  const igsObjectPtrcoDynArr& old_members = entities();
  if (std::none_of(old_members.begin(), old_members.end(), is_solid_or_shell)) return;
  igsObjectPtrcoDynArr members;
  FaceCollector faces(members);
  for (const igsObjectPtr& member : old_members) {
    if (!faces.add(member)) members.push_back(member);
  }
  set_entities(std::move(members));
}

void igsCompound::add_514_faces(const igsObjectPtr& shell, igsObjectPtrcoDynArr& list, int solid_de) {
  const igs514* const faces = igs_cast<igs514>(shell.object());
  if (faces == nullptr) return;
  for (int i = 0; i < faces->number_of_faces(); ++i) {
    const igsOrientedFace oriented_face = faces->face(i);
    if (oriented_face.face().object() == nullptr) continue;
    list.push_back(oriented_face.face());
    igs510* const face = igs_cast<igs510>(oriented_face.face().object());
    if (face == nullptr) continue;
    face->set_orientation(oriented_face.orientation());
    face->set_solid_id(solid_de);
  }
}

void igsCompound::visit_pointers(igsPointerVisitor& visitor) {
  for (igsObjectPtr& entity : m_entities.elements()) visitor.visit(entity);
}
