#include "diff/fields.h"

#include <climits>
#include <utility>

#include "text/text.h"

namespace {

void visit_attribute(igsFieldVisitor& visitor, const char* name, const igsDEAttribute& attribute) {
  const igsObject* const definition = attribute.definition().object();
  definition != nullptr ? visitor.reference(name, definition) : visitor.integer(name, attribute.field());
}

/// The library keeps field 3 as a number; where it is negative it names an entity like the others do.
void visit_structure(igsFieldVisitor& visitor, const igsObject& entity) {
  const int field = entity.directory_entry().structure();
  const igsObject* const definition = field < 0 && field >= -INT_MAX ? entity.file().entity(-field) : nullptr;
  definition != nullptr ? visitor.reference("structure", definition) : visitor.integer("structure", field);
}

}  // namespace

void visit_attributes(const igsObject& entity, igsFieldVisitor& visitor) {
  const igsDirectoryEntry& entry = entity.directory_entry();
  const igsStatusFlags& flags = entry.status_flags();
  visitor.integer("form_number", entry.form_number());
  visit_structure(visitor, entity);
  visit_attribute(visitor, "line_font", entry.line_font());
  visit_attribute(visitor, "level", entry.level());
  visitor.reference("view", entry.view().object());
  visitor.reference("matrix", entry.matrix().object());
  visitor.reference("label_display", entry.label_display().object());
  visitor.integer("blank_status", flags.blank_status());
  visitor.integer("subordinate_status", flags.subordinate_status());
  visitor.integer("entity_use", flags.entity_use());
  visitor.integer("hierarchy", flags.hierarchy());
  visitor.integer("line_weight", entry.line_weight());
  visit_attribute(visitor, "colour", entry.colour());
  // Where the label stands in its 8 columns says nothing.
  visitor.text("entity_label", without_outer_blanks(entry.entity_label()));
  visitor.integer("entity_subscript", entry.entity_subscript());
}

void visit_parameters(const igsObject& entity, igsFieldVisitor& visitor) {
  const bool is_kept = entity.isa(igsUnknown::type());
  if (is_kept) visitor.begin_group("Field");
  entity.visit_fields(visitor);
  if (is_kept) visitor.end_group();
  if (const igsKeptParts* const parts = entity.file().kept_parts(entity)) parts->visit_fields(visitor);
}

FieldList::FieldList(const igsObject& entity, bool with_paths) : m_with_paths(with_paths) {
  visit_attributes(entity, *this);
  m_num_attributes = m_fields.size();
  visit_parameters(entity, *this);
}

void FieldList::begin_group(const char* label) {
  const std::size_t outer_length = m_path.size();
  append_to_path(label);
  m_groups.push_back({outer_length});
}

void FieldList::end_group() {
  m_path.resize(m_groups.back().outer_length);
  m_groups.pop_back();
}

void FieldList::add(const char* label, FieldValue value) {
  const std::size_t outer_length = m_path.size();
  append_to_path(label);
  m_fields.push_back({m_path, std::move(value)});
  m_path.resize(outer_length);
}

void FieldList::append_to_path(const char* label) {
  if (!m_with_paths) return;
  if (label == nullptr) {
    m_path += '(' + std::to_string(m_groups.back().next_element++) + ')';
  } else {
    if (!m_path.empty() && *label != '(') m_path += '.';
    m_path += label;
  }
}
