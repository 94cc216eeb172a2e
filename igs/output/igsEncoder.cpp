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

void igsEncoder::append_string(std::string_view piece, int split) {
  if (m_num_pieces == m_pieces.size()) {
    m_pieces.emplace_back();
    m_split_flags.push_back(false);
  }
  m_pieces[m_num_pieces].assign(piece);
  m_split_flags[m_num_pieces] = split != 0;
  ++m_num_pieces;
}

void igsIntEncoder::encode(int value) {
  m_value = value;
  char text[16];
  const char* end = std::to_chars(text, text + sizeof text, value).ptr;
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

  char count[24];
  char* end = std::to_chars(count, count + sizeof count - 1, m_bytes.size()).ptr;
  *end++ = 'H';
  append_string({count, end}, 0);
  append_string(m_bytes, 1);
}
