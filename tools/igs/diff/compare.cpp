#include "diff/compare.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "files/sections.h"

namespace {

std::vector<Field> start_fields(const igsFile& file) {
  std::vector<Field> fields;
  for (const std::string& line : start_lines(file.start_section())) {
    const std::size_t end = line.find_last_not_of(' ') + 1;  // records are full of blanks
    fields.push_back({"line " + std::to_string(fields.size() + 1), line.substr(0, end)});
  }
  return fields;
}

/// Lists Global parameters. What the file leaves out has its default where the standard names one.
class GlobalFields {
 public:
  explicit GlobalFields(const igsGlobalSection& global) : m_global(global) {
    for (const igsGlobalParameter& parameter : global.parameters()) {
      std::visit([&](const auto& value) { add(parameter, value); }, parameter.value);
    }
    if (!global.comment().empty()) m_fields.push_back({"comment", global.comment()});
    const std::vector<std::string_view> extra = global.extra_fields().fields();
    for (std::size_t i = 0; i < extra.size(); ++i) {
      m_fields.push_back({"extra_fields(" + std::to_string(i) + ')', std::string(extra[i])});
    }
  }
  std::vector<Field> take() { return std::move(m_fields); }

 private:
  bool has_value(int parameter) const {
    constexpr std::array with_default{1, 2, 12, 13, 16, 23, 24};
    return m_global.given(parameter) ||
           std::find(with_default.begin(), with_default.end(), parameter) != with_default.end();
  }
  void add(const igsGlobalParameter& parameter, int value) {
    m_fields.push_back({parameter.name, has_value(parameter.number) ? value : igs_unset_int});
  }
  void add(const igsGlobalParameter& parameter, double value) {
    m_fields.push_back({parameter.name, has_value(parameter.number) ? value : igs_undefined_real});
  }
  void add(const igsGlobalParameter& parameter, const utString& value) {
    if (has_value(parameter.number)) m_fields.push_back({parameter.name, value});
  }
  /// A flag without a name stands for its standard name, too.
  void add(const igsGlobalParameter& parameter, const igsUnits& units) {
    const bool has_flag = m_global.given(parameter.number), has_name = m_global.given(parameter.number + 1);
    m_fields.push_back({parameter.name + ".type", has_flag ? units.type() : igs_unset_int});
    if (has_flag || has_name) m_fields.push_back({parameter.name + ".name", units.name()});
  }

  const igsGlobalSection& m_global;
  std::vector<Field> m_fields;
};

/// Null entities, which hold nothing, do not count.
std::vector<Field> left_out_fields(const igsFile& file) {
  std::vector<Field> fields;
  for (const auto& [kind, count] : file.dropped_entities()) {
    if (kind.first == 0) continue;
    fields.push_back({"type " + std::to_string(kind.first) + " form " + std::to_string(kind.second), count});
  }
  return fields;
}

}  // namespace

Comparison::Comparison(const igsFile& old_file, const igsFile& new_file, const RealRule& reals)
    : m_old_file(old_file), m_new_file(new_file), m_reals(reals), m_match(old_file, new_file, reals) {}

DifferenceCounts Comparison::visit(const Visitor& visitor) const {
  constexpr EntityMatch::Node none = EntityGraph::no_node;
  const EntityGraph& old_entities = m_match.old_entities();
  const EntityGraph& new_entities = m_match.new_entities();
  DifferenceCounts counts;
  compare_sections(visitor, counts);
  visit_figures(nullptr, nullptr, visitor, counts);
  for (EntityMatch::Node node = 0; node < old_entities.size(); ++node) {
    const igsObject& entity = old_entities.entity(node);
    if (m_match.new_of(node) != none) {
      const igsObject& new_entity = new_entities.entity(m_match.new_of(node));
      compare_entities(entity, new_entity, visitor, counts);
      visit_figures(&entity, &new_entity, visitor, counts);
    } else {
      visitor({Difference::Kind::removed, &entity, nullptr});
      ++counts.removed;
    }
  }
  for (EntityMatch::Node node = 0; node < new_entities.size(); ++node) {
    if (m_match.old_of(node) != none) continue;
    visitor({Difference::Kind::added, nullptr, &new_entities.entity(node)});
    ++counts.added;
  }
  return counts;
}

