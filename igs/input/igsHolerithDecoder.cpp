#include "igs/input/igsHolerithDecoder.h"

#include <algorithm>
#include <cstring>

#include "igs/input/private/number.h"

void igsHolerithDecoder::clear_value() {
  m_value.clear();
  m_declared = 0;
  m_stored = 0;
}

void igsHolerithDecoder::accept_character(char c, int& more, int& delimiters_allowed) {
  igsDecoder::accept_character(c, more, delimiters_allowed);
  delimiters_allowed = string_complete() ? 1 : 0;
}

// All but the last of the declared characters, as far as the record holds them; the last one makes delimiters allowed.
std::size_t igsHolerithDecoder::accept_run(const char* text, const char* end) {
  if (m_state != State::string || string_complete()) return 0;
  const std::ptrdiff_t wanted = m_declared - m_stored - 1;
  auto length = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(end - text, 0, wanted));
  if (const void* line_feed = std::memchr(text, '\n', length)) {
    length = static_cast<std::size_t>(static_cast<const char*>(line_feed) - text);
  }
  m_characters.append(text, length);
  m_stored += static_cast<std::ptrdiff_t>(length);
  return length;
}

void igsHolerithDecoder::receive(char c) {
  if (m_state != State::string) {
    igsDecoder::receive(c);
  } else if (c != '\n' && m_declared > 0) {
    igsDecoder::store(c);
    ++m_stored;
  } else if (c != '\n' && c != ' ') {
    set_error(igsIOExtraCharacters);
    m_state = State::stop;
  }
}

void igsHolerithDecoder::store(char c) {
  if (c == 'H' || c == 'h') {
    begin_string();
  } else {
    igsDecoder::store(c);
  }
}

void igsHolerithDecoder::begin_string() {
  igs_number::parse_int(m_characters.c_str(), m_declared);
  m_characters.clear();
  m_state = State::string;
}

void igsHolerithDecoder::convert() {
  if (m_stored > m_declared) truncate();
  m_value = m_characters;
}

void igsHolerithDecoder::truncate() {
  const auto length = static_cast<std::size_t>(std::max(m_declared, 0));
  std::size_t excess = static_cast<std::size_t>(m_stored) - std::min(length, static_cast<std::size_t>(m_stored));
  std::size_t kept = 0;
  char previous = '\0';
  for (const char c : m_characters) {
    if (excess > 0 && c == ' ' && previous == ' ') {
      --excess;
    } else {
      m_characters[kept++] = c;
    }
    previous = c;
  }
  m_characters.resize(std::min(kept, length));
}
