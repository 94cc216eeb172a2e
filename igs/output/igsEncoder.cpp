#include "igs/output/igsEncoder.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>

#include "igs/input/igsFieldTexts.h"
#include "igs/input/private/record.h"
#include "igs/output/private/decimalDigits.h"

namespace {
/// Makes `bytes` a copy of `text` as it may stand inside a record.
void copy_record_characters(const utString& text, utString& bytes) {
  bytes = text;
  std::transform(bytes.begin(), bytes.end(), bytes.begin(), record_character);
}
}  // namespace

void igsIntEncoder::encode(int value) {
  m_value = value;
  const char* const end = print(m_text.data(), value);
  append_string({m_text.data(), static_cast<std::size_t>(end - m_text.data())}, 0);
}

char* igsIntEncoder::print(char* text, int value) {
  constexpr auto limit = static_cast<int>(eight_digit_limit);
  if (value <= -limit || value >= limit) return std::to_chars(text, text + max_length, value).ptr;
  *text = '-';
  return print_whole_number(text + (value < 0 ? 1 : 0), static_cast<std::uint32_t>(std::abs(value)));
}

void igsStrEncoder::encode(const utString& value) {
  m_value = value;
  copy_record_characters(value, m_bytes);
  append_string(m_bytes, 0);
}

void igsFieldEncoder::encode(std::string_view field) {
  const std::string_view text = igsFieldTexts::string(field);
  if (text.empty()) return append_string(field, 0);
  const auto head = static_cast<std::size_t>(text.data() - field.data());
  append_string(field.substr(0, head), 0);
  append_string(field.substr(head), 1);
}

void igsHolerithEncoder::encode(const utString& value, bool keep_all) {
  m_value = value;
  copy_record_characters(value, m_bytes);
  if (!keep_all) m_bytes.resize(m_bytes.find_last_not_of(" \f\n\r\t\v") + 1);  // npos + 1 is 0

  char* const count = m_count.data();
  char* end = std::to_chars(count, count + m_count.size() - 1, m_bytes.size()).ptr;
  *end++ = 'H';
  append_string({count, static_cast<std::size_t>(end - count)}, 0);
  append_string(m_bytes, 1);
}
