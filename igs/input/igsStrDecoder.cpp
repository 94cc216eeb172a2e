#include "igs/input/igsStrDecoder.h"

std::size_t igsStrDecoder::decode_fast(const char* text) {
  m_value.assign(text);
  if (!m_value.empty()) set_error(igsIOValuePresent);
  return m_value.size();
}

void igsStrDecoder::receive(char c) {
  if (c == '\n' || m_state == State::stop) return;
  if (c == '\0') {
    m_state = State::stop;
    return;
  }
  if (m_state == State::start) {
    if (c == ' ') return;
    set_error(igsIOValuePresent);
    m_state = State::string;
  }
  store(c);
}

void igsStrDecoder::convert() { m_value = m_characters; }
