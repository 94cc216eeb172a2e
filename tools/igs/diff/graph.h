#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "diff/reals.h"
#include "igs/igs.h"

/// What two entities have in common when their hashes of this kind are equal, from little to much.
enum class Likeness : std::size_t {
  parameters,  ///< the type and the parameters that are no references
  own,         ///< and the attributes that are no references
  below,       ///< and the entities that they refer to, and so on for a while
  around       ///< and the entities that refer to them, and so on for a while
};

/// The entities of a file as nodes, numbered from 0 in file order, with their references as edges.
class EntityGraph {
 public:
  using Node = std::uint32_t;
  static constexpr Node no_node = UINT32_MAX;

  EntityGraph(const igsFile& file, const RealRule& reals);

  std::size_t size() const { return m_entities.size(); }
  const igsObject& entity(Node node) const { return *m_entities[node]; }
  int type(Node node) const { return m_entities[node]->directory_entry().entity_type(); }
  /// no_node for null and for entities that are not in the file.
  Node node_of(const igsObject* entity) const;
  /// What the node refers to, in field order; null pointers are left out.
  std::span<const Node> references(Node node) const { return m_references.of(node); }
  /// What refers to the node, once for every reference.
  std::span<const Node> referrers(Node node) const { return m_referrers.of(node); }
  std::uint64_t hash(Likeness likeness, Node node) const { return hashes(likeness)[node]; }

 private:
  using Hashes = std::vector<std::uint64_t>;
  /// Lists of nodes, one a node, in one piece of memory.
  struct Adjacency {
    std::vector<std::size_t> first{0};
    std::vector<Node> nodes;
    std::span<const Node> of(Node node) const { return {nodes.data() + first[node], nodes.data() + first[node + 1]}; }
  };

  Hashes& hashes(Likeness likeness) { return m_hashes[static_cast<std::size_t>(likeness)]; }
  const Hashes& hashes(Likeness likeness) const { return m_hashes[static_cast<std::size_t>(likeness)]; }
  void list_entities(const igsFile& file);
  void read_fields(const RealRule& reals);
  void turn_references();
  void refine();
  std::uint64_t hash_of_references(const Hashes& hashes, Node node) const;
  std::uint64_t hash_of_referrers(const Hashes& hashes, Node node) const;

  std::vector<const igsObject*> m_entities;
  std::vector<Node> m_node_at_slot;
  Adjacency m_references;
  Adjacency m_referrers;
  std::array<Hashes, 4> m_hashes;
};
