#include "igs/input/private/plainRecord.h"

#include <cstdint>

#include "igs/input/private/eightCharacters.h"
#include "igs/input/private/record.h"

namespace {

// The value of the 7 columns behind `text`, which must hold blanks and then at least one digit.
bool read_columns(const char* text, int& value) {
  std::uint64_t number = 0;
  constexpr std::uint64_t first_character = 0xFF;
  const std::uint64_t columns = (igs_eight::load(text) & ~first_character) | ' ';
  if (!igs_eight::right_aligned_number(columns, number)) return false;
  value = static_cast<int>(number);
  return true;
}

bool holds_control_character(const char* text, std::size_t length) {
  std::uint64_t found = 0;
  for (std::size_t i = 0; i < length; i += 8) {
    const std::uint64_t word = igs_eight::load(text + i);
    found |= (word - igs_eight::every_byte * ' ') & ~word;
  }
  return (found & (igs_eight::every_byte << 7)) != 0;
}

}  // namespace

// Almost every record is the next of its section: then the last digit tells, unless it is a zero.
inline bool igsPlainRecords::take_ending(const char* text) {
  constexpr int last_column = 56;
  const std::uint64_t ending = igs_eight::load(text + data_columns);
  const std::uint64_t last_digit = ending >> last_column;
  if (ending == m_ending + (std::uint64_t{1} << last_column) && last_digit > '0' && last_digit <= '9') {
    ++m_marks.number;
  } else {
    m_marks.section = convert_char_to_section(text[data_columns]);
    m_marks.backpointer = 0;
    m_owner = 0;
    if (m_marks.section == igsNoSectionId || !read_columns(text + data_columns, m_marks.number)) return false;
  }
  m_ending = ending;
  return true;
}

inline bool igsPlainRecords::take_owner(const char* text) {
  const std::uint64_t owner = igs_eight::load(text + pd_data_columns);
  if (owner == m_owner) return true;
  m_owner = owner;
  return text[pd_data_columns] == ' ' && read_columns(text + pd_data_columns, m_marks.backpointer);
}

bool igsPlainRecords::recognise(const char* text) {
  static_assert(data_columns % 8 == 0);
  if (take_ending(text) && (m_marks.section != igsParameterSectionId || take_owner(text)) &&
      !holds_control_character(text, data_columns)) {
    return true;
  }
  m_ending = 0;
  return false;
}
