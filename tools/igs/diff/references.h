#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "igs/igs.h"

/// The entities of a file as nodes, numbered from 0 in file order, with their references as edges.
class ReferenceGraph {
 public:
  using Node = std::uint32_t;
  static constexpr Node no_node = UINT32_MAX;

  /// With the references that attributes and parameters hold.
  explicit ReferenceGraph(const igsFile& file);

  std::size_t size() const { return m_entities.size(); }
  const igsObject& entity(Node node) const { return *m_entities[node]; }
  int type(Node node) const { return m_entities[node]->directory_entry().entity_type(); }
  /// no_node for null and for entities that are not in the file.
  Node node_of(const igsObject* entity) const;
  /// What the node refers to, in field order; null pointers are left out.
  std::span<const Node> references(Node node) const { return m_references.of(node); }
  /// What refers to the node, once for every reference.
  std::span<const Node> referrers(Node node) const { return m_referrers.of(node); }

 protected:
  using Targets = std::vector<const igsObject*>;
  ReferenceGraph() = default;
  /// Lists the entities of the file; `find` adds to the targets what one of them refers to.
  void read(const igsFile& file, const std::function<void(const igsObject&, Targets&)>& find);

 private:
  /// Lists of nodes, one a node, in one piece of memory.
  struct Adjacency {
    std::vector<std::size_t> first{0};
    std::vector<Node> nodes;
    std::span<const Node> of(Node node) const { return {nodes.data() + first[node], nodes.data() + first[node + 1]}; }
  };

  void list_entities(const igsFile& file);
  void turn_references();

  std::vector<const igsObject*> m_entities;
  std::vector<Node> m_node_at_slot;
  Adjacency m_references;
  Adjacency m_referrers;
};
