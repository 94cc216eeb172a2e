#include "igs/file/igsDirectoryEntry.h"

#include <climits>
#include <cstddef>
#include <string_view>

#include "igs/catalogue/igsInfoDB.h"
#include "igs/curves/igs124.h"
#include "igs/file/igsDE_errors.h"
#include "igs/file/igsFile.h"
#include "igs/input/record.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/output/fixedColumns.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

igsDEAttribute::igsDEAttribute(int field) : m_value(field >= 0 ? field : 0) {
  if (field < 0 && field > INT_MIN) m_definition = igsObjectPtr(-field);
}

int igsDEAttribute::field() const { return predefined_colour() ? m_value : -m_definition.de_number(); }

namespace {
bool names_entity_of_type(const igsDEAttribute& attribute, int type) {
  return attribute.definition()->directory_entry().entity_type() == type;
}
}  // namespace

bool igsLineFont::valid() const {
  constexpr int last_pattern = 5;
  constexpr int line_font_definition = 304;
  if (!predefined_colour()) return names_entity_of_type(*this, line_font_definition);
  return m_value >= 0 && m_value <= last_pattern;
}

bool igsLevel::valid() const {
  constexpr int property = 406;
  return predefined_colour() ? m_value >= 0 : names_entity_of_type(*this, property);
}

bool igsColour::valid() const {
  constexpr int last_colour = 8;
  constexpr int colour_definition = 314;
  if (!predefined_colour()) return names_entity_of_type(*this, colour_definition);
  return m_value >= 0 && m_value <= last_colour;
}

void igsDirectoryEntry::become(const igsDirectoryEntry& other) {
  set_type(other.m_entity_type, other.m_form_number);
  m_parameter_data_pointer = other.m_parameter_data_pointer;
  m_parameter_line_count = other.m_parameter_line_count;
  m_structure = other.m_structure;
  m_line_weight = other.m_line_weight;
  m_entity_subscript = other.m_entity_subscript;
  m_status_flags = other.m_status_flags;
  m_line_font = other.m_line_font;
  m_level = other.m_level;
  m_colour = other.m_colour;
  m_view = other.m_view;
  m_matrix = other.m_matrix;
  m_label_display = other.m_label_display;
  m_entity_label = other.m_entity_label;
}

void igsDirectoryEntry::unreference_children() {
  m_line_font.unreference();
  m_level.unreference();
  m_view.unreference();
  m_matrix.unreference();
  m_label_display.unreference();
  m_colour.unreference();
}

void igsDirectoryEntry::check_matrix() const {
  if (m_matrix.object() == nullptr) return;
  const igsObject& entity = *m_manager->object();
  if (!m_matrix->typeof(igs124::type())) entity.tag_error(new igsDEInvalidMatrix);
  if (m_matrix->check() == 0) {
    auto* const error = new igsDEInvalidMatrixData;
    error->set_obj(m_matrix.de_number());
    entity.tag_error(error);
  }
}

void igsDirectoryEntry::check(bool with_matrix, int min_line_weight) const {
  const igsObject& entity = *m_manager->object();
  if (!m_line_font.valid()) entity.tag_error(new igsDEInvalidLineFont(m_line_font.field()));
  if (!m_level.valid()) entity.tag_error(new igsDEInvalidLevel(m_level.field()));
  if (with_matrix) check_matrix();
  if (!m_colour.valid()) entity.tag_error(new igsDEInvalidColour(m_colour.field()));
  if (!m_status_flags.valid()) entity.tag_error(new igsDEInvalidStatusFlags);
  const int max_line_weight = m_manager->file()->global_section().max_number_of_line_weights();
  if (m_line_weight < min_line_weight || m_line_weight > max_line_weight) {
    entity.tag_error(new igsDEInvalidLineWeight(m_line_weight));
  }
  if (m_entity_subscript < 0) entity.tag_error(new igsDEInvalidEntitySubscript(m_entity_subscript));
}

void igsDirectoryEntry::common_check() const { check(true, 0); }

void igsDirectoryEntry::direction_check() const { check(false, INT_MIN); }

void igsDirectoryEntry::shape_check(bool may_be_parametric) const {
  common_check();
  const igsEntityUse use = m_status_flags.entity_use();
  if (use == entity_use_logical_positional || (use == entity_use_2d_parametric && !may_be_parametric)) {
    m_manager->object()->tag_error(new igsDEInvalidEntityUse(entity_use_geometry));
  }
}

namespace {
using DirectoryRecords = FixedColumns<std::size_t{2} * data_columns>;

/// Two columns: a zero and the digit. Other values, none of the standard, stand there as far as they fit.
void add_status(DirectoryRecords& records, int status) {
  if (status >= 0 && status <= 9) {
    records.add_character('0');
    records.add_character(static_cast<char>('0' + status));
  } else {
    records.add_integer(2, status);
  }
}
}  // namespace

void igsDirectoryEntry::write(igsOutStream& out) const {
  constexpr int field_width = 8;
  constexpr int label_width = 24;  // the two reserved fields and the label, which stands in the last 8 columns
  DirectoryRecords records;
  for (const int field : {static_cast<int>(m_entity_type), m_parameter_data_pointer, m_structure, m_line_font.field(),
                          m_level.field(), m_view.de_number(), m_matrix.de_number(), m_label_display.de_number()}) {
    records.add_integer(field_width, field);
  }
  for (const int status : {m_status_flags.blank_status(), m_status_flags.subordinate_status(),
                           m_status_flags.entity_use(), m_status_flags.hierarchy()}) {
    add_status(records, status);
  }
  for (const int field :
       {static_cast<int>(m_entity_type), m_line_weight, m_colour.field(), m_parameter_line_count, m_form_number}) {
    records.add_integer(field_width, field);
  }
  records.add_text(label_width, std::string_view(m_entity_label).substr(0, field_width));
  records.add_integer(field_width, m_entity_subscript);
  out.write_columns(records.text());
}

void igsDirectoryEntry::print(utOstream& os) const {
  os << "EntityType = " << static_cast<int>(m_entity_type) << " (" << igsInfoDB::entity_name(m_entity_type) << ')'
     << utEndl;
  os << "FormNumber = " << m_form_number << utEndl;
  os << "Structure = " << m_structure << utEndl;
  os << "LineFont = " << m_line_font.field() << utEndl;
  os << "Level = " << m_level.field() << utEndl;
  os << "View = " << m_view.de_number() << utEndl;
  os << "TransformationMatrix = " << m_matrix.de_number() << utEndl;
  os << "LabelDisplay = " << m_label_display.de_number() << utEndl;
  m_status_flags.print(os);
  os << "LineWeight = " << m_line_weight << utEndl;
  os << "Colour = " << m_colour.field() << utEndl;
  os << "EntityLabel = \"" << m_entity_label << '"' << utEndl;
  os << "EntitySubscript = " << m_entity_subscript << utEndl;
}
