#pragma once

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "igs/igs.h"

/// What a field of an entity holds; the last is a pointer, null for a null pointer.
using FieldValue = std::variant<int, double, std::string, const igsObject*>;

struct Field {
  /// "StartPoint.x", "Knots(3)" for parameters, "line_font" for attributes. Tells the fields of one entity apart.
  std::string path;
  FieldValue value;
};

/// Shows the attributes in the directory entry, under the names of their accessors, except the entity type and those
/// that follow from where the entity stands in its file.
void visit_attributes(const igsObject& entity, igsFieldVisitor& visitor);

/// Shows the parameters of an entity, then what was kept beside them (igsKeptParts); the fields of an entity without a
/// class in a group "Field".
void visit_parameters(const igsObject& entity, igsFieldVisitor& visitor);

/// Collects fields in the order in which they are shown.
class FieldList : public igsFieldVisitor {
 public:
  /// The attributes and the parameters of an entity. Making the paths takes most of the time: they may be left empty.
  FieldList(const igsObject& entity, bool with_paths);

  const std::vector<Field>& fields() const { return m_fields; }
  /// How many of them, the first ones, are attributes.
  std::size_t num_attributes() const { return m_num_attributes; }

  void integer(const char* label, int value) override { add(label, value); }
  void real(const char* label, double value) override { add(label, value); }
  void text(const char* label, const utString& value) override { add(label, value); }
  void reference(const char* label, const igsObject* target) override { add(label, target); }
  void begin_group(const char* label) override;
  void end_group() override;

 private:
  struct Group {
    std::size_t outer_length;  ///< of the path without this group
    int next_element = 0;
  };
  void add(const char* label, FieldValue value);
  void append_to_path(const char* label);

  bool m_with_paths;
  std::string m_path;  ///< of the innermost group
  std::vector<Group> m_groups{Group{0}};
  std::vector<Field> m_fields;
  std::size_t m_num_attributes = 0;
};
