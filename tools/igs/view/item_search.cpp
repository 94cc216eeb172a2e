#include "view/item_search.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

constexpr std::size_t most_items = 2'000;  // of one search
constexpr std::size_t most_items_of_all = 500'000;

/// Groups, drawings, views and properties: they name what they are about, and nothing is made of it.
bool is_only_naming(int type) {
  return type == igsEntity402 || type == igsEntity404 || type == igsEntity406 || type == igsEntity410;
}

}  // namespace

ItemSearch::ItemSearch(const igsFile& file, const SceneItems& items)
    : m_graph(file),
      m_first(m_graph.size() + 1),
      m_met(m_graph.size()),
      m_steps_left(1'000'000 + 8 * m_graph.size()),
      m_items_left(most_items_of_all) {
  std::vector<std::pair<Node, int>> drawn;
  const auto add = [&](const igsObject* entity, int item) {
    const Node node = m_graph.node_of(entity);
    if (node != ReferenceGraph::no_node) drawn.emplace_back(node, item);
  };
  for (std::size_t i = 0; i < items.origins().size(); ++i) add(items.origins()[i].entity, static_cast<int>(i));
  for (const auto& [entity, item] : items.seen_in()) add(entity, item);
  std::sort(drawn.begin(), drawn.end());
  drawn.erase(std::unique(drawn.begin(), drawn.end()), drawn.end());
  for (const auto& [node, item] : drawn) {
    ++m_first[node + 1];
    m_items.push_back(item);
  }
  std::partial_sum(m_first.begin(), m_first.end(), m_first.begin());
}

void ItemSearch::begin(Node node) {
  ++m_search;
  m_met[node] = m_search;
  m_queue.assign(1, node);
}

bool ItemSearch::add_new(Node node) {
  if (m_steps_left == 0) return false;
  --m_steps_left;
  if (m_met[node] == m_search || is_only_naming(m_graph.type(node))) return true;
  m_met[node] = m_search;
  m_queue.push_back(node);
  return true;
}

void ItemSearch::take(std::span<const int> drawn, std::vector<int>& found) {
  const std::size_t room = std::min(most_items - std::min(most_items, found.size()), m_items_left);
  const std::size_t taken = std::min(room, drawn.size());
  found.insert(found.end(), drawn.begin(), drawn.begin() + static_cast<std::ptrdiff_t>(taken));
  m_items_left -= taken;
}

std::vector<int> ItemSearch::items_of(const igsObject& entity) {
  std::vector<int> found;
  const Node start = m_graph.node_of(&entity);
  if (start == ReferenceGraph::no_node) return found;
  begin(start);
  for (std::size_t i = 0; i < m_queue.size() && found.size() < most_items; ++i) {
    const std::span<const int> drawn = drawn_of(m_queue[i]);
    take(drawn, found);
    if (!drawn.empty()) continue;
    for (const Node below : m_graph.references(m_queue[i])) {
      if (!add_new(below)) break;
    }
  }
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

std::vector<int> ItemSearch::dependents_of(const igsObject& entity, const std::vector<int>& known) {
  std::vector<int> found;
  const Node start = m_graph.node_of(&entity);
  if (start == ReferenceGraph::no_node) return found;
  begin(start);
  for (std::size_t i = 0; i < m_queue.size() && found.size() < most_items; ++i) {
    if (i > 0) take(drawn_of(m_queue[i]), found);
    for (const Node user : m_graph.referrers(m_queue[i])) {
      if (!add_new(user)) break;
    }
  }
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  std::erase_if(found, [&](int item) { return std::binary_search(known.begin(), known.end(), item); });
  return found;
}
