#include "igs/output/igsOutBufferFormatter.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace {

bool is_section(igsFileSection section) { return section >= 0 && section < num_file_sections; }

/// Prints `number` right-justified in sequence_columns columns; false when it does not fit.
bool print_right_justified(char* columns, int number) {
  char digits[sequence_columns];
  const auto [end, error] = std::to_chars(digits, digits + sequence_columns, number);
  if (error != std::errc()) return false;
  std::copy_backward(digits, end, columns + sequence_columns);
  std::fill_n(columns, sequence_columns - (end - digits), ' ');
  return true;
}

}  // namespace

void igsOutBufferFormatter::set_section(igsFileSection section) {
  m_section = is_section(section) ? section : igsNoSectionId;
  set_num_lines(section, 0);
  if (section == igsParameterSectionId) m_backpointer = 1;
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

int igsOutBufferFormatter::format(char* record) {
  if (m_section != igsNoSectionId) m_sequence_number = ++m_num_lines[static_cast<std::size_t>(m_section)];
  if (m_backpointer > max_sequence_number) return fail(igsIOBackPointerTooLarge);
  if (m_sequence_number > max_sequence_number) return fail(igsIOSequenceTooLarge);
  if (m_section == igsNoSectionId) return 1;

  // A negative back-pointer of more than six digits is too large as well: it would run out of its columns.
  char* const letter = record + data_columns;
  if (m_section == igsParameterSectionId) {
    letter[-sequence_columns - 1] = ' ';
    if (!print_right_justified(letter - sequence_columns, m_backpointer)) return fail(igsIOBackPointerTooLarge);
  }
  *letter = section_letters[m_section];
  print_right_justified(letter + 1, m_sequence_number);
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
