#include "igs/input/igsInBufferChecker.h"

#include <algorithm>
#include <climits>

#include "igs/input/private/number.h"
#include "igs/input/private/record.h"

namespace {

/// Width of the section letter and the sequence number, which end every record.
constexpr std::size_t ending_columns = 1 + sequence_columns;

// The number in the columns from `start` to `end`, as far as it goes; 1 when it fills them.
bool read_number(const char* start, const char* end, int& number) {
  return start + igs_number::parse_int(start, number) == end;
}

// The end of the data of a record of 80 columns; returns where that is.
inline std::size_t mark_full_record(char* record, igsFileSection section) {
  if (section == igsNoSectionId) return 0;
  if (section != igsGlobalSectionId && section != igsParameterSectionId) return data_columns;
  const std::size_t mark = section == igsParameterSectionId ? pd_data_columns : data_columns;
  record[mark] = '\n';
  return section == igsParameterSectionId ? mark : mark + 1;  // the line feed of a Global record is read
}

void increase(int& counter) {
  if (counter < INT_MAX) ++counter;
}

}  // namespace

void igsInBufferChecker::set_error(igsIOErrorCode code) {
  m_errors.set(code);
  m_ever_met.set(code);
  if (code == igsIOBadBackPointer || code == igsIONoSectionLetter || code == igsIOReserved11) m_fatal = 1;
}

int igsInBufferChecker::reset() {
  if (m_fatal != 0) return 0;
  m_errors.clear();
  return 1;
}

void igsInBufferChecker::collect_errors(igsIOErrorcoDynArr& errors) { take_errors().append_to(errors); }

int igsInBufferChecker::num_lines(igsFileSection section) const {
  const auto index = static_cast<std::size_t>(section);
  return index < m_lines.size() ? m_lines[index] : 0;
}

int igsInBufferChecker::check(char* record, std::size_t length, std::size_t& data_length) {
  m_record = record;
  m_length = length;
  igsRecordMarks marks;
  const bool syntax = check_syntax(marks);
  m_number_as_read = marks.number;
  const bool semantics = check_semantics(marks);
  accept(marks);
  data_length = mark_data_end(marks.section);
  return syntax && semantics ? 1 : 0;
}

int igsInBufferChecker::check_plain(char* record, const igsRecordMarks& marks, std::size_t& data_length) {
  m_number_as_read = marks.number;
  const bool goes_on = marks.section == m_current.section && marks.number == m_current.number + 1 &&
                       marks.backpointer == m_current.backpointer;
  bool semantics = true;
  if (goes_on) {
    m_current.number = marks.number;
    increase(m_lines[static_cast<std::size_t>(marks.section)]);
  } else {
    igsRecordMarks settled = marks;
    semantics = check_semantics(settled);
    accept(settled);
  }
  data_length = mark_full_record(record, marks.section);
  return semantics ? 1 : 0;
}

void igsInBufferChecker::accept(const igsRecordMarks& marks) {
  m_current = marks;
  if (marks.section != igsNoSectionId) increase(m_lines[static_cast<std::size_t>(marks.section)]);
}

// Every check runs, whatever the ones before it have found.
bool igsInBufferChecker::check_syntax(igsRecordMarks& marks) {
  bool ok = check_section(marks.section);
  check_line_number(marks.number);
  ok = check_16bit_overflow(marks.number) && ok;
  ok = check_backpointer(marks, marks.backpointer) && ok;
  ok = check_16bit_overflow(marks.backpointer) && ok;
  check_separator_column(marks);
  return ok;
}

bool igsInBufferChecker::check_section(igsFileSection& section) {
  section = m_length < ending_columns ? igsNoSectionId : convert_char_to_section(m_record[m_length - ending_columns]);
  if (section == igsNoSectionId) set_error(igsIONoSectionLetter);
  return section != igsNoSectionId;
}

void igsInBufferChecker::check_line_number(int& number) {
  const char* const end = m_record + m_length;
  if (m_length < sequence_columns || !read_number(end - sequence_columns, end, number)) {
    set_error(igsIOBadSequenceNumber);
  }
}

// Some systems print the numbers beyond 32767 as negative ones.
bool igsInBufferChecker::check_16bit_overflow(int& number) {
  if (number < 0) number += 65536;
  return number >= 0;
}

bool igsInBufferChecker::check_backpointer(const igsRecordMarks& marks, int& backpointer) {
  if (marks.section != igsParameterSectionId) return true;
  if (m_length == record_length) {
    const char* const start = m_record + pd_data_columns + 1;
    if (read_number(start, start + sequence_columns, backpointer)) return true;
  } else {
    for (std::size_t i = m_length - ending_columns; i > 0; --i) {
      if (m_record[i - 1] != ' ') continue;
      igs_number::parse_int(m_record + i, backpointer);
      return true;
    }
  }
  set_error(igsIOBadBackPointer);
  return false;
}

// A record with something there has been laid out with a blank more.
void igsInBufferChecker::check_separator_column(const igsRecordMarks& marks) {
  if (marks.section != igsParameterSectionId || m_length <= pd_data_columns) return;
  char& column = m_record[pd_data_columns];
  if (m_recover && m_length > record_length && column != ' ') {
    std::vector<int>& owners = m_owners_of_column_65;
    if (owners.empty() || owners.back() != marks.backpointer) owners.push_back(marks.backpointer);
  } else {
    column = ' ';
  }
}

bool igsInBufferChecker::check_semantics(igsRecordMarks& marks) {
  check_line_number_sequence(marks);
  const bool section_ok = check_section_sequence(marks);
  const bool backpointer_ok = check_backpointer_sequence(marks);
  return section_ok && backpointer_ok;
}

void igsInBufferChecker::check_line_number_sequence(igsRecordMarks& marks) {
  const int read = marks.number;
  int expected = 1;
  if (marks.section == m_current.section) {
    expected = m_current.number;
    increase(expected);
    marks.number = expected;
  }
  if (read == expected) return;
  set_error(marks.section == igsStartSectionId ? igsIOStartOutOfOrder : igsIOSequenceOutOfOrder);
}

bool igsInBufferChecker::check_section_sequence(const igsRecordMarks& marks) {
  if (marks.section == m_current.section) return true;
  set_error(igsIONextSection);
  return false;
}

bool igsInBufferChecker::check_backpointer_sequence(const igsRecordMarks& marks) {
  if (marks.section != igsParameterSectionId || m_current.section != igsParameterSectionId) return true;
  if (marks.backpointer == m_current.backpointer) return true;
  set_error(igsIONextEntity);
  return false;
}

// Records that were cut short (at the end of the input only) end before their data columns do.
std::size_t igsInBufferChecker::mark_data_end(igsFileSection section) {
  if (m_length == record_length) return mark_full_record(m_record, section);
  constexpr std::size_t plain_end = data_columns;
  std::size_t mark = plain_end;
  switch (section) {
    case igsNoSectionId:
      return 0;
    case igsGlobalSectionId:
      if (m_length <= plain_end) return m_length;
      m_record[plain_end] = '\n';
      return plain_end + 1;
    case igsParameterSectionId:
      mark = m_length - ending_columns;
      for (const std::size_t last = mark - std::min(mark, ending_columns); mark > last && m_record[mark] != ' ';)
        --mark;
      m_record[mark] = '\n';
      return mark;
    default:
      return std::min(m_length, plain_end);
  }
}
