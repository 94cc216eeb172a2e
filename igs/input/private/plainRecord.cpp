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

bool read_plain_record(const char* text, igsRecordMarks& marks) {
  static_assert(data_columns % 8 == 0);
  marks.section = convert_char_to_section(text[data_columns]);
  if (marks.section == igsNoSectionId || !read_columns(text + data_columns, marks.number)) return false;
  marks.backpointer = 0;
  if (marks.section == igsParameterSectionId) {
    if (text[pd_data_columns] != ' ' || !read_columns(text + pd_data_columns, marks.backpointer)) return false;
  }
  return !holds_control_character(text, data_columns);
}
