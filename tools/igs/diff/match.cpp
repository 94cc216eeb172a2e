#include "diff/match.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <tuple>

namespace {

using Node = EntityGraph::Node;
constexpr Node no_node = EntityGraph::no_node;

/// Entities without a label have nothing to be known by; others share the key when type, label and subscript agree.
std::uint64_t label_key(const EntityGraph& graph, Node node) {
  const igsDirectoryEntry& entry = graph.entity(node).directory_entry();
  const std::size_t first = entry.entity_label().find_first_not_of(' ');
  if (first == std::string::npos) return 0;
  const std::size_t label = std::hash<std::string_view>()(std::string_view(entry.entity_label()).substr(first));
  constexpr std::uint64_t factor = 1000003;
  return (label * factor + static_cast<std::uint64_t>(entry.entity_subscript())) * factor +
         static_cast<std::uint64_t>(graph.type(node));
}

}  // namespace

EntityMatch::EntityMatch(const igsFile& old_file, const igsFile& new_file, const RealRule& reals)
    : m_sides{Side(old_file, reals), Side(new_file, reals)} {
  match_all();
}

bool EntityMatch::same_target(const igsObject* old_target, const igsObject* new_target) const {
  if (old_target == nullptr || new_target == nullptr) return old_target == new_target;
  const Node old_node = old_entities().node_of(old_target);
  return old_node != no_node && new_of(old_node) == new_entities().node_of(new_target);
}

/// From what is certain to what is a guess. Every pair that is found helps to find those around it.
void EntityMatch::match_all() {
  using enum Likeness;
  match_alike(around, Choice::unique);
  match_alike(around, Choice::as_many);
  for (const Likeness likeness : {below, own, parameters}) match_alike(likeness, Choice::unique);
  match_places();
  for (const Likeness likeness : {below, own}) {
    match_alike(likeness, Choice::as_many);
    match_places();
  }
  for (const Likeness likeness : {below, own, parameters}) match_alike(likeness, Choice::any);
  match_by([](const Side& side, Node node) { return label_key(side.graph, node); }, Choice::unique);
  match_neighbours();
  match_by(type_key, Choice::any);
}

std::uint64_t EntityMatch::below_key(const Side& side, Node node) { return side.graph.hash(Likeness::below, node); }
std::uint64_t EntityMatch::own_key(const Side& side, Node node) { return side.graph.hash(Likeness::own, node); }
std::uint64_t EntityMatch::type_key(const Side& side, Node node) {
  return static_cast<std::uint64_t>(side.graph.type(node));
}

void EntityMatch::match_alike(Likeness likeness, Choice choice) {
  match_by([likeness](const Side& side, Node node) { return side.graph.hash(likeness, node); }, choice);
}

/// Matches entities with the same `key(side, node)`; those with the key 0 are left alone.
template <class Key>
void EntityMatch::match_by(Key key, Choice choice) {
  std::vector<Candidate> candidates;
  for (std::size_t side = 0; side < m_sides.size(); ++side) {
    for (Node node = 0; node < m_sides[side].graph.size(); ++node) {
      if (!m_sides[side].is_free(node)) continue;
      const std::uint64_t value = key(m_sides[side], node);
      if (value != 0) candidates.push_back({value, side, node});
    }
  }
  match_runs(candidates, choice);
}

void EntityMatch::match_runs(std::vector<Candidate>& candidates, Choice choice) {
  const auto order = [](const Candidate& a, const Candidate& b) {
    return std::tie(a.key, a.side) < std::tie(b.key, b.side);
  };
  std::stable_sort(candidates.begin(), candidates.end(), order);
  for (auto begin = candidates.cbegin(); begin != candidates.cend();) {
    const auto end = std::find_if(begin, candidates.cend(), [&](const Candidate& c) { return c.key != begin->key; });
    match_run(begin, end, choice);
    begin = end;
  }
}