/// Of the files where the entities are null.
void Comparison::visit_figures(const igsObject* old_entity, const igsObject* new_entity, const Visitor& visitor,
                               DifferenceCounts& counts) const {
  if (!m_figures) return;
  const auto report = [&](const std::string& name, std::optional<double> old_value, std::optional<double> new_value) {
    Difference difference{Difference::Kind::geometry, old_entity, new_entity, name};
    if (old_value) difference.old_value = *old_value;
    if (new_value) difference.new_value = *new_value;
    visitor(difference);
    ++counts.geometry;
  };
  if (old_entity == nullptr) return m_figures->visit_files(report);
  m_figures->visit_faces(old_entity->de_number(), new_entity->de_number(), report);
}

long long Comparison::num_not_compared() const {
  long long count = 0;
  const auto& in_new = m_new_file.dropped_entities();
  for (const auto& [kind, old_count] : m_old_file.dropped_entities()) {
    const auto found = in_new.find(kind);
    if (kind.first != 0 && found != in_new.end()) count += std::min(old_count, found->second);
  }
  return count;
}

void Comparison::compare_sections(const Visitor& visitor, DifferenceCounts& counts) const {
  using Kind = Difference::Kind;
  compare_lists(Kind::start, start_fields(m_old_file), start_fields(m_new_file), visitor, counts, counts.start);
  compare_lists(Kind::global, GlobalFields(m_old_file.global_section()).take(),
                GlobalFields(m_new_file.global_section()).take(), visitor, counts, counts.global);
  compare_lists(Kind::left_out, left_out_fields(m_old_file), left_out_fields(m_new_file), visitor, counts,
                counts.left_out);
}

bool Comparison::same(const FieldValue& old_value, const FieldValue& new_value, DifferenceCounts& counts) const {
  if (old_value.index() != new_value.index()) return false;
  if (const double* const old_real = std::get_if<double>(&old_value)) {
    const double new_real = std::get<double>(new_value);
    if (equal_reals(*old_real, new_real)) return true;
    const bool is_close = m_reals.same(*old_real, new_real);
    if (is_close) ++counts.close_reals;
    return is_close;
  }
  if (const auto* const target = std::get_if<const igsObject*>(&old_value)) {
    return m_match.same_target(*target, std::get<const igsObject*>(new_value));
  }
  return old_value == new_value;
}

/// Compares fields with the same path. Most often they stand at the same place in both lists, but need not.
void Comparison::compare_lists(Difference::Kind kind, const std::vector<Field>& old_list,
                               const std::vector<Field>& new_list, const Visitor& visitor, DifferenceCounts& counts,
                               long long& count) const {
  std::unordered_map<std::string_view, const Field*> unseen;
  for (const Field& field : new_list) unseen.emplace(field.path, &field);
  const auto report = [&](const std::string& path, std::optional<FieldValue> old_value,
                          std::optional<FieldValue> new_value) {
    visitor({kind, nullptr, nullptr, path, std::move(old_value), std::move(new_value)});
    ++count;
  };
  for (const Field& field : old_list) {
    const auto found = unseen.find(field.path);
    if (found == unseen.end()) {
      report(field.path, field.value, std::nullopt);
      continue;
    }
    if (!same(field.value, found->second->value, counts)) report(field.path, field.value, found->second->value);
    unseen.erase(found);
  }
  for (const Field& field : new_list) {
    if (unseen.contains(field.path)) report(field.path, std::nullopt, field.value);
  }
}

bool Comparison::same_fields(const igsObject& old_entity, const igsObject& new_entity, DifferenceCounts& counts) const {
  const FieldList old_list(old_entity, false);
  const FieldList new_list(new_entity, false);
  return std::equal(old_list.fields().begin(), old_list.fields().end(), new_list.fields().begin(),
                    new_list.fields().end(),
                    [&](const Field& a, const Field& b) { return same(a.value, b.value, counts); });
}

void Comparison::compare_entities(const igsObject& old_entity, const igsObject& new_entity, const Visitor& visitor,
                                  DifferenceCounts& counts) const {
  const DifferenceCounts before = counts;
  if (same_fields(old_entity, new_entity, counts)) return;
  counts = before;  // the close reals are counted below
  const auto of_entities = [&](const Difference& difference) {
    Difference complete = difference;
    complete.old_entity = &old_entity;
    complete.new_entity = &new_entity;
    visitor(complete);
  };
  long long fields = 0;
  const FieldList old_list(old_entity, true);
  const FieldList new_list(new_entity, true);
  compare_lists(Difference::Kind::changed, old_list.fields(), new_list.fields(), of_entities, counts, fields);
  if (fields > 0) ++counts.changed;
}
