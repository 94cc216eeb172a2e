// Reading a file: the drivers of igsFile that take the sections from the input stream.

#include <new>
#include <string_view>

#include "igs/catalogue/igsFactory.h"
#include "igs/catalogue/igsInfoDB.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/file/private/igsDirectoryFields.h"
#include "igs/file/private/igsEntityPool.h"
#include "igs/file/private/igsFileMemory.h"
#include "igs/input/igsFieldTexts.h"
#include "igs/input/igsInStream.h"
#include "igs/input/private/record.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/objects/igsPlaceholders.h"
#include "igs/support/private/makeRoom.h"

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
  igsLineEnd& line_end = m_options.style.line_end;
  igsInStream stream(in, {.messages = m_message_stream,
                          .recover = m_options.recover,
                          .lines = m_options.lines,
                          .note_line_end = line_end == igsLineEnd::as_read});
  if (line_end == igsLineEnd::as_read) line_end = stream.first_line_end();
  if (stream.reset() == 0) {
    note_read_fault(stream);
    m_parameter_data_read = 0;
    return 0;
  }
  stream.clear_errors();

  int result = read_sections(stream, messages);
  if (result == 0) note_read_fault(stream);
  if (m_options.recover) result = salvage(stream, result);
  if (stream.ever_met(igsIOSequenceOutOfOrder)) tag_error(new igsFileInvalidLineNumbers);
  if (stream.ever_met(igsIOBlankLine)) tag_error(new igsFileBlankLine);
  if (m_parameter_data_read != 0) tidyup();
  return result;
}

/// What reading has assumed, and whether what has been read counts as a file.
int igsFile::salvage(igsInStream& in, int result) {
  for (const int de : in.owners_of_column_65()) {
    if (entity(de) != nullptr) igs_report<igsFileColumn65>(de);
  }
  if (in.mixed_line_ends()) tag_error(new igsFileMixedLineEnds);
  const igsIOErrorCode fault = m_read_fault.code;
  if (result == 0 && (fault == igsIOStreamBad || fault == igsIOStreamFailed)) return 0;
  if (result == 0 && fault != igsIOEndOfInput) {
    tag_error(new igsFileReadEnded(m_read_fault.records_before));
  } else {
    note_missing_sections(in);
  }
  // Without entities there is nothing to salvage.
  if (result == 0 && (in.num_lines(igsGlobalSectionId) == 0 || m_slots.empty())) return 0;
  if (result != 0) note_second_file(in);
  m_parameter_data_read = 1;
  return 1;
}

void igsFile::note_missing_sections(const igsInStream& in) {
  const bool has_entities = in.num_lines(igsDirectorySectionId) + in.num_lines(igsParameterSectionId) != 0;
  for (int section = 0; section < num_file_sections; ++section) {
    const auto id = static_cast<igsFileSection>(section);
    const bool needed = has_entities || (id != igsDirectorySectionId && id != igsParameterSectionId);
    if (needed && in.num_lines(id) == 0) tag_error(new igsFileMissingSection(id));
  }
}

void igsFile::note_second_file(igsInStream& in) {
  int records = 0;
  for (int section = 0; section < num_file_sections; ++section) {
    records += in.num_lines(static_cast<igsFileSection>(section));
  }
  in.skip_line();
  if (in.reset() != 0 && in.in_section(igsStartSectionId) != 0) tag_error(new igsFileSecondFile(records));
}

/// What the sequence numbers say is missing before the current record. False when that is the second record of an entry
/// whose first is missing: it has been passed over.
bool igsFile::lose_entries(igsInStream& in) {
  constexpr int most_at_once = 1000, surely_lost = 2;
  const int next_de = 2 * static_cast<int>(m_slots.size()) + 1;
  const int missing = in.number_as_read() - next_de;
  // No more than are there: the numbers are the file's word.
  if (missing <= 0 || missing > most_at_once || missing / 2 > in.num_lines(igsDirectorySectionId)) return true;
  // A number that stands alone is wrong.
  if (in.num_numbered_on(igsDirectorySectionId, in.number_as_read()) < (missing > surely_lost ? 2 : 0)) return true;
  for (int i = 0; i < (missing + 1) / 2; ++i) lose_entry();
  if (missing % 2 == 0) return true;
  in.skip_line();
  in.reset();
  return false;
}

