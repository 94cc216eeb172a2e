#include "diff/references.h"

#include <numeric>

#include "diff/fields.h"

namespace {

std::size_t slot_of(const igsObject& entity) { return static_cast<std::size_t>(entity.de_number()) / 2; }

class TargetList : public igsFieldVisitor {
 public:
  explicit TargetList(std::vector<const igsObject*>& targets) : m_targets(targets) {}
  void integer(const char* /*label*/, int /*value*/) override {}
  void real(const char* /*label*/, double /*value*/) override {}
  void text(const char* /*label*/, const utString& /*value*/) override {}
  void reference(const char* /*label*/, const igsObject* target) override {
    if (target != nullptr) m_targets.push_back(target);
  }
  void begin_group(const char* /*label*/) override {}
  void end_group() override {}

 private:
  std::vector<const igsObject*>& m_targets;
};

}  // namespace

ReferenceGraph::ReferenceGraph(const igsFile& file) {
  read(file, [](const igsObject& entity, Targets& targets) {
    TargetList list(targets);
    visit_attributes(entity, list);
    visit_parameters(entity, list);
  });
}

void ReferenceGraph::read(const igsFile& file, const std::function<void(const igsObject&, Targets&)>& find) {
  list_entities(file);
  Targets targets;
  for (const igsObject* const entity : m_entities) {
    targets.clear();
    find(*entity, targets);
    for (const igsObject* const target : targets) {
      if (node_of(target) != no_node) m_references.nodes.push_back(node_of(target));
    }
    m_references.first.push_back(m_references.nodes.size());
  }
  turn_references();
}

void ReferenceGraph::list_entities(const igsFile& file) {
  igsFileIT entities(&file);
  while (++entities != 0) {
    const igsObject* const entity = entities();
    const std::size_t slot = slot_of(*entity);
    if (slot >= m_node_at_slot.size()) m_node_at_slot.resize(slot + 1, no_node);
    m_node_at_slot[slot] = static_cast<Node>(m_entities.size());
    m_entities.push_back(entity);
  }
}

ReferenceGraph::Node ReferenceGraph::node_of(const igsObject* entity) const {
  if (entity == nullptr || slot_of(*entity) >= m_node_at_slot.size()) return no_node;
  const Node node = m_node_at_slot[slot_of(*entity)];
  return node != no_node && m_entities[node] == entity ? node : no_node;
}

void ReferenceGraph::turn_references() {
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
