#include "igs/structure/igsCompound.h"

#include <algorithm>
#include <utility>

#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igs408.h"
#include "igs/structure/igsGroup.h"
#include "igs/surfaces/igs142.h"

namespace {
igsCompound* as_group(const igsObjectPtr& member) { return igs_cast<igsGroup>(member.object()); }
}  // namespace

void igsCompound::set_number_of_entities(int count) {
  m_number_of_entities = count;
  if (count >= 0) m_entities.elements() = igsObjectPtrcoDynArr(static_cast<std::size_t>(count));
}

const igsObjectPtr& igsCompound::get_entity(int position) const { return std::as_const(m_entities).get(position); }

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

std::int64_t igsCompound::growth_limit() const {
  return std::max(always_flattened, flattened_per_entity * file().num_entities());
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
  std::int64_t members_left = growth_limit();
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

int igsCompound::count_142() const {
  std::vector<const igsCompound*> waiting{this};
  std::unordered_set<const igsCompound*> entered{this};
  const auto enter = [&](const igsCompound* compound) {
    if (compound != nullptr && entered.insert(compound).second) waiting.push_back(compound);
  };
  int count = 0;
  while (!waiting.empty()) {
    const igsCompound* const compound = waiting.back();
    waiting.pop_back();
    for (const igsObjectPtr& member : compound->entities()) {
      const igs408* const instance = igs_cast<igs408>(member.object());
      if (igs_cast<igs142>(member.object()) != nullptr) ++count;
      enter(as_group(member));
      if (instance != nullptr) enter(igs_cast<igs308>(instance->subfigure().object()));
    }
  }
  return count;
}

namespace {
bool is_solid_or_shell(const igsObjectPtr& entity) {
  return igs_cast<igs186>(entity.object()) != nullptr || igs_cast<igs514>(entity.object()) != nullptr;
}

template <class Use>
void for_each_shell(const igsObjectPtr& solid_or_shell, Use use) {
  const igs186* const solid = igs_cast<igs186>(solid_or_shell.object());
  if (solid == nullptr) return use(solid_or_shell);
  use(solid->outer_shell().shell());
  for (const igsOrientedShell& shell : solid->void_shells()) use(shell.shell());
}

std::int64_t shells_and_faces(const igsObjectPtr& solid_or_shell) {
  std::int64_t number = 0;
  for_each_shell(solid_or_shell, [&number](const igsObjectPtr& reference) {
    const igs514* const shell = igs_cast<igs514>(reference.object());
    number += 1 + (shell != nullptr ? shell->number_of_faces() : 0);
  });
  return number;
}
}  // namespace

void igsCompound::explode_solids() {
  const igsObjectPtrcoDynArr& old_members = entities();
  if (std::none_of(old_members.begin(), old_members.end(), is_solid_or_shell)) return;
  igsObjectPtrcoDynArr members;
  std::int64_t left = growth_limit();
  for (const igsObjectPtr& member : old_members) {
    if (left >= 0 && is_solid_or_shell(member)) left -= shells_and_faces(member);
    if (left < 0 || !is_solid_or_shell(member)) {
      members.push_back(member);
      continue;
    }
    const int solid_de = igs_cast<igs186>(member.object()) != nullptr ? member.de_number() : 0;
    for_each_shell(member, [&](const igsObjectPtr& shell) { add_514_faces(shell, members, solid_de); });
  }
  set_entities(std::move(members));
}

void igsCompound::add_514_faces(const igsObjectPtr& shell, igsObjectPtrcoDynArr& list, int solid_de) {
  const igs514* const faces = igs_cast<igs514>(shell.object());
  if (faces == nullptr) return;
  for (const igsOrientedFace& oriented_face : faces->faces()) {
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
