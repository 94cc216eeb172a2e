#include "igs/file/igsDirectoryEntry.h"

#include <climits>
#include <cstddef>
#include <string_view>

#include "igs/catalogue/igsInfoDB.h"
#include "igs/curves/igs124.h"
#include "igs/file/igsDE_errors.h"
#include "igs/file/igsFile.h"
#include "igs/file/private/igsDirectoryFields.h"
#include "igs/input/private/record.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

igsDEAttribute& igsDEAttribute::operator=(const igsDEAttribute& other) {
  if (other.is_number()) return *this = igsDEAttribute(other.value());
  Reference& own = make_reference();
  own.definition = other.reference()->definition;
  own.value = other.reference()->value;
  return *this;
}

igsDEAttribute::Reference& igsDEAttribute::make_reference() {
  if (is_number()) m_state = reinterpret_cast<std::uintptr_t>(new Reference(value()));
  return *reference();
}

void igsDEAttribute::refer_to(int field) {
  if (field > INT_MIN) make_reference().definition = igsObjectPtr(-field);
}

const igsObjectPtr& igsDEAttribute::definition() const {
  static const igsObjectPtr none;
  return is_number() ? none : reference()->definition;
}

int igsDEAttribute::field() const {
  const int de = is_number() ? 0 : reference()->definition.de_number();
  return de != 0 ? -de : value();
}

int igsDirectoryEntry::structure() const {
  if (m_structure >= 0 || !keeps_structure()) return m_structure;
  const igsKeptParts* const parts = m_manager->file()->kept_parts(*m_manager->object());
  return parts != nullptr ? -parts->structure.de_number() : m_structure;  // the file was not read so
}

void igsDirectoryEntry::set_structure(int structure) {
  m_structure = structure;
  if (!keeps_structure()) return;
  igsFile& file = *m_manager->file();
  const igsObject& object = *m_manager->object();
  if (structure < 0 && structure > INT_MIN) {
    file.make_kept_parts(object).structure = igsObjectPtr(file.entity(-structure));
  } else if (file.kept_parts(object) != nullptr) {
    file.make_kept_parts(object).structure = igsObjectPtr();
  }
}

bool igsDirectoryEntry::keeps_structure() const { return m_manager != nullptr && m_manager->file()->options().keep; }

namespace {
bool names_entity_of_type(const igsDEAttribute& attribute, int type) {
  return attribute.definition()->directory_entry().entity_type() == type;
}
}  // namespace

bool igsLineFont::valid() const {
  constexpr int last_pattern = 5;
  constexpr int line_font_definition = 304;
  if (!predefined_colour()) return names_entity_of_type(*this, line_font_definition);
  return value() >= 0 && value() <= last_pattern;
}

bool igsLevel::valid() const {
  constexpr int property = 406;
  return predefined_colour() ? value() >= 0 : names_entity_of_type(*this, property);
}

bool igsColour::valid() const {
  constexpr int last_colour = 8;
  constexpr int colour_definition = 314;
  if (!predefined_colour()) return names_entity_of_type(*this, colour_definition);
  return value() >= 0 && value() <= last_colour;
}

const igsDirectoryEntry::Rare& igsDirectoryEntry::no_rare(bool blank) {
  // Never destroyed, and no file's: files may go after all that is static.
  static const Rare* const none = ::new Rare;
  static const Rare* const with_blank_label = ::new Rare(utString(igsDirectoryFields<utString>::field_width, ' '));
  return blank ? *with_blank_label : *none;
}

igsDirectoryEntry::Rare& igsDirectoryEntry::make_rare() {
  if (m_rare == nullptr) m_rare = std::make_unique<Rare>(entity_label());
  return *m_rare;
}

void igsDirectoryEntry::set_view(const igsObjectPtr& view) {
  if (m_rare != nullptr || view.is_bound()) make_rare().view = view;
}

void igsDirectoryEntry::set_label_display(const igsObjectPtr& label_display) {
  if (m_rare != nullptr || label_display.is_bound()) make_rare().label_display = label_display;
}

void igsDirectoryEntry::set_entity_label(const utString& label) {
  const bool is_blank = label == no_rare(true).label;
  if (m_rare == nullptr && (is_blank || label.empty())) {
    m_label_is_blank = is_blank;
  } else {
    make_rare().label = label;
  }
}

