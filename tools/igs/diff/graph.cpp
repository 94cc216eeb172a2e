#include "diff/graph.h"

#include <functional>
#include <string_view>
#include <utility>

#include "diff/fields.h"
#include "diff/hash.h"

namespace {

using Node = EntityGraph::Node;

// Deeper than entities of one part commonly lie below each other. What the hashes do not reach is found by following
// the references of entities that are matched.
constexpr int rounds_below = 8;
constexpr int rounds_around = 4;

/// Hashes what it is shown, apart from where references lead to: these are collected.
class FieldHash : public igsFieldVisitor {
 public:
  FieldHash(const RealRule& reals, std::vector<const igsObject*>& references)
      : m_reals(reals), m_references(references) {}

  void integer(const char* /*label*/, int value) override { add(static_cast<std::uint64_t>(value)); }
  void real(const char* /*label*/, double value) override { add(bits_of(m_reals.representative(value))); }
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
  read(file, [&](const igsObject& entity, Targets& targets) { read_fields(reals, entity, targets); });
  refine();
}

void EntityGraph::read_fields(const RealRule& reals, const igsObject& entity, Targets& targets) {
  // The attributes come first, as they do in a FieldList.
  FieldHash attributes(reals, targets);
  visit_attributes(entity, attributes);
  FieldHash parameters(reals, targets);
  parameters.add(static_cast<std::uint64_t>(entity.directory_entry().entity_type()));
  visit_parameters(entity, parameters);
  hashes(Likeness::parameters).push_back(parameters.hash());
  hashes(Likeness::own).push_back(mixed(parameters.hash(), attributes.hash()));
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
