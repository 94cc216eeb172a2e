#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "view/scene.h"
#include "view/scene_items.h"

/// Makes the tree of a scene and gives every item its node.
class SceneTree {
 public:
  SceneTree(const igsFile& file, const SceneItems& items, SceneEntities& entities, Scene& scene);

 private:
  /// By what an item stands in the tree; those before go first.
  enum class Owner : int { shell, instance, drawing, group, none };

  void find_claims(const igsFile& file);
  void claim(const igsObject& owner, const igsCompound& members);
  const igsObject* claimer_of(const igsObject& entity) const;
  Owner owner_of(std::size_t item) const;
  int node_of(std::size_t item, Owner owner);
  int node_of_shell(std::size_t item);
  int node_of_instance(const igsObject& instance);
  int node_above(const igsObject& entity);
  int node_of_kind(ItemKind kind);
  int add_node(const igsObject& entity, int parent);
  void place_edges();

  const SceneItems& m_items;
  SceneEntities& m_entities;
  Scene& m_scene;
  std::vector<const igsObject*> m_claimers;           ///< by slot: the first drawing or group that has the entity
  std::unordered_map<const igsObject*, int> m_nodes;  ///< of instances, drawings and groups
  std::unordered_map<int, int> m_shell_nodes;         ///< by shell of the model
  std::unordered_map<int, int> m_kind_nodes;
  std::vector<int> m_depths;  ///< by node
};
