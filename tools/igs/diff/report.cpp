#include "diff/report.h"

#include <map>
#include <ostream>
#include <utility>

#include "text/json_writer.h"
#include "text/text.h"

namespace {

using Kind = Difference::Kind;

std::string entity_text(const igsObject& entity) {
  return "DE " + std::to_string(entity.de_number()) + " (" +
         std::to_string(static_cast<int>(entity.directory_entry().entity_type())) + ')';
}

struct TextOfValue {
  std::string operator()(int number) const { return number == igs_unset_int ? "unset" : std::to_string(number); }
  std::string operator()(double number) const { return igs_is_undefined_real(number) ? "unset" : format_real(number); }
  std::string operator()(const std::string& text) const { return '"' + printable(text) + '"'; }
  std::string operator()(const igsObject* target) const { return target != nullptr ? entity_text(*target) : "null"; }
};

std::string text_of(const std::optional<FieldValue>& value) {
  return value ? std::visit(TextOfValue(), *value) : "none";
}

std::string shown(const Difference& difference, const std::optional<FieldValue>& value) {
  const bool is_figure = difference.kind == Kind::geometry && value;
  return is_figure ? format_figure(std::get<double>(*value)) : text_of(value);
}

const char* title_of(Kind kind) {
  if (kind == Kind::start) return "Start section";
  if (kind == Kind::geometry) return "Geometry";
  return kind == Kind::global ? "Global section" : "Left out on reading";
}

/// "116 Point"; types that the standard does not have are without a name.
std::string kind_of(int type) {
  const utString& name = igsInfoDB::entity_name(type);
  return std::to_string(type) + (name.empty() ? "" : ' ' + name);
}

void write_entities(std::ostream& out, const Difference& difference) {
  const igsObject* const old_entity = difference.old_entity;
  const igsObject* const new_entity = difference.new_entity;
  const igsObject& shown = old_entity != nullptr ? *old_entity : *new_entity;
  out << "DE " << shown.de_number();
  if (old_entity != nullptr && new_entity != nullptr && old_entity->de_number() != new_entity->de_number()) {
    out << " -> " << new_entity->de_number();
  }
  out << two_spaces << kind_of(shown.directory_entry().entity_type()) << two_spaces;
}

void write_text(std::ostream& out, const Difference& difference) {
  if (difference.old_entity != nullptr || difference.new_entity != nullptr) {
    write_entities(out, difference);
  } else {
    out << title_of(difference.kind) << two_spaces;
  }
  if (difference.kind == Kind::removed) {
    out << "removed\n";
  } else if (difference.kind == Kind::added) {
    out << "added\n";
  } else {
    const bool is_of_face = difference.kind == Kind::geometry && difference.old_entity != nullptr;
    out << (is_of_face ? "geometry " : "") << difference.field << two_spaces << shown(difference, difference.old_value)
        << " -> " << shown(difference, difference.new_value) << '\n';
  }
}

void write_counts(std::ostream& out, const DifferenceCounts& counts, const Comparison& comparison) {
  if (counts.is_same()) {
    out << "no differences";
  } else {
    out << counted(counts.changed, "entity", "entities") << " changed, " << counts.removed << " removed, "
        << counts.added << " added";
  }
  if (counts.global > 0) out << ", " << counted(counts.global, "Global parameter", "Global parameters") << " changed";
  if (counts.start > 0) out << ", " << counted(counts.start, "Start line", "Start lines") << " changed";
  if (counts.left_out > 0) out << ", left-out entities of " << counted(counts.left_out, "kind", "kinds") << " changed";
  if (counts.geometry > 0) out << ", " << counted(counts.geometry, "figure", "figures") << " of the geometry changed";
  if (counts.close_reals > 0) {
    out << ", " << counted(counts.close_reals, "real differs", "reals differ") << ' ' << comparison.reals().excuse();
  }
  const long long not_compared = comparison.num_not_compared();
  if (not_compared > 0) {
    out << ", " << counted(not_compared, "left-out entity", "left-out entities") << " not compared";
  }
  out << '\n';
}

class JsonValue {
 public:
  explicit JsonValue(JsonWriter& json) : m_json(json) {}
  void operator()(int number) { number == igs_unset_int ? m_json.null() : m_json.value(number); }
  void operator()(double number) { igs_is_undefined_real(number) ? m_json.null() : m_json.value(number); }
  void operator()(const std::string& text) { m_json.value(text); }
  void operator()(const igsObject* target) {
    if (target == nullptr) return m_json.null();
    m_json.begin_object();
    m_json.member("de", target->de_number());
    m_json.member("type", static_cast<int>(target->directory_entry().entity_type()));
    m_json.end_object();
  }

