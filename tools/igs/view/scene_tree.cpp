#include "view/scene_tree.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "igs/objects/igsCast.h"

namespace {

constexpr int deepest_node = 32;

}  // namespace

SceneTree::SceneTree(const igsFile& file, const SceneItems& items, SceneEntities& entities, Scene& scene)
    : m_items(items), m_entities(entities), m_scene(scene) {
  m_scene.nodes.push_back({.label = scene.title});
  m_depths.push_back(0);
  find_claims(file);
  std::vector<Owner> owners(m_scene.items.size());
  for (std::size_t i = 0; i < owners.size(); ++i) owners[i] = owner_of(i);
  for (const Owner owner : {Owner::shell, Owner::instance, Owner::drawing, Owner::group, Owner::none}) {
    for (std::size_t i = 0; i < owners.size(); ++i) {
      if (owners[i] == owner && m_scene.items[i].faces[0] < 0) m_scene.items[i].node = node_of(i, owner);
    }
  }
  place_edges();
}

/// Drawings go before groups.
void SceneTree::find_claims(const igsFile& file) {
  igsFileTypeIT drawings(&file, igs404::type());
  while (++drawings != 0) claim(*drawings(), *static_cast<const igs404*>(drawings()));
  igsFileIT entities(&file);
  while (++entities != 0) {
    if (const auto* const group = igs_cast<igsGroup>(entities())) claim(*group, *group);
  }
}

void SceneTree::claim(const igsObject& owner, const igsCompound& members) {
  for (const igsObjectPtr& member : members.entities()) {
    if (!member) continue;
    const auto slot = static_cast<std::size_t>(member->de_number() / 2);
    if (slot >= m_claimers.size()) m_claimers.resize(2 * slot + 1);
    if (m_claimers[slot] == nullptr) m_claimers[slot] = &owner;
  }
}

const igsObject* SceneTree::claimer_of(const igsObject& entity) const {
  const auto slot = static_cast<std::size_t>(entity.de_number() / 2);
  return slot < m_claimers.size() ? m_claimers[slot] : nullptr;
}

SceneTree::Owner SceneTree::owner_of(std::size_t item) const {
  const ItemOrigin& origin = m_items.origins()[item];
  if (origin.shell >= 0) return Owner::shell;
  if (origin.instance != nullptr) return Owner::instance;
  const igsObject* const claimer = claimer_of(*origin.entity);
  if (claimer == nullptr) return Owner::none;
  return claimer->typeof(igs404::type()) ? Owner::drawing : Owner::group;
}

int SceneTree::node_of(std::size_t item, Owner owner) {
  const ItemOrigin& origin = m_items.origins()[item];
  if (owner == Owner::shell) return node_of_shell(item);
  if (owner == Owner::instance) return node_of_instance(*origin.instance);
  return owner == Owner::none ? node_of_kind(m_scene.items[item].kind) : node_above(*origin.entity);
}

/// The shells of one placed solid stand one after the other in the model, the outer one first.
int SceneTree::node_of_shell(std::size_t item) {
  const ItemOrigin& origin = m_items.origins()[item];
  const auto [place, is_new] = m_shell_nodes.try_emplace(origin.shell, 0);
  if (!is_new) return place->second;
  const std::vector<igsShapeShell>& shells = m_items.model().shells();
  const igsShapeShell& shell = shells[static_cast<std::size_t>(origin.shell)];
  const igsObject& outermost = shell.solid != nullptr ? *shell.solid : *shell.entity;
  int parent = -1;
  if (const auto before = m_shell_nodes.find(origin.shell - 1); shell.is_void && before != m_shell_nodes.end()) {
    const bool is_same_solid = shells[static_cast<std::size_t>(origin.shell) - 1].solid == shell.solid;
    if (is_same_solid) parent = m_scene.nodes[static_cast<std::size_t>(before->second)].parent;
  }
  if (parent < 0) {
    parent = origin.instance != nullptr ? node_of_instance(*origin.instance) : node_above(outermost);
    if (shell.solid != nullptr) parent = add_node(*shell.solid, parent);
  }
  return m_shell_nodes[origin.shell] = add_node(*shell.entity, parent);
}

int SceneTree::node_of_instance(const igsObject& instance) {
  if (const auto known = m_nodes.find(&instance); known != m_nodes.end()) return known->second;
  const int parent = node_above(instance);
  return m_nodes[&instance] = add_node(instance, parent);
}

/// The node of the drawing or group that has the entity, which may be within groups, too; the root where none has it.
int SceneTree::node_above(const igsObject& entity) {
  std::vector<const igsObject*> outwards;
  const igsObject* claimer = claimer_of(entity);
  int parent = 0;
  for (; claimer != nullptr && outwards.size() < deepest_node; claimer = claimer_of(*claimer)) {
    if (std::find(outwards.begin(), outwards.end(), claimer) != outwards.end()) break;
    if (const auto known = m_nodes.find(claimer); known != m_nodes.end()) {
      parent = known->second;
      break;
    }
    outwards.push_back(claimer);
  }
  for (auto owner = outwards.rbegin(); owner != outwards.rend(); ++owner) {
    parent = m_nodes[*owner] = add_node(**owner, parent);
  }
  return parent;
}

int SceneTree::node_of_kind(ItemKind kind) {
  static constexpr std::array<const char*, 5> labels{"Faces", "Edges", "Curves", "Points", "Annotation"};
  const auto [place, is_new] = m_kind_nodes.try_emplace(static_cast<int>(kind), std::ssize(m_scene.nodes));
  if (is_new) {
    m_scene.nodes.push_back({.label = labels.at(static_cast<std::size_t>(kind)), .parent = 0});
    m_depths.push_back(1);
  }
  return place->second;
}

int SceneTree::add_node(const igsObject& entity, int parent) {
  if (m_depths[static_cast<std::size_t>(parent)] >= deepest_node) parent = 0;
  m_scene.nodes.push_back({m_entities.label_of(entity), m_entities.position_of(entity), parent});
  m_depths.push_back(m_depths[static_cast<std::size_t>(parent)] + 1);
  return static_cast<int>(m_scene.nodes.size()) - 1;
}

/// Edges stand where their faces do.
void SceneTree::place_edges() {
  for (SceneItem& item : m_scene.items) {
    if (item.faces[0] >= 0) item.node = m_scene.items[static_cast<std::size_t>(item.faces[0])].node;
  }
}
