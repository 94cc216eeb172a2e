#include "view/item_match.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <tuple>

#include "diff/hash.h"

namespace {

/// Hashes what one sees of an item.
class LookHash {
 public:
  explicit LookHash(const SceneItem& item) {
    add(item.is_off ? 1 : 0);
    add(item.colour ? static_cast<long long>(item.colour->number()) : -1);
    add(item.points);
    for (const auto& triangle : item.triangles) {
      for (const int corner : triangle) add(corner);
    }
    for (const auto& line : item.lines) add(line);
    for (const igsShapeText& text : item.texts) {
      m_hash = mixed(m_hash, std::hash<std::string_view>()(text.text));
      for (const igsVec3& vector : {text.start, text.along, text.up}) add(vector);
    }
  }
  std::uint64_t value() const { return m_hash; }

 private:
  void add(long long number) { m_hash = mixed(m_hash, static_cast<std::uint64_t>(number)); }
  void add(const igsVec3& vector) {
    for (const double coordinate : {vector.x, vector.y, vector.z}) m_hash = mixed(m_hash, bits_of(coordinate + 0.0));
  }
  void add(const std::vector<igsVec3>& points) {
    add(std::ssize(points));
    for (const igsVec3& point : points) add(point);
  }

  std::uint64_t m_hash = 0;
};

struct MatchedItem {
  EntityMatch::Node entity;  ///< the new one
  ItemKind kind;
  std::uint64_t look;
  bool is_new;
  int item;
};

class ItemMatcher {
 public:
  ItemMatcher(const SceneMaker& old_file, const SceneMaker& new_file, const EntityMatch& entities);
  ItemMatch take() { return std::move(m_match); }

 private:
  using Items = std::vector<MatchedItem>;

  void list(const SceneMaker& file, bool is_new, const EntityMatch& entities);
  void match_entity(Items::const_iterator begin, Items::const_iterator end);
  void match_look(Items::const_iterator begin, Items::const_iterator end);

  Items m_items;
  ItemMatch m_match;
};

ItemMatcher::ItemMatcher(const SceneMaker& old_file, const SceneMaker& new_file, const EntityMatch& entities) {
  m_match.new_items.assign(old_file.scene().items.size(), -1);
  m_match.old_items_become.assign(old_file.scene().items.size(), SceneChange::removed);
  m_match.new_items_are.assign(new_file.scene().items.size(), SceneChange::added);
  list(old_file, false, entities);
  list(new_file, true, entities);
  const auto key = [](const MatchedItem& item) {
    return std::tuple(item.entity, item.kind, item.look, item.is_new, item.item);
  };
  std::sort(m_items.begin(), m_items.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
  for (auto begin = m_items.cbegin(); begin != m_items.cend();) {
    const auto end = std::find_if(begin, m_items.cend(), [&](const MatchedItem& item) {
      return item.entity != begin->entity || item.kind != begin->kind;
    });
    match_entity(begin, end);
    begin = end;
  }
}

/// Only what belongs to entities that match.
void ItemMatcher::list(const SceneMaker& file, bool is_new, const EntityMatch& entities) {
  for (std::size_t i = 0; i < file.scene().items.size(); ++i) {
    const EntityGraph& graph = is_new ? entities.new_entities() : entities.old_entities();
    const EntityMatch::Node node = graph.node_of(file.items().origins()[i].entity);
    if (node == EntityGraph::no_node) continue;
    const EntityMatch::Node partner = is_new ? entities.old_of(node) : entities.new_of(node);
    if (partner == EntityGraph::no_node) continue;
    const SceneItem& item = file.scene().items[i];
    m_items.push_back({is_new ? node : partner, item.kind, LookHash(item).value(), is_new, static_cast<int>(i)});
  }
}

/// Those that look the same go together; where some are left on both sides they have changed.
void ItemMatcher::match_entity(Items::const_iterator begin, Items::const_iterator end) {
  for (auto first = begin; first != end;) {
    const auto last = std::find_if(first, end, [&](const MatchedItem& item) { return item.look != first->look; });
    match_look(first, last);
    first = last;
  }
  std::vector<SceneChange*> old_left, new_left;
  for (auto item = begin; item != end; ++item) {
    const auto place = static_cast<std::size_t>(item->item);
    SceneChange& change = item->is_new ? m_match.new_items_are[place] : m_match.old_items_become[place];
    if (change != SceneChange::none) (item->is_new ? new_left : old_left).push_back(&change);
  }
  for (std::size_t i = 0; i < std::min(old_left.size(), new_left.size()); ++i) {
    *old_left[i] = *new_left[i] = SceneChange::changed;
  }
}

void ItemMatcher::match_look(Items::const_iterator begin, Items::const_iterator end) {
  auto new_item = std::find_if(begin, end, [](const MatchedItem& item) { return item.is_new; });
  for (auto old_item = begin; !old_item->is_new && new_item != end; ++old_item, ++new_item) {
    m_match.new_items[static_cast<std::size_t>(old_item->item)] = new_item->item;
    m_match.old_items_become[static_cast<std::size_t>(old_item->item)] = SceneChange::none;
    m_match.new_items_are[static_cast<std::size_t>(new_item->item)] = SceneChange::none;
  }
}

}  // namespace

ItemMatch match_items(const SceneMaker& old_file, const SceneMaker& new_file, const EntityMatch& entities) {
  return ItemMatcher(old_file, new_file, entities).take();
}
