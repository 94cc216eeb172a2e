#include "igs/errors/private/igsFixGraph.h"

#include <algorithm>

#include "igs/errors/igsError.h"
#include "igs/errors/igsSectionLog.h"

// Scheduling, in three steps:
// 1. Every logged error adds its entity as a node, and an edge to the entity it concerns where that is another one.
// 2. Without cycles the longest paths from the roots follow from one depth-first order, in linear time.
// 3. With cycles a traveller goes from each root along the current path as far as it leads to a longer one, a node
//    already on the path being passed over. That can take exponential time, so the walk has a budget; when it runs out,
//    the distances of step 2, computed without the edges that close a cycle, stand in where they are longer.

igsFixGraph::igsFixGraph(const igsIndexedSectionLog& log) {
  igsSimpleSectionLogIT errors(log);
  while (++errors) {
    auto* const error = static_cast<igsObjectError*>(errors());
    Entity& key = entity(error->key());
    Entity& obj = entity(error->obj());
    key.add_error(error->log_position());
    if (&key == &obj) continue;
    key.node.depends_on(&obj.node);
    obj.node.used();
  }
}

void igsFixGraph::Entity::add_error(int slot) {
  if (!errors.empty() && slot == errors.back().last + 1) {
    errors.back().last = slot;
  } else {
    errors.push_back({slot, slot});
  }
}

igsFixGraph::Entity& igsFixGraph::entity(int de) {
  Entity*& known = m_entity_of_de[de];
  if (known == nullptr) {
    known = &m_entities.emplace_back();
    known->node.m_number = m_entities.size() - 1;
  }
  return *known;
}

const igsFixNode* igsFixGraph::node(int de) const {
  const auto found = m_entity_of_de.find(de);
  return found != m_entity_of_de.end() ? &found->second->node : nullptr;
}

void igsFixGraph::schedule() {
  std::vector<const igsFixNode*> finished;
  const bool has_cycles = order_depth_first(finished);
  if (!has_cycles || !walk_cycles()) note_longest_paths(finished);
}

std::vector<const igsFixGraph::Entity*> igsFixGraph::order() const {
  std::vector<const Entity*> order;
  for (const Entity& entity : m_entities) {
    if (entity.node.distance() > 0) order.push_back(&entity);
  }
  std::stable_sort(order.begin(), order.end(),
                   [](const Entity* a, const Entity* b) { return a->node.distance() > b->node.distance(); });
  return order;
}

// Lists the nodes reachable from roots, each after its dependencies but for those that close a cycle. True when there
// is such a cycle.
bool igsFixGraph::order_depth_first(std::vector<const igsFixNode*>& finished) const {
  enum class Mark : char { unseen, on_path, finished };
  struct Step {
    const igsFixNode* node;
    std::size_t next_child;
  };
  std::vector<Mark> marks(m_entities.size(), Mark::unseen);
  std::vector<Step> path;
  bool has_cycles = false;
  const auto enter = [&](const igsFixNode& node) {
    Mark& mark = marks[node.m_number];
    if (mark == Mark::on_path) has_cycles = true;
    if (mark != Mark::unseen) return;
    mark = Mark::on_path;
    path.push_back({&node, 0});
  };
  for (const Entity& root : m_entities) {
    if (root.node.is_used() != 0) continue;
    enter(root.node);
    while (!path.empty()) {
      Step& step = path.back();
      if (step.next_child < step.node->m_children.size()) {
        enter(*step.node->m_children[step.next_child++]);
      } else {
        marks[step.node->m_number] = Mark::finished;
        finished.push_back(step.node);
        path.pop_back();
      }
    }
  }
  return has_cycles;
}

void igsFixGraph::note_longest_paths(const std::vector<const igsFixNode*>& finished) const {
  std::vector<std::size_t> rank(m_entities.size(), 0);
  for (std::size_t i = 0; i < finished.size(); ++i) rank[finished[i]->m_number] = i;
  std::vector<int> distances(m_entities.size(), 0);
  for (std::size_t i = finished.size(); i-- > 0;) {
    const igsFixNode& node = *finished[i];
    int& distance = distances[node.m_number];
    if (node.is_used() == 0) distance = 1;
    node.m_distance = std::max(node.m_distance, distance);
    for (const igsFixNode* const child : node.m_children) {
      if (rank[child->m_number] > i) continue;  // closes a cycle
      distances[child->m_number] = std::max(distances[child->m_number], distance + 1);
    }
  }
}

// False when the budget ran out.
bool igsFixGraph::walk_cycles() const {
  constexpr std::size_t steps_per_edge = 16;
  constexpr std::size_t free_steps = 1000000;
  std::size_t edges = 0;
  for (const Entity& entity : m_entities) edges += static_cast<std::size_t>(entity.node.num_children()) + 1;
  std::size_t steps_left = free_steps + steps_per_edge * edges;
  for (const Entity& root : m_entities) {
    if (root.node.is_used() != 0) continue;
    igsTraveller traveller(steps_left);
    root.node.accept_traveller(traveller);
    steps_left = traveller.steps_left();
    if (steps_left == 0) return false;
  }
  return true;
}
