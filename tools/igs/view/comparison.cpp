#include "view/scene.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_set>
#include <utility>

#include "text/text.h"
#include "view/item_match.h"
#include "view/item_search.h"
#include "view/scene_findings.h"

namespace {

constexpr std::size_t most_differences = 5'000;
constexpr std::size_t most_fields_of_difference = 50;
constexpr std::size_t most_bytes_of_differences = 3'000'000;

/// The entities that are not the same, with their fields.
class DifferenceList {
 public:
  explicit DifferenceList(const Comparison& comparison) {
    m_counts = comparison.visit([this](const Difference& difference) { add(difference); });
    end_fields();
  }

  struct Entry {
    const igsObject* old_entity;
    const igsObject* new_entity;
    SceneDifference shown;
  };
  std::vector<Entry>& entries() { return m_entries; }
  const DifferenceCounts& counts() const { return m_counts; }
  long long num_entities() const { return m_counts.changed + m_counts.removed + m_counts.added; }
  bool is_changed(const igsObject* new_entity) const { return m_changed.contains(new_entity); }

 private:
  void add(const Difference& difference);
  void add_field(const Difference& difference);
  void end_fields();

  std::vector<Entry> m_entries;
  std::unordered_set<const igsObject*> m_changed;  ///< new entities, of all
  DifferenceCounts m_counts;
  const igsObject* m_last = nullptr;  ///< the old entity whose fields are being listed
  long long m_fields_left_out = 0;    ///< of it
  std::size_t m_bytes_left = most_bytes_of_differences;
};

SceneChange change_of(Difference::Kind kind) {
  if (kind == Difference::Kind::removed) return SceneChange::removed;
  return kind == Difference::Kind::added ? SceneChange::added : SceneChange::changed;
}

void DifferenceList::add(const Difference& difference) {
  if (difference.old_entity == nullptr && difference.new_entity == nullptr) return;  // of a section
  const bool is_change = difference.kind == Difference::Kind::changed;
  if (!is_change || difference.old_entity != m_last) {
    end_fields();
    m_last = is_change ? difference.old_entity : nullptr;
    if (is_change) m_changed.insert(difference.new_entity);
    if (m_entries.size() == most_differences) return;
    m_entries.push_back({difference.old_entity, difference.new_entity, {}});
    m_entries.back().shown.change = change_of(difference.kind);
  }
  if (is_change && m_entries.back().old_entity == m_last) add_field(difference);
}

void DifferenceList::add_field(const Difference& difference) {
  auto& fields = m_entries.back().shown.fields;
  if (fields.size() >= most_fields_of_difference || m_bytes_left == 0) {
    ++m_fields_left_out;
    return;
  }
  const auto text = [](const std::optional<FieldValue>& value) { return value ? shown_value(*value) : std::string(); };
  fields.push_back({shown_text(difference.field), text(difference.old_value), text(difference.new_value)});
  for (const std::string& part : fields.back()) m_bytes_left -= std::min(m_bytes_left, part.size() + 1);
}

void DifferenceList::end_fields() {
  if (m_fields_left_out > 0) {
    m_entries.back().shown.fields.push_back({'(' + counted(m_fields_left_out, "more field", "more fields") + ')'});
  }
  m_fields_left_out = 0;
}

bool draws_nothing(const SceneItem& item) { return item.points.empty() && item.lines.empty() && item.texts.empty(); }

void scale(Scene& scene, double factor) {
  const auto scale_all = [factor](std::vector<igsVec3>& points) {
    for (igsVec3& point : points) point = point * factor;
  };
  for (SceneItem& item : scene.items) {
    scale_all(item.points);
    for (std::vector<igsVec3>& line : item.lines) scale_all(line);
    for (igsShapeText& text : item.texts) {
      for (igsVec3* const vector : {&text.start, &text.along, &text.up}) *vector = *vector * factor;
    }
  }
  if (!scene.box.is_empty()) scene.box = {scene.box.low * factor, scene.box.high * factor};
}

/// Two files drawn as one scene.
class SceneComparison {
 public:
  SceneComparison(const Model& old_model, const Model& new_model, const SceneOptions& options);
  Scene scene(const Findings& findings);

 private:
  void draw_alike();
  void mark_new_items();
  void add_old_items();
  void add_old_branches(std::size_t first);
  int place_of_old_entity(int old_entity);
  void add_differences();
  void add_old_levels();
  void add_remarks();

