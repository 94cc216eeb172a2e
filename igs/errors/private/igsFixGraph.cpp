#include "igs/errors/private/igsFixGraph.h"

#include <algorithm>

#include "igs/errors/igsError.h"
#include "igs/errors/igsSectionLog.h"

// Scheduling, in three steps:
// 1. Every logged error adds its entity as a node, and an edge to the entity it concerns where that is another one.
// 2. Without cycles the longest paths from the roots follow from one depth-first order, in linear time.
// 3. With cycles each root is walked along the current path as far as it leads to a longer one, a node already on the
// path
//    being passed over. That can take exponential time, so the walk has a budget; when it runs out, the distances of
//    step 2, computed without the edges that close a cycle, stand in where they are longer.

igsFixGraph::igsFixGraph(const igsIndexedSectionLog& log) {
  igsSimpleSectionLogIT errors(log);
  while (++errors) {
    auto* const error = static_cast<igsObjectError*>(errors());
    const int key = node(error->key());
    const int obj = node(error->obj());
    m_nodes[static_cast<std::size_t>(key)].add_error(error->log_position());
    if (key == obj) continue;
    std::vector<int>& dependencies = m_nodes[static_cast<std::size_t>(key)].dependencies;
    if (dependencies.empty() || dependencies.back() != obj) dependencies.push_back(obj);
    m_nodes[static_cast<std::size_t>(obj)].used = 1;
  }
}

void igsFixGraph::Node::add_error(int slot) {
  if (!errors.empty() && slot == errors.back().last + 1) {
    errors.back().last = slot;
  } else {
    errors.push_back({slot, slot});
  }
}

int igsFixGraph::node(int de) {
  const auto [entry, is_new] = m_node_of_de.try_emplace(de, static_cast<int>(m_nodes.size()));
  if (is_new) m_nodes.emplace_back();
  return entry->second;
}

std::vector<int> igsFixGraph::schedule() {
  std::vector<int> finished;
  const bool has_cycles = order_depth_first(finished);
  const std::vector<int> distances = longest_paths(finished);
  const bool walked = has_cycles && walk_cycles();
  std::vector<int> order;
  for (std::size_t i = 0; i < m_nodes.size(); ++i) {
    if (!walked) m_nodes[i].distance = std::max(m_nodes[i].distance, distances[i]);
    if (m_nodes[i].distance > 0) order.push_back(static_cast<int>(i));
  }
  std::stable_sort(order.begin(), order.end(), [this](int a, int b) {
    return m_nodes[static_cast<std::size_t>(a)].distance > m_nodes[static_cast<std::size_t>(b)].distance;
  });
  return order;
}

namespace {
struct Step {
  int node;
  std::size_t next_dependency;
};
}  // namespace

// Lists the nodes reachable from roots, each after its dependencies but for those that close a cycle. True when there
// is such a cycle.
bool igsFixGraph::order_depth_first(std::vector<int>& finished) const {
  enum class Mark : char { unseen, on_path, finished };
  std::vector<Mark> marks(m_nodes.size(), Mark::unseen);
  std::vector<Step> path;
  bool has_cycles = false;
  for (std::size_t root = 0; root < m_nodes.size(); ++root) {
    if (m_nodes[root].used != 0) continue;
    marks[root] = Mark::on_path;
    path.push_back({static_cast<int>(root), 0});
    while (!path.empty()) {
      Step& step = path.back();
      const std::vector<int>& dependencies = m_nodes[static_cast<std::size_t>(step.node)].dependencies;
      if (step.next_dependency == dependencies.size()) {
        marks[static_cast<std::size_t>(step.node)] = Mark::finished;
        finished.push_back(step.node);
        path.pop_back();
        continue;
      }
      const int next = dependencies[step.next_dependency++];
      Mark& mark = marks[static_cast<std::size_t>(next)];
      if (mark == Mark::on_path) has_cycles = true;
      if (mark != Mark::unseen) continue;
      mark = Mark::on_path;
      path.push_back({next, 0});
    }
  }
  return has_cycles;
}

std::vector<int> igsFixGraph::longest_paths(const std::vector<int>& finished) const {
  std::vector<std::size_t> rank(m_nodes.size(), 0);
  for (std::size_t i = 0; i < finished.size(); ++i) rank[static_cast<std::size_t>(finished[i])] = i;
  std::vector<int> distances(m_nodes.size(), 0);
  for (std::size_t i = finished.size(); i-- > 0;) {
    const auto number = static_cast<std::size_t>(finished[i]);
    if (m_nodes[number].used == 0) distances[number] = 1;
    for (const int next : m_nodes[number].dependencies) {
      const auto dependency = static_cast<std::size_t>(next);
      if (rank[dependency] > i) continue;  // closes a cycle
      distances[dependency] = std::max(distances[dependency], distances[number] + 1);
    }
  }
  return distances;
}

// False when the budget ran out.
bool igsFixGraph::walk_cycles() {
  constexpr std::size_t steps_per_edge = 16;
  constexpr std::size_t free_steps = 1000000;
  std::size_t edges = 0;
  for (const Node& node : m_nodes) edges += node.dependencies.size() + 1;
  std::size_t steps_left = free_steps + steps_per_edge * edges;
  std::vector<char> on_path(m_nodes.size(), 0);
  for (std::size_t root = 0; root < m_nodes.size(); ++root) {
    if (m_nodes[root].used == 0 && !walk_from(static_cast<int>(root), on_path, steps_left)) return false;
  }
  return true;
}

// One traveller's walk. False when the budget ran out.
bool igsFixGraph::walk_from(int root, std::vector<char>& on_path, std::size_t& steps_left) {
  std::vector<Step> path;
  const auto enter = [&](int number) {
    Node& node = m_nodes[static_cast<std::size_t>(number)];
    const int depth = static_cast<int>(path.size()) + 1;
    if (on_path[static_cast<std::size_t>(number)] != 0 || depth <= node.distance) return;
    node.distance = depth;
    on_path[static_cast<std::size_t>(number)] = 1;
    path.push_back({number, 0});
  };
  enter(root);
  while (!path.empty()) {
    if (steps_left-- == 0) return false;
    Step& step = path.back();
    const std::vector<int>& dependencies = m_nodes[static_cast<std::size_t>(step.node)].dependencies;
    if (step.next_dependency < dependencies.size()) {
      enter(dependencies[step.next_dependency++]);
    } else {
      on_path[static_cast<std::size_t>(step.node)] = 0;
      path.pop_back();
    }
  }
  return true;
}
