// Reading a file: the drivers of igsFile that take the sections from the input stream.

#include <new>

#include "igs/catalogue/igsInfoDB.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsEntityPool.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFileMemory.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/input/igsInStream.h"
#include "igs/input/record.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/objects/igsPlaceholders.h"

int igsFile::read(std::istream& in, utOstream& messages) {
  const igsFileScope current(*this);
  const int result = within_memory([&] { return read_stream(in, messages); });
  if (m_out_of_memory) {
    m_read_fault = {};
    m_parameter_data_read = 0;
  }
  return result;
}

int igsFile::read_stream(std::istream& in, utOstream& messages) {
  igsInStream stream(in, {.messages = m_message_stream});
  if (stream.reset() == 0) {
    note_read_fault(stream);
    m_parameter_data_read = 0;
    return 0;
  }
  stream.clear_errors();

  const int result = read_sections(stream, messages);
  if (result == 0) note_read_fault(stream);
  // Stepping over a boundary forgets what the record behind it has met.
  if (stream.ever_met(igsIOSequenceOutOfOrder)) m_invalid_line_numbers = 1;
  if (stream.ever_met(igsIOBlankLine)) m_blank_lines = 1;
  if (m_invalid_line_numbers != 0) tag_error(new igsFileInvalidLineNumbers);
  if (m_blank_lines != 0) tag_error(new igsFileBlankLine);
  if (m_parameter_data_read != 0) tidyup();
  return result;
}

int igsFile::read_sections(igsInStream& in, utOstream& messages) {
  int result = m_start_section.read(in);
  note_line_faults(in);
  if (result != 0) result = m_global_section.read(in, messages, m_invalid_line_numbers, m_blank_lines);
  if (result != 0) result = read_directory_section(in);
  if (result != 0) {
    reset_visit_flags();
    result = read_parameter_data_section(in);
  }
  m_parameter_data_read = result;
  if (result == 0) return 0;
  result = m_terminate_section.read(in);
  note_line_faults(in);
  return result;
}

void igsFile::note_read_fault(igsInStream& in) {
  m_read_fault = {};
  for (const igsIOErrorCode code :
       {igsIONoSectionLetter, igsIOBadBackPointer, igsIOStreamBad, igsIOEndOfInput, igsIOStreamFailed}) {
    if (m_read_fault.code == igsIOValuePresent && in.error_type(code) != 0) m_read_fault.code = code;
  }
  for (int section = 0; section < num_file_sections; ++section) {
    m_read_fault.records_before += in.num_lines(static_cast<igsFileSection>(section));
  }
  // A record with a bad back-pointer was counted all the same.
  if (m_read_fault.code == igsIOBadBackPointer) --m_read_fault.records_before;
}

void igsFile::note_line_faults(igsInStream& in) {
  if (in.error_type(igsIOSequenceOutOfOrder) != 0) m_invalid_line_numbers = 1;
  if (in.error_type(igsIOBlankLine) != 0) m_blank_lines = 1;
}

namespace {
// A stream may fail behind a sound record, which does not freeze the buffer: no other section can follow then.
int leave_section(igsInStream& in) {
  if (in.fatal_error() != 0 || in.reset() == 0) return 0;
  in.clear_errors();
  return 1;
}
}  // namespace

int igsFile::read_directory_section(igsInStream& in) {
  while (read_directory_entry(in) != 0) {
  }
  return leave_section(in);
}

namespace {
/// The fields of a directory entry as they stand in the file, in file order.
struct DirectoryFields {
  int type = 0, parameter_data = 0, structure = 0, line_font = 0, level = 0, view = 0, matrix = 0, label_display = 0;
  int blank_status = 0, subordinate_status = 0, entity_use = 0, hierarchy = 0;
  int second_type = 0, line_weight = 0, colour = 0, parameter_lines = 0, form = 0;
  utString label;
  int subscript = 0;

  bool has_nul = false;

  void read(igsInStream& in) {
    constexpr unsigned field_width = 8, status_width = 2, reserved_width = 16;
    // The stream has come to the next entry's record before the last field is taken, so each record is asked in its
    // turn.
    has_nul = in.nul_in_record();
    in.read_integers(field_width,
                     {&type, &parameter_data, &structure, &line_font, &level, &view, &matrix, &label_display});
    in.read_integers(status_width, {&blank_status, &subordinate_status, &entity_use, &hierarchy});
    has_nul = has_nul || in.nul_in_record();
    in.read_integers(field_width, {&second_type, &line_weight, &colour, &parameter_lines, &form});
    in.skip_columns(reserved_width);
    in.read_string(field_width, label);
    in.read_integers(field_width, {&subscript});
  }

