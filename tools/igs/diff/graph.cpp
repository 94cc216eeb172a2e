#include "diff/graph.h"

#include <bit>
#include <cstring>
#include <functional>
#include <numeric>
#include <string_view>
#include <utility>

#include "diff/fields.h"

namespace {

using Node = EntityGraph::Node;

// Deeper than entities of one part commonly lie below each other. What the hashes do not reach is found by following
// the references of entities that are matched.
constexpr int rounds_below = 8;
constexpr int rounds_around = 4;

std::uint64_t mixed(std::uint64_t hash, std::uint64_t value) {
  hash = std::rotl(hash, 5) ^ value;
  hash *= 0x9e3779b97f4a7c15U;
  hash ^= hash >> 32U;
  hash *= 0xd6e8feb86659fd93U;
  return hash ^ hash >> 29U;
}

std::size_t slot_of(const igsObject& entity) { return static_cast<std::size_t>(entity.de_number()) / 2; }

/// Hashes what it is shown, apart from where references lead to: these are collected.
class FieldHash : public igsFieldVisitor {
 public:
  FieldHash(const RealRule& reals, std::vector<const igsObject*>& references)
      : m_reals(reals), m_references(references) {}

  void integer(const char* /*label*/, int value) override { add(static_cast<std::uint64_t>(value)); }
  void real(const char* /*label*/, double value) override {
    const double shown = m_reals.representative(value);
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof shown);
    std::memcpy(&bits, &shown, sizeof bits);
    add(bits);
  }
  void text(const char* /*label*/, const utString& value) override { add(std::hash<std::string_view>()(value)); }
  void reference(const char* /*label*/, const igsObject* target) override {
    add(target != nullptr ? 1 : 0);
    if (target != nullptr) m_references.push_back(target);
  }
  void begin_group(const char* /*label*/) override {}
  void end_group() override {}

  void add(std::uint64_t value) { m_hash = mixed(m_hash, value); }
  std::uint64_t hash() const { return m_hash; }

 private:
  const RealRule& m_reals;
  std::vector<const igsObject*>& m_references;
  std::uint64_t m_hash = 0;
};

}  // namespace

EntityGraph::EntityGraph(const igsFile& file, const RealRule& reals) {
  list_entities(file);
  read_fields(reals);
  turn_references();
  refine();
}

void EntityGraph::list_entities(const igsFile& file) {
  igsFileIT entities(&file);
  while (++entities != 0) {
    const igsObject* const entity = entities();
    const std::size_t slot = slot_of(*entity);
    if (slot >= m_node_at_slot.size()) m_node_at_slot.resize(slot + 1, no_node);
    m_node_at_slot[slot] = static_cast<Node>(m_entities.size());
    m_entities.push_back(entity);
  }
}

EntityGraph::Node EntityGraph::node_of(const igsObject* entity) const {
  if (entity == nullptr || slot_of(*entity) >= m_node_at_slot.size()) return no_node;
  const Node node = m_node_at_slot[slot_of(*entity)];
  return node != no_node && m_entities[node] == entity ? node : no_node;
}

void EntityGraph::read_fields(const RealRule& reals) {
  std::vector<const igsObject*> references;
  for (const igsObject* const entity : m_entities) {
    references.clear();
    // The attributes come first, as they do in a FieldList.
    FieldHash attributes(reals, references);
    visit_attributes(*entity, attributes);
    FieldHash parameters(reals, references);
    parameters.add(static_cast<std::uint64_t>(entity->directory_entry().entity_type()));
    visit_parameters(*entity, parameters);
    hashes(Likeness::parameters).push_back(parameters.hash());
    hashes(Likeness::own).push_back(mixed(parameters.hash(), attributes.hash()));
    for (const igsObject* const target : references) {
      if (node_of(target) != no_node) m_references.nodes.push_back(node_of(target));
    }
    m_references.first.push_back(m_references.nodes.size());
  }
}

void EntityGraph::turn_references() {
  std::vector<std::size_t>& first = m_referrers.first;
  first.assign(size() + 1, 0);
  for (const Node target : m_references.nodes) ++first[target + 1];
  std::partial_sum(first.begin(), first.end(), first.begin());
  std::vector<std::size_t> next = first;
  m_referrers.nodes.resize(m_references.nodes.size());
  for (Node node = 0; node < size(); ++node) {
    for (const Node target : references(node)) m_referrers.nodes[next[target]++] = node;
  }
}

void EntityGraph::refine() {
  Hashes now = hashes(Likeness::own);
  Hashes next(now.size());
  const auto next_round = [&](auto new_hash) {
    for (Node node = 0; node < size(); ++node) next[node] = mixed(now[node], new_hash(node));
    now.swap(next);
  };
  for (int i = 0; i < rounds_below; ++i) {
    next_round([&](Node node) { return hash_of_references(now, node); });
  }
  hashes(Likeness::below) = now;
  for (int i = 0; i < rounds_around; ++i) {
    next_round([&](Node node) { return mixed(hash_of_references(now, node), hash_of_referrers(now, node)); });
  }
  hashes(Likeness::around) = std::move(now);
}

std::uint64_t EntityGraph::hash_of_references(const Hashes& hashes, Node node) const {
  std::uint64_t hash = 0;
  for (const Node target : references(node)) hash = mixed(hash, hashes[target]);
  return hash;
}

/// The order of the referrers, which is that of the file, makes no difference.
std::uint64_t EntityGraph::hash_of_referrers(const Hashes& hashes, Node node) const {
  std::uint64_t sum = 0;
  for (const Node referrer : referrers(node)) sum += mixed(1, hashes[referrer]);
  return sum;
}