/// A run: candidates that are alike, those of the old side first.
void EntityMatch::match_run(std::vector<Candidate>::const_iterator begin, std::vector<Candidate>::const_iterator end,
                            Choice choice) {
  const auto is_taken = [this](const Candidate& c) { return !m_sides[c.side].is_free(c.node); };
  auto old_next = begin;
  auto new_next = std::find_if(begin, end, [](const Candidate& c) { return c.side == new_side; });
  const auto new_begin = new_next;
  const auto num_old = (new_begin - begin) - std::count_if(begin, new_begin, is_taken);
  const auto num_new = (end - new_begin) - std::count_if(new_begin, end, is_taken);
  if (choice != Choice::any && num_old != num_new) return;
  if (choice == Choice::unique && num_old != 1) return;
  for (;;) {
    old_next = std::find_if_not(old_next, new_begin, is_taken);
    new_next = std::find_if_not(new_next, end, is_taken);
    if (old_next == new_begin || new_next == end) return;
    if (!match_pair(old_next->node, new_next->node)) return;
    settle();
  }
}

/// False when the two are of different types, which only entities with the same hash by chance are.
bool EntityMatch::match_pair(Node old_node, Node new_node) {
  if (old_entities().type(old_node) != new_entities().type(new_node)) return false;
  m_sides[old_side].partners[old_node] = new_node;
  m_sides[new_side].partners[new_node] = old_node;
  m_pairs.push_back({old_node, new_node});
  return true;
}

/// Matches what pairs refer to and what refers to them, as far as it is the same, until that brings no new pair.
void EntityMatch::settle() {
  if (m_is_settling) return;  // this call comes from there
  m_is_settling = true;
  while (m_next_pair < m_pairs.size()) match_around(m_pairs[m_next_pair++]);
  m_is_settling = false;
}

void EntityMatch::match_around(Pair pair) {
  match_lists(old_entities().references(pair.old_node), new_entities().references(pair.new_node), below_key,
              Choice::any);
  match_above(pair, below_key);
}

/// Matches entities that stand at the same place around a pair: first those with the same content of their own, then
/// those of one type. What an entity refers to says more than what refers to it.
void EntityMatch::match_places() {
  for (const NodeKey key : {own_key, type_key}) {
    for (std::size_t i = 0; i < m_pairs.size(); ++i) match_below(m_pairs[i], key);  // the list grows
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
      match_below(m_pairs[i], key);
      match_above(m_pairs[i], key);
    }
  }
}

void EntityMatch::match_below(Pair pair, NodeKey key) {
  const auto old_nodes = old_entities().references(pair.old_node);
  const auto new_nodes = new_entities().references(pair.new_node);
  const std::size_t size = old_nodes.size() == new_nodes.size() ? old_nodes.size() : 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (key(m_sides[old_side], old_nodes[i]) == key(m_sides[new_side], new_nodes[i])) {
      match_free(old_nodes[i], new_nodes[i]);
    }
  }
  match_lists(old_nodes, new_nodes, key, Choice::any);
}

void EntityMatch::match_above(Pair pair, NodeKey key) {
  match_lists(old_entities().referrers(pair.old_node), new_entities().referrers(pair.new_node), key, Choice::unique);
}

/// Matches entities of one type that follow, or go before, the entities of a pair in their files.
void EntityMatch::match_neighbours() {
  const auto old_size = static_cast<Node>(old_entities().size());
  const auto new_size = static_cast<Node>(new_entities().size());
  for (Node node = 0; node + 1 < old_size; ++node) {
    if (new_of(node) != no_node && new_of(node) + 1 < new_size) match_free(node + 1, new_of(node) + 1);
  }
  for (Node node = old_size; node-- > 1;) {
    if (new_of(node) != no_node && new_of(node) > 0) match_free(node - 1, new_of(node) - 1);
  }
}

void EntityMatch::match_free(Node old_node, Node new_node) {
  if (!m_sides[old_side].is_free(old_node) || !m_sides[new_side].is_free(new_node)) return;
  if (match_pair(old_node, new_node)) settle();
}

void EntityMatch::match_lists(std::span<const Node> old_nodes, std::span<const Node> new_nodes, NodeKey key,
                              Choice choice) {
  std::vector<Candidate> candidates;
  const auto add = [&](std::size_t side, std::span<const Node> nodes) {
    Node last = no_node;
    for (const Node node : nodes) {
      if (node != last && m_sides[side].is_free(node)) candidates.push_back({key(m_sides[side], node), side, node});
      last = node;
    }
  };
  add(old_side, old_nodes);
  if (candidates.empty()) return;
  add(new_side, new_nodes);
  match_runs(candidates, choice);
}