void igsDirectoryEntry::become(const igsDirectoryEntry& other) {
  set_type(other.m_entity_type, other.m_form_number);
  m_parameter_data_pointer = other.m_parameter_data_pointer;
  m_parameter_line_count = other.m_parameter_line_count;
  set_structure(other.structure());
  m_line_weight = other.m_line_weight;
  m_entity_subscript = other.m_entity_subscript;
  m_status_flags = other.m_status_flags;
  m_line_font = other.m_line_font;
  m_level = other.m_level;
  m_colour = other.m_colour;
  set_view(other.view());
  m_matrix = other.m_matrix;
  set_label_display(other.label_display());
  set_entity_label(other.entity_label());
}

void igsDirectoryEntry::unreference_children() {
  m_line_font.unreference();
  m_level.unreference();
  if (m_rare != nullptr) m_rare->view.unreference();
  m_matrix.unreference();
  if (m_rare != nullptr) m_rare->label_display.unreference();
  m_colour.unreference();
}

void igsDirectoryEntry::visit_pointers(igsPointerVisitor& visitor) {
  for (igsDEAttribute* const attribute : std::initializer_list<igsDEAttribute*>{&m_line_font, &m_level, &m_colour}) {
    if (attribute->field() < 0) visitor.visit(attribute->definition());
  }
  if (m_rare != nullptr) visitor.visit(m_rare->view);
  visitor.visit(m_matrix);
  if (m_rare != nullptr) visitor.visit(m_rare->label_display);
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
  if (use == igsStatusFlags::use_logical_positional ||
      (use == igsStatusFlags::use_2d_parametric && !may_be_parametric)) {
    m_manager->object()->tag_error(new igsDEInvalidEntityUse(igsStatusFlags::use_geometry));
  }
}

void igsDirectoryEntry::take(const igsDirectoryFields<utString>& fields, bool label_is_blank) {
  m_label_is_blank = label_is_blank;  // before m_rare, which takes the label over
  m_parameter_data_pointer = fields.parameter_data;
  m_structure = fields.structure;
  m_line_font = igsLineFont(fields.line_font);
  m_level = igsLevel(fields.level);
  if (fields.view != 0) make_rare().view = igsObjectPtr(fields.view);
  if (fields.matrix != 0) m_matrix = igsObjectPtr(fields.matrix);
  if (fields.label_display != 0) make_rare().label_display = igsObjectPtr(fields.label_display);
  m_status_flags = {fields.blank_status, fields.subordinate_status, fields.entity_use, fields.hierarchy};
  m_line_weight = fields.line_weight;
  m_colour = igsColour(fields.colour);
  m_parameter_line_count = fields.parameter_lines;
  m_form_number = fields.form;
  if (!fields.label.empty()) set_entity_label(fields.label);
  m_entity_subscript = fields.subscript;
}

void igsDirectoryEntry::write(igsOutStream& out) const {
  igsDirectoryFields<std::string_view> fields{.type = m_entity_type,
                                              .parameter_data = m_parameter_data_pointer,
                                              .structure = structure(),
                                              .line_font = m_line_font.field(),
                                              .level = m_level.field(),
                                              .view = view().de_number(),
                                              .matrix = m_matrix.de_number(),
                                              .label_display = label_display().de_number(),
                                              .blank_status = m_status_flags.blank_status(),
                                              .subordinate_status = m_status_flags.subordinate_status(),
                                              .entity_use = m_status_flags.entity_use(),
                                              .hierarchy = m_status_flags.hierarchy(),
                                              .second_type = m_entity_type,
                                              .line_weight = m_line_weight,
                                              .colour = m_colour.field(),
                                              .parameter_lines = m_parameter_line_count,
                                              .form = m_form_number,
                                              .label = entity_label(),
                                              .subscript = m_entity_subscript};
  FixedColumns<std::size_t{2} * data_columns> records;
  fields.layout(igsDirectoryWriter(records));
  out.write_columns(records.text());
}

void igsDirectoryEntry::print(utOstream& os) const {
  os << "EntityType = " << static_cast<int>(m_entity_type) << " (" << igsInfoDB::entity_name(m_entity_type) << ')'
     << utEndl;
  os << "FormNumber = " << m_form_number << utEndl;
  os << "Structure = " << structure() << utEndl;
  os << "LineFont = " << m_line_font.field() << utEndl;
  os << "Level = " << m_level.field() << utEndl;
  os << "View = " << view().de_number() << utEndl;
  os << "TransformationMatrix = " << m_matrix.de_number() << utEndl;
  os << "LabelDisplay = " << label_display().de_number() << utEndl;
  m_status_flags.print(os);
  os << "LineWeight = " << m_line_weight << utEndl;
  os << "Colour = " << m_colour.field() << utEndl;
  os << "EntityLabel = \"" << entity_label() << '"' << utEndl;
  os << "EntitySubscript = " << m_entity_subscript << utEndl;
}
