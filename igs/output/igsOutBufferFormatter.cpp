#include "igs/output/igsOutBufferFormatter.h"

#include <cstddef>

#include "igs/input/private/record.h"
#include "igs/output/private/decimalDigits.h"

namespace {
bool is_section(igsFileSection section) { return section >= 0 && section < num_file_sections; }

/// A negative one of more digits would run out of its columns.
constexpr int min_backpointer = -999999;
}  // namespace

void igsOutBufferFormatter::set_section(igsFileSection section) {
  m_section = is_section(section) ? section : igsNoSectionId;
  set_num_lines(section, 0);
  if (section == igsParameterSectionId) set_backpointer(1);
  m_data_width = section == igsParameterSectionId ? pd_data_columns : data_columns;
}

int igsOutBufferFormatter::num_lines(igsFileSection section) const {
  return is_section(section) ? m_num_lines[static_cast<std::size_t>(section)] : 0;
}

void igsOutBufferFormatter::set_num_lines(igsFileSection section, int count) {
  if (is_section(section)) m_num_lines[static_cast<std::size_t>(section)] = count;
}

void igsOutBufferFormatter::take_back(int count) {
  if (m_section == igsNoSectionId) return;
  m_sequence_number = m_num_lines[static_cast<std::size_t>(m_section)] -= count;
}

void igsOutBufferFormatter::set_backpointer(int backpointer) {
  m_backpointer = backpointer;
  m_backpointer_text = right_justified(backpointer).value_or(eight_blanks);
}

inline void igsOutBufferFormatter::update_sequence_text() {
  const auto last_digit = static_cast<char>(m_sequence_text >> 56);
  if (m_sequence_number == m_printed_number + 1 && last_digit != '9') {
    m_sequence_text += EightCharacters{1} << 56;
  } else {
    m_sequence_text = right_justified(m_sequence_number).value_or(eight_blanks);
  }
  m_printed_number = m_sequence_number;
}

int igsOutBufferFormatter::format(char* record) {
  if (m_section != igsNoSectionId) m_sequence_number = ++m_num_lines[static_cast<std::size_t>(m_section)];
  if (m_backpointer > max_sequence_number) return fail(igsIOBackPointerTooLarge);
  if (m_sequence_number > max_sequence_number) return fail(igsIOSequenceTooLarge);
  if (m_section == igsNoSectionId) return 1;

  char* const letter = record + data_columns;
  if (m_section == igsParameterSectionId) {
    if (m_backpointer < min_backpointer) return fail(igsIOBackPointerTooLarge);
    print_characters(letter - sequence_columns - 1, m_backpointer_text);
  }
  update_sequence_text();
  print_characters(letter, m_sequence_text);
  *letter = section_letters[m_section];
  return 1;
}

int igsOutBufferFormatter::reset() {
  if (m_fatal) return 0;
  m_errors.clear();
  return 1;
}

void igsOutBufferFormatter::collect_errors(igsIOErrorcoDynArr& errors) {
  errors.insert(errors.end(), m_errors.begin(), m_errors.end());
  m_errors.clear();
}

int igsOutBufferFormatter::fail(igsIOErrorCode code) {
  m_fatal = 1;
  m_errors.emplace_back().set_error_type(code);
  return 0;
}