  const Model& m_old_model;
  const Model& m_new_model;
  SceneOptions m_options;
  Comparison m_comparison;
  DifferenceList m_differences;
  std::optional<SceneMaker> m_old, m_new;
  ItemMatch m_items;
  std::vector<int> m_old_items;     ///< by old item: where it, or what looks the same, is in the new scene; -1: nowhere
  std::vector<int> m_old_entities;  ///< by old entity: where it is in the new scene; -1: nowhere
};

SceneComparison::SceneComparison(const Model& old_model, const Model& new_model, const SceneOptions& options)
    : m_old_model(old_model),
      m_new_model(new_model),
      m_options(options),
      m_comparison(old_model.file(), new_model.file(), RealRule::exact()),
      m_differences(m_comparison) {
  draw_alike();
  m_items = match_items(*m_old, *m_new, m_comparison.match());
}

/// Both to the same tolerance, the coarser of what each would have by itself, and in the units of the new file.
void SceneComparison::draw_alike() {
  m_old.emplace(m_old_model, m_options);
  m_new.emplace(m_new_model, m_options);
  const double old_unit = m_old->scene().metres_per_unit / m_new->scene().metres_per_unit;
  const igsShapeTolerance of_old = m_old->scene().tolerance, of_new = m_new->scene().tolerance;
  const double chord = m_options.chord.value_or(std::max(of_new.chord, of_old.chord * old_unit));
  const double old_chord = chord / old_unit, angle = std::max(of_new.angle, of_old.angle);
  SceneOptions alike = m_options;
  alike.angle = angle;
  alike.chord = chord;
  if (of_new.chord != chord || of_new.angle != angle) m_new.emplace(m_new_model, alike);
  alike.chord = old_chord;
  if (of_old.chord != old_chord || of_old.angle != angle) m_old.emplace(m_old_model, alike);
  if (old_unit != 1) scale(m_old->scene(), old_unit);
}

Scene SceneComparison::scene(const Findings& findings) {
  Scene& scene = m_new->scene();
  scene.old_title = m_old->scene().title;
  add_findings(m_new_model, findings, m_new->items(), m_options.most_findings, m_new->entities(), scene);
  for (auto& [old_entity, new_entity, shown] : m_differences.entries()) {
    if (old_entity != nullptr) shown.old_entity = m_old->entities().position_of(*old_entity);
    if (new_entity != nullptr) shown.new_entity = m_new->entities().position_of(*new_entity);
  }
  if (m_options.has_fields) {
    m_new->entities().add_fields();
    m_old->entities().add_fields();
  }
  m_old_entities.assign(m_old->scene().entities.size(), -1);
  mark_new_items();
  add_old_items();
  add_differences();
  add_old_levels();
  add_remarks();
  return std::move(scene);
}

/// An entity may change without looking different.
void SceneComparison::mark_new_items() {
  for (std::size_t i = 0; i < m_items.new_items_are.size(); ++i) {
    SceneChange& change = m_new->scene().items[i].change;
    change = m_items.new_items_are[i];
    const bool is_changed = m_differences.is_changed(m_new->items().origins()[i].entity);
    if (change == SceneChange::none && is_changed) change = SceneChange::changed;
  }
}

void SceneComparison::add_old_items() {
  Scene& old_scene = m_old->scene();
  Scene& scene = m_new->scene();
  const std::size_t first = scene.items.size();
  m_old_items = m_items.new_items;
  for (std::size_t i = 0; i < old_scene.items.size(); ++i) {
    SceneItem& item = old_scene.items[i];
    if (m_old_items[i] >= 0 || item.is_off || draws_nothing(item)) continue;
    m_old_items[i] = static_cast<int>(scene.items.size());
    item.change = m_items.old_items_become[i];
    item.entity = place_of_old_entity(item.entity);
    scene.items.push_back(std::move(item));
  }
  if (scene.items.size() == first) return;
  for (std::size_t i = first; i < scene.items.size(); ++i) {
    for (int& face : scene.items[i].faces) {
      if (face >= 0) face = m_old_items[static_cast<std::size_t>(face)];
    }
  }
  scene.box.add(old_scene.box);
  add_old_branches(first);
}

/// Gives the items from `first` on the branches of the old tree, under a node of its own.
void SceneComparison::add_old_branches(std::size_t first) {
  Scene& scene = m_new->scene();
  const std::vector<SceneNode>& nodes = m_old->scene().nodes;
  std::vector<bool> is_needed(nodes.size());
  is_needed.front() = true;
  for (std::size_t i = first; i < scene.items.size(); ++i) {
    is_needed[static_cast<std::size_t>(scene.items[i].node)] = true;
  }
  for (std::size_t i = nodes.size(); i-- > 1;) {
    if (is_needed[i]) is_needed[static_cast<std::size_t>(nodes[i].parent)] = true;
  }
  std::vector<int> places(nodes.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (!is_needed[i]) continue;
    places[i] = static_cast<int>(scene.nodes.size());
    const int parent = i > 0 ? places[static_cast<std::size_t>(nodes[i].parent)] : 0;
    const int entity = nodes[i].entity >= 0 ? place_of_old_entity(nodes[i].entity) : -1;
    scene.nodes.push_back({nodes[i].label, entity, parent});
  }
  for (std::size_t i = first; i < scene.items.size(); ++i) {
    scene.items[i].node = places[static_cast<std::size_t>(scene.items[i].node)];
  }
}

int SceneComparison::place_of_old_entity(int old_entity) {
  int& place = m_old_entities[static_cast<std::size_t>(old_entity)];
  if (place >= 0) return place;
  std::vector<SceneEntity>& entities = m_new->scene().entities;
  place = static_cast<int>(entities.size());
  entities.push_back(std::move(m_old->scene().entities[static_cast<std::size_t>(old_entity)]));
  entities.back().is_old = true;
  return place;
}

/// What is drawn of an entity, or of what it consists of; else of what depends on it.
std::vector<int> items_to_show(ItemSearch& search, const igsObject* entity) {
  if (entity == nullptr) return {};
  std::vector<int> items = search.items_of(*entity);
  return items.empty() ? search.dependents_of(*entity, items) : items;
}

void SceneComparison::add_differences() {
  if (m_differences.entries().empty()) return;
  ItemSearch of_old(m_old_model.file(), m_old->items()), of_new(m_new_model.file(), m_new->items());
  for (auto& [old_entity, new_entity, shown] : m_differences.entries()) {
    if (shown.old_entity >= 0) shown.old_entity = place_of_old_entity(shown.old_entity);
    shown.items = items_to_show(of_new, new_entity);
    for (const int item : items_to_show(of_old, old_entity)) {
      const int place = m_old_items[static_cast<std::size_t>(item)];
      if (place >= 0) shown.items.push_back(place);
    }
    std::sort(shown.items.begin(), shown.items.end());
    shown.items.erase(std::unique(shown.items.begin(), shown.items.end()), shown.items.end());
    m_new->scene().differences.push_back(std::move(shown));
  }
}

void SceneComparison::add_old_levels() {
  const std::vector<LevelUse>& old_levels = m_old->scene().levels;
  const std::vector<LevelUse> levels = std::move(m_new->scene().levels);
  std::set_union(levels.begin(), levels.end(), old_levels.begin(), old_levels.end(),
                 std::back_inserter(m_new->scene().levels),
                 [](const LevelUse& a, const LevelUse& b) { return a.level < b.level; });
}

void SceneComparison::add_remarks() {
  const Scene& old_scene = m_old->scene();
  std::vector<std::string>& remarks = m_new->scene().remarks;
  for (const std::string& remark : old_scene.remarks) remarks.push_back(old_scene.title + ": " + remark);
  const DifferenceCounts& counts = m_differences.counts();
  if (counts.is_same()) remarks.push_back("the files are the same");
  if (counts.global > 0) {
    remarks.push_back(counted(counts.global, "Global parameter differs", "Global parameters differ"));
  }
  const auto listed = static_cast<long long>(m_differences.entries().size());
  if (m_differences.num_entities() > listed) {
    remarks.push_back("only " + std::to_string(listed) + " of " + std::to_string(m_differences.num_entities()) +
                      " entities that differ are listed");
  }
}

}  // namespace

Scene make_comparison(const Model& old_model, const Model& new_model, const Findings& findings,
                      const SceneOptions& options) {
  return SceneComparison(old_model, new_model, options).scene(findings);
}
