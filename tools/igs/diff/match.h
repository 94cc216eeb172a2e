#pragma once

#include <array>
#include <vector>

#include "diff/graph.h"

/// Which entity of a new file is which one of an old file. Entities match only within one entity type. Those that are
/// the same are found by the hashes of their graphs, the others by their places among the entities around them; the
/// time is in proportion to the files' sizes (times their logarithm), memory too, and the stack does not grow.
class EntityMatch {
 public:
  using Node = EntityGraph::Node;

  EntityMatch(const igsFile& old_file, const igsFile& new_file, const RealRule& reals);

  /// All entities, in file order.
  const EntityGraph& old_entities() const { return m_sides[old_side].graph; }
  const EntityGraph& new_entities() const { return m_sides[new_side].graph; }
  /// EntityGraph::no_node for an entity that was removed or added.
  Node new_of(Node old_node) const { return m_sides[old_side].partners[old_node]; }
  Node old_of(Node new_node) const { return m_sides[new_side].partners[new_node]; }
  /// True for entities that match, and for two null pointers.
  bool same_target(const igsObject* old_target, const igsObject* new_target) const;

 private:
  static constexpr std::size_t old_side = 0;
  static constexpr std::size_t new_side = 1;
  /// How many entities that are alike may be paired in file order.
  enum class Choice { unique, as_many, any };
  /// One unmatched entity with what it is compared by.
  struct Candidate {
    std::uint64_t key;
    std::size_t side;
    Node node;
  };
  struct Side {
    Side(const igsFile& file, const RealRule& reals)
        : graph(file, reals), partners(graph.size(), EntityGraph::no_node) {}
    bool is_free(Node node) const { return partners[node] == EntityGraph::no_node; }
    EntityGraph graph;
    std::vector<Node> partners;
  };
  struct Pair {
    Node old_node, new_node;
  };
  using NodeKey = std::uint64_t (*)(const Side& side, Node node);

  void match_all();
  void match_alike(Likeness likeness, Choice choice);
  template <class Key>
  void match_by(Key key, Choice choice);
  void match_places();
  void match_below(Pair pair, NodeKey key);
  void match_above(Pair pair, NodeKey key);
  void match_neighbours();
  void match_lists(std::span<const Node> old_nodes, std::span<const Node> new_nodes, NodeKey key, Choice choice);
  void match_runs(std::vector<Candidate>& candidates, Choice choice);
  void match_run(std::vector<Candidate>::const_iterator begin, std::vector<Candidate>::const_iterator end,
                 Choice choice);
  void match_free(Node old_node, Node new_node);
  bool match_pair(Node old_node, Node new_node);
  void settle();
  void match_around(Pair pair);
  static std::uint64_t below_key(const Side& side, Node node);
  static std::uint64_t own_key(const Side& side, Node node);
  static std::uint64_t type_key(const Side& side, Node node);

  std::array<Side, 2> m_sides;
  std::vector<Pair> m_pairs;
  std::size_t m_next_pair = 0;  ///< the pairs before it are settled
  bool m_is_settling = false;
};