void igsFile::lose_entry() {
  igs_report<igsFileLostDirectoryEntry>(2 * static_cast<int>(m_slots.size()) + 1);
  make_room(m_slots);
  m_slots.push_back(nullptr);
  m_num_fixed_slots = static_cast<int>(m_slots.size());
  ++m_num_holes;
}

void igsFile::note_line(int de_number, int igsEntityLines::*line, const igsInStream& in) {
  if (!m_options.lines) return;
  const auto slot = static_cast<std::size_t>(de_number / 2);
  if (slot >= m_lines.size()) m_lines.resize(slot + 1);
  m_lines[slot].*line = in.input_line();
}

int igsFile::read_sections(igsInStream& in, utOstream& messages) {
  const bool was_empty = m_slots.empty();
  m_num_read = 0;
  m_has_placeholders = false;
  const auto note_section = [&](igsFileSection section) {
    if (m_options.lines && in.in_section(section) != 0)
      m_section_lines.at(static_cast<std::size_t>(section)) = in.input_line();
  };
  note_section(igsStartSectionId);
  int result = m_start_section.read(in);
  note_section(igsGlobalSectionId);
  if (result != 0) result = m_global_section.read(in, messages);
  note_section(igsDirectorySectionId);
  if (result != 0) result = read_directory_section(in);
  note_section(igsParameterSectionId);
  if (result != 0) {
    if (!was_empty) reset_visit_flags();
    result = read_parameter_data_section(in);
  }
  m_parameter_data_read = result;
  note_section(igsTerminateSectionId);
  return result != 0 ? m_terminate_section.read(in) : 0;
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

namespace {
// What the fields have met is collected, or the first fields of the next section would answer for it. A stream may fail
// behind a sound record, which does not freeze the buffer: no other section can follow then.
int leave_section(igsInStream& in) {
  in.error();
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
using DirectoryFields = igsDirectoryFields<utString>;

constexpr int unknown_type = -1;

/// The type and form that the entity is made for: type -1 for what no class can stand for.
void settle_type(DirectoryFields& fields, int location, const igsFileOptions& options) {
  if (fields.type != fields.second_type) {
    igs_report<igsFileDEEntityTypeMismatch>(location, fields.type, fields.second_type);
    fields.type = unknown_type;
  }
  if (igsInfoDB::form_exists(fields.type, fields.form, options)) return;  // the unknown type has any form
  if (!igsInfoDB::entity_exists(fields.type)) {
    igs_report<igsFileInvalidIGESEntity>(location, fields.type);
    fields.type = unknown_type;
    return;
  }
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
  if (m_options.recover && !lose_entries(in)) return in.fatal_error() == 0 ? 1 : 0;
  note_line(2 * static_cast<int>(m_slots.size()) + 1, &igsEntityLines::directory_entry, in);
  igsFileSection section;
  int location = 0;
  int column = 0;
  in.position(section, location, column);
  DirectoryFields fields;
  igsDirectoryReader reader(in, m_options.recover);
  fields.layout(reader);
  if (reader.lost_second_record()) return lose_entry(), in.fatal_error() == 0 ? 1 : 0;
  const std::pair<int, int> type_in_file(fields.type, fields.form);
  const bool one_type = fields.type == fields.second_type;
  settle_type(fields, location, m_options);
  if (reader.has_nul()) tag_error(new igsFileDENullCharacters(location));

  igsObject* const object = igsFactory::make_one(static_cast<igsEntityType>(fields.type), fields.form, m_options);
  object->directory_entry().take(fields, reader.label_is_blank());
  if (object->isa(igsNull::type())) m_has_placeholders = true;
  if (object->isa(igsUnknown::type())) {
    m_has_placeholders = true;
    static_cast<igsUnknown*>(object)->set_type_in_file(type_in_file.first, type_in_file.second);
    if (m_options.keep && one_type) {
      object->set_directory_entry_type(static_cast<igsEntityType>(type_in_file.first), type_in_file.second);
    }
  }
  if (m_options.keep && fields.structure < 0) make_kept_parts(*object).structure = igsObjectPtr(-fields.structure);
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
int igsFile::read_entity(igsInStream& in, igsObject& met) {
  igsFileSection section;
  int first_line = 0;
  int column = 0;
  in.position(section, first_line, column);
  const int lines_before = in.num_lines(igsParameterSectionId);
  igsObject* object = &met;
  const bool was_read = met.manager()->visited() != 0;
  const int line_count = met.directory_entry().parameter_line_count();
  const int de = met.de_number();
  note_line(de, &igsEntityLines::parameter_data, in);
  if (const int start = met.directory_entry().start_of_parameter_data(); start != first_line) {
    igs_report<igsFileIncorrectStartOfPD>(de, first_line, start);
  }
  m_records.clear();
  const bool note_letter = m_options.style.exponent_letter == igsExponentLetter::as_read;
  if (m_options.strict || note_letter || (m_options.keep && object->isa(igsUnknown::type()))) {
    in.collect_text(&m_records);
  } else if (m_options.keep) {
    in.collect_rest(&m_records);
  }
  try {
    int sequence_out_of_order = 0;  // the stream remembers that, too
    in.take_met_odd_field();
    object->read(in, sequence_out_of_order);
    if (m_options.strict || m_options.keep) object = &judge_or_keep(in, *object);
  } catch (const std::bad_alloc&) {  // half of an entity is none: its counts need not agree with its lists
    delete object;
    throw;
  }
  in.collect_text(nullptr);
  if (note_letter) note_exponent_letter(in, m_records);
  in.error();  // collects what a reset that fails may forget
  if (in.reset() == 0) {
    const bool bad_record = in.error_type(igsIOBadBackPointer) != 0 || in.error_type(igsIOBadSequenceNumber) != 0 ||
                            in.error_type(igsIONoSectionLetter) != 0;
    if (bad_record) drop_entity(object);
    return 0;
  }
  in.clear_errors();
  // The count includes the record that the stream has come to, when that is the next entity's first.
  const int next_record = in.in_section(igsParameterSectionId) != 0 ? 0 : 1;
  const int lines = in.num_lines(igsParameterSectionId) - lines_before + next_record;
  if (lines != line_count) igs_report<igsFileIncorrectPDLineCount>(de, lines, line_count);
  if (!was_read && object->manager()->visited() != 0) ++m_num_read;
  return 1;
}

/// The letter of the first real with an exponent among the fields of `records`, if any.
void igsFile::note_exponent_letter(const igsInStream& in, const utString& records) {
  constexpr std::string_view letters = "DdEe";
  if (records.find_first_of(letters) == utString::npos) return;
  igsFieldTexts fields;
  fields.take(records, 0, in.param_delimiter(), in.record_delimiter());
  for (const std::string_view field : fields.fields()) {
    const std::size_t letter = field.find_first_of(letters);
    if (letter == std::string_view::npos || igsFieldTexts::kind(field) != igsFieldKind::real) continue;
    const bool is_d = field[letter] == 'D' || field[letter] == 'd';
    m_options.style.exponent_letter = is_d ? igsExponentLetter::d : igsExponentLetter::e;
    return;
  }
}

void igsFile::drop_entity(igsObject* object) {
  std::pair<int, int> type_and_form(object->directory_entry().entity_type(), object->directory_entry().form_number());
  if (object->isa(igsUnknown::type())) {
    const auto* const unknown = static_cast<const igsUnknown*>(object);
    type_and_form = {unknown->type_in_file(), unknown->form_in_file()};
  }
  ++m_dropped[type_and_form];
  if (type_and_form.first != 0) m_dropped_types.emplace(object->de_number(), type_and_form.first);
  if (m_options.keep && object->num_references() != 0) {
    lose_entity(*object);
  } else {
    delete object;
  }
}

void igsFile::tidyup() {
  if (m_options.keep || m_options.strict || m_has_placeholders || m_num_read != num_entities()) drop_unread_entities();
  if (m_options.keep) {
    settle_numbers();
    settle_lost_references();
    return;
  }
  for (const auto& [slot, manager] : m_pending) m_pool->destroy(manager);
  m_pending = {};
}

void igsFile::drop_unread_entities() {
  igsFileIT entities(this);
  while (++entities) {
    igsObject* const object = entities();
    if (object->isa(igsNull::type()) || object->directory_entry().entity_type() == 0) {
      ++m_num_deleted_nulls;
      drop_entity(object);
    } else if (object->isa(igsUnknown::type()) && !m_options.keep) {
      ++m_num_deleted_unknowns;
      drop_entity(object);
    } else if (object->manager()->visited() == 0) {
      const int de = object->de_number();
      drop_entity(object);
      tag_error(new igsFileNoPDData(de));
    }
  }
}
