#include "igs/input/igsRecordMarks.h"

#include <cstdint>
#include <cstring>

#include "igs/input/record.h"

namespace {

constexpr std::uint64_t every_byte = 0x0101010101010101U;

// Eight characters as one word, the first in the lowest byte. Compilers make one load of it where the machine allows.
std::uint64_t load(const char* text) {
  std::uint64_t word = 0;
  for (unsigned i = 0; i < 8; ++i) word |= std::uint64_t{static_cast<unsigned char>(text[i])} << (8 * i);
  return word;
}

// The value of the 7 columns behind `text`, which must hold blanks and then at least one digit.
bool read_columns(const char* text, int& value) {
  // The column before the number counts as a blank; a digit then reads as 0 to 9, a blank as 16.
  const std::uint64_t columns = ((load(text) & ~std::uint64_t{0xFF}) | ' ') ^ (every_byte * '0');
  const std::uint64_t blanks = (columns >> 4) & every_byte;
  const std::uint64_t blank_bytes = blanks * 0xFF;
  const std::uint64_t digits = columns & ~(every_byte << 4);
  const bool only_digits = ((digits | (digits + every_byte * 6)) & (every_byte * 0xF0)) == 0;
  const bool blanks_lead = (blank_bytes & (blank_bytes + 1)) == 0;
  const bool blanks_empty = (digits & blank_bytes) == 0;
  if (!only_digits || !blanks_lead || !blanks_empty || blank_bytes == ~std::uint64_t{0}) return false;
  // Neighbours are joined to pairs, pairs to fours, fours to eight.
  std::uint64_t sum = digits * 10 + (digits >> 8);
  sum = (sum & 0x00FF00FF00FF00FFU) * 100 + ((sum >> 16) & 0x00FF00FF00FF00FFU);
  sum = (sum & 0x0000FFFF0000FFFFU) * 10000 + ((sum >> 32) & 0x0000FFFF0000FFFFU);
  value = static_cast<int>(sum & 0xFFFFFFFFU);
  return true;
}

bool holds_control_character(const char* text, std::size_t length) {
  std::uint64_t found = 0;
  for (std::size_t i = 0; i < length; i += 8) {
    const std::uint64_t word = load(text + i);
    found |= (word - every_byte * ' ') & ~word & (every_byte << 7);
  }
  return found != 0;
}

}  // namespace

bool read_plain_record(const char* text, igsRecordMarks& marks) {
  static_assert(data_columns % 8 == 0);
  const void* letter = std::memchr(section_letters, text[data_columns], num_file_sections);
  if (letter == nullptr || !read_columns(text + data_columns, marks.number)) return false;
  marks.section = static_cast<igsFileSection>(static_cast<const char*>(letter) - section_letters);
  marks.backpointer = 0;
  if (marks.section == igsParameterSectionId) {
    if (text[pd_data_columns] != ' ' || !read_columns(text + pd_data_columns, marks.backpointer)) return false;
  }
  return !holds_control_character(text, data_columns);
}
