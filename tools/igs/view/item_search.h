#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "diff/references.h"
#include "view/scene_items.h"

/// Finds the items in which one sees an entity, or what depends on it.
class ItemSearch {
 public:
  ItemSearch(const igsFile& file, const SceneItems& items);

  /// What is drawn of an entity; where that is nothing, of what it refers to, and so on.
  std::vector<int> items_of(const igsObject& entity);
  /// What is drawn of the entities that refer to it, and so on, without `known`.
  std::vector<int> dependents_of(const igsObject& entity, const std::vector<int>& known);

 private:
  using Node = ReferenceGraph::Node;

  std::span<const int> drawn_of(Node node) const {
    return {m_items.data() + m_first[node], m_items.data() + m_first[node + 1]};
  }
  bool add_new(Node node);
  void begin(Node node);
  void take(std::span<const int> drawn, std::vector<int>& found);

  ReferenceGraph m_graph;
  std::vector<std::size_t> m_first;  ///< by node, in m_items
  std::vector<int> m_items;
  std::vector<std::uint32_t> m_met;  ///< by node: in which search
  std::uint32_t m_search = 0;
  std::vector<Node> m_queue;
  std::size_t m_steps_left;
  std::size_t m_items_left;
};
