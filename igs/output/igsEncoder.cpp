#include "igs/output/igsEncoder.h"

#include <algorithm>
#include <charconv>

namespace {

/// The bytes of `text` as they may stand inside a record.
void replace_record_breakers(utString& text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\0'; }, ' ');
}

}  // namespace

void igsIntEncoder::encode(int value) {
  m_value = value;
  char* const text = m_text.data();
  const char* const end = std::to_chars(text, text + m_text.size(), value).ptr;
  append_string({text, end}, 0);
}

void igsStrEncoder::encode(const utString& value) {
  m_value = value;
  m_bytes = value;
  replace_record_breakers(m_bytes);
  append_string(m_bytes, 0);
}

void igsHolerithEncoder::encode(const utString& value) {
  m_value = value;
  m_bytes = value;
  replace_record_breakers(m_bytes);
  m_bytes.resize(m_bytes.find_last_not_of(" \f\n\r\t\v") + 1);  // npos + 1 is 0

  char* const count = m_count.data();
  char* end = std::to_chars(count, count + m_count.size() - 1, m_bytes.size()).ptr;
  *end++ = 'H';
  append_string({count, end}, 0);
  append_string(m_bytes, 1);
}