  void store(igsDirectoryEntry& entry) const {
    entry.set_start_of_parameter_data(parameter_data);
    entry.set_structure(structure);
    entry.set_line_font(igsLineFont(line_font));
    entry.set_level(igsLevel(level));
    entry.set_view(igsObjectPtr(view));
    entry.set_matrix(igsObjectPtr(matrix));
    entry.set_label_display(igsObjectPtr(label_display));
    entry.set_status_flags({blank_status, subordinate_status, entity_use, hierarchy});
    entry.set_line_weight(line_weight);
    entry.set_colour(igsColour(colour));
    entry.set_parameter_line_count(parameter_lines);
    entry.set_form_number(form);
    entry.set_entity_label(label);
    entry.set_entity_subscript(subscript);
  }
};

constexpr int unknown_type = -1;

/// The type and form that the entity is made for: type -1 for what no class can stand for.
void settle_type(DirectoryFields& fields, int location) {
  if (fields.type != fields.second_type) {
    igs_report<igsFileDEEntityTypeMismatch>(location, fields.type, fields.second_type);
    fields.type = unknown_type;
  }
  if (!igsInfoDB::entity_exists(fields.type)) {  // the database knows the unknown type, with any form
    igs_report<igsFileInvalidIGESEntity>(location, fields.type);
    fields.type = unknown_type;
    return;
  }
  if (igsInfoDB::form_exists(fields.type, fields.form)) return;
  int default_form = 0;
  int found = 0;
  igsInfoDB::default_form_number(fields.type, default_form, found);
  if (found != 0) {
    igs_report<igsFileDefaultedForm>(location, fields.type, fields.form);
    fields.form = default_form;
  } else {
    igs_report<igsFileUnknownForm>(location, fields.type, fields.form);
    fields.type = unknown_type;
  }
}
}  // namespace

int igsFile::read_directory_entry(igsInStream& in) {
  if (in.in_section(igsDirectorySectionId) == 0) return 0;
  igsFileSection section;
  int location = 0;
  int column = 0;
  in.position(section, location, column);
  DirectoryFields fields;
  fields.read(in);
  const std::pair<int, int> type_in_file(fields.type, fields.form);
  settle_type(fields, location);
  if (fields.has_nul) tag_error(new igsFileDENullCharacters(location));
  note_line_faults(in);

  igsObject* const object = igsObject::create(static_cast<igsEntityType>(fields.type), fields.form);
  fields.store(object->directory_entry());
  if (object->isa(igsUnknown::type())) {
    static_cast<igsUnknown*>(object)->set_type_in_file(type_in_file.first, type_in_file.second);
  }
  return in.fatal_error() == 0 ? 1 : 0;
}

int igsFile::read_parameter_data_section(igsInStream& in) {
  while (in.in_section(igsParameterSectionId) != 0) {
    if (igsObject* const object = entity(in.backpointer())) {
      if (read_entity(in, *object) == 0) break;
    } else {
      while (!in.frozen()) in.skip_line();  // it freezes where the back-pointer changes
      if (in.reset() == 0) break;
      in.clear_errors();
    }
  }
  return leave_section(in);
}

// Returns 0 when the section cannot be read on.
int igsFile::read_entity(igsInStream& in, igsObject& object) {
  igsFileSection section;
  int first_line = 0;
  int column = 0;
  in.position(section, first_line, column);
  const int lines_before = in.num_lines(igsParameterSectionId);
  const igsDirectoryEntry& entry = object.directory_entry();
  const int de = object.de_number();
  if (entry.start_of_parameter_data() != first_line) {
    igs_report<igsFileIncorrectStartOfPD>(de, first_line, entry.start_of_parameter_data());
  }
  int sequence_out_of_order = 0;
  try {
    object.read(in, sequence_out_of_order);
  } catch (const std::bad_alloc&) {  // half of an entity is none: its counts need not agree with its lists
    delete &object;
    throw;
  }
  if (sequence_out_of_order != 0) m_invalid_line_numbers = 1;
  if (in.error_type(igsIOBlankLine) != 0) m_blank_lines = 1;
  if (in.reset() == 0) {
    const bool bad_record = in.error_type(igsIOBadBackPointer) != 0 || in.error_type(igsIOBadSequenceNumber) != 0 ||
                            in.error_type(igsIONoSectionLetter) != 0;
    if (bad_record) drop_entity(&object);
    return 0;
  }
  in.clear_errors();
  // The count includes the record that the stream has come to, when that is the next entity's first.
  const int next_record = in.in_section(igsParameterSectionId) != 0 ? 0 : 1;
  const int lines = in.num_lines(igsParameterSectionId) - lines_before + next_record;
  if (lines != entry.parameter_line_count()) {
    igs_report<igsFileIncorrectPDLineCount>(de, lines, entry.parameter_line_count());
  }
  return 1;
}

void igsFile::drop_entity(igsObject* object) {
  std::pair<int, int> type_and_form(object->directory_entry().entity_type(), object->directory_entry().form_number());
  if (object->isa(igsUnknown::type())) {
    const auto* const unknown = static_cast<const igsUnknown*>(object);
    type_and_form = {unknown->type_in_file(), unknown->form_in_file()};
  }
  ++m_dropped[type_and_form];
  delete object;
}

void igsFile::tidyup() {
  igsFileIT entities(this);
  while (++entities) {
    igsObject* const object = entities();
    if (object->isa(igsNull::type())) {
      ++m_num_deleted_nulls;
      drop_entity(object);
    } else if (object->isa(igsUnknown::type())) {
      ++m_num_deleted_unknowns;
      drop_entity(object);
    } else if (object->manager()->visited() == 0) {
      const int de = object->de_number();
      drop_entity(object);
      tag_error(new igsFileNoPDData(de));
    }
  }
  for (const auto& [slot, manager] : m_pending) {
    m_pool->destroy(manager);
    --m_num_managers;
  }
  m_pending = {};
}