 private:
  JsonWriter& m_json;
};

const char* name_of(Kind kind) {
  switch (kind) {
    case Kind::start:
      return "start";
    case Kind::global:
      return "global";
    case Kind::left_out:
      return "dropped";
    case Kind::geometry:
      return "geometry";
    case Kind::changed:
      return "changed";
    case Kind::removed:
      return "removed";
    default:
      return "added";
  }
}

void write_json_value(JsonWriter& json, const char* name, const std::optional<FieldValue>& value) {
  if (!value) return;
  json.key(name);
  std::visit(JsonValue(json), *value);
}

void write_json(JsonWriter& json, const Difference& difference) {
  const igsObject* const old_entity = difference.old_entity;
  const igsObject* const new_entity = difference.new_entity;
  json.begin_object();
  json.member("change", name_of(difference.kind));
  if (old_entity != nullptr) json.member("old_de", old_entity->de_number());
  if (new_entity != nullptr) json.member("new_de", new_entity->de_number());
  if (old_entity != nullptr || new_entity != nullptr) {
    const igsObject& entity = old_entity != nullptr ? *old_entity : *new_entity;
    json.member("type", static_cast<int>(entity.directory_entry().entity_type()));
  }
  if (!difference.field.empty()) json.member("field", difference.field);
  write_json_value(json, "old", difference.old_value);
  write_json_value(json, "new", difference.new_value);
  json.end_object();
}

}  // namespace

DifferenceCounts write_text_differences(std::ostream& out, const Comparison& comparison, std::size_t max_changes,
                                        const std::string& title) {
  std::size_t count = 0;
  const DifferenceCounts counts = comparison.visit([&](const Difference& difference) {
    if (count++ < max_changes) write_text(out, difference);
  });
  if (count > max_changes) {
    out << '(' << counted(static_cast<long long>(count - max_changes), "more change is", "more changes are")
        << " not listed)\n";
  }
  out << printable(title) << ": ";
  write_counts(out, counts, comparison);
  return counts;
}

namespace {

void write_json_totals(JsonWriter& json, const DifferenceCounts& counts, const Comparison& comparison) {
  json.member("same", counts.is_same());
  json.member("changed", counts.changed);
  json.member("removed", counts.removed);
  json.member("added", counts.added);
  json.member("global", counts.global);
  json.member("start", counts.start);
  json.member("dropped", counts.left_out);
  if (comparison.has_figures()) json.member("geometry", counts.geometry);
  json.member("close", counts.close_reals);
  json.member("not_compared", comparison.num_not_compared());
}

/// How many entities of a type differ.
struct TypeCounts {
  long long changed = 0, removed = 0, added = 0;
};

/// Counts the entities that differ by type.
class TypeStatistics {
 public:
  void add(const Difference& difference) {
    const bool is_old = difference.old_entity != nullptr;
    const igsObject* const entity = is_old ? difference.old_entity : difference.new_entity;
    if (entity == nullptr || difference.kind == Kind::geometry) return;
    TypeCounts& counts = m_counts[entity->directory_entry().entity_type()];
    if (difference.kind == Kind::removed) ++counts.removed;
    if (difference.kind == Kind::added) ++counts.added;
    // The fields of an entity come one after the other.
    if (difference.kind == Kind::changed && std::exchange(m_last, entity) != entity) ++counts.changed;
  }
  const std::map<int, TypeCounts>& counts() const { return m_counts; }

 private:
  std::map<int, TypeCounts> m_counts;
  const igsObject* m_last = nullptr;
};

}  // namespace

DifferenceCounts write_text_statistics(std::ostream& out, const Comparison& comparison, const std::string& title) {
  TypeStatistics types;
  const DifferenceCounts counts = comparison.visit([&types](const Difference& difference) { types.add(difference); });
  for (const auto& [type, of_type] : types.counts()) {
    out << kind_of(type) << two_spaces << of_type.changed << " changed, " << of_type.removed << " removed, "
        << of_type.added << " added\n";
  }
  out << printable(title) << ": ";
  write_counts(out, counts, comparison);
  return counts;
}

DifferenceCounts write_json_statistics(JsonWriter& json, const Comparison& comparison) {
  TypeStatistics types;
  const DifferenceCounts counts = comparison.visit([&types](const Difference& difference) { types.add(difference); });
  json.key("types");
  json.begin_object();
  for (const auto& [type, of_type] : types.counts()) {
    json.key(std::to_string(type));
    json.begin_object();
    json.member("changed", of_type.changed);
    json.member("removed", of_type.removed);
    json.member("added", of_type.added);
    json.end_object();
  }
  json.end_object();
  write_json_totals(json, counts, comparison);
  return counts;
}

DifferenceCounts write_json_differences(JsonWriter& json, const Comparison& comparison, std::size_t max_changes) {
  json.key("changes");
  json.begin_array();
  std::size_t count = 0;
  const DifferenceCounts counts = comparison.visit([&](const Difference& difference) {
    if (count++ < max_changes) write_json(json, difference);
  });
  json.end_array();
  write_json_totals(json, counts, comparison);
  return counts;
}
