#include "igs/input/igsInEngine.h"

#include <algorithm>

#include "igs/input/private/eightCharacters.h"

igsInEngine::igsInEngine(std::istream& in, const igsInOptions& options) : igsInBuffer(in, options) {}

void igsInEngine::decode() {
  m_decoder->reset_fast_decode();
  pre_decode();
  if (m_decoder->fast_permitted() != 0 && step_over_field(m_decoder->decode_fast(cursor()))) return;
  slow_decode();
}

void igsInEngine::fixed_decode(unsigned width) {
  m_decoder->reset_fast_decode();
  if (m_decoder->fast_permitted() == 0 || !fixed_fast_decode(width)) fixed_slow_decode(width);
}

bool igsInEngine::fixed_fast_decode(unsigned width) {
  char* const field = cursor();
  // The end of the record is a NUL already.
  char* const end = field + std::min(static_cast<std::ptrdiff_t>(width), record_end() - field);
  const char saved = *end;
  *end = '\0';
  const std::size_t consumed = m_decoder->decode_fast(field);
  *end = saved;
  if (consumed != width) return false;
  *this += width;
  return true;
}

// Skips blanks and the ends of Global records.
void igsInEngine::pre_decode() {
  while (**this == ' ' || **this == '\n') {
    const char* const start = cursor();
    const char* p = start + 1;
    unsigned blanks = 8;
    while (blanks == 8 && record_end() - p >= 8) p += blanks = igs_eight::leading_blanks(igs_eight::load(p));
    while (p < data_end() && *p == ' ') ++p;
    *this += static_cast<unsigned>(std::min(p, data_end()) - start);
  }
}

void igsInEngine::slow_decode() {
  m_decoder->reset_slow_decode();
  int delimiters_allowed = 1;
  int more = 1;
  while (**this != '\0') {
    if (const std::size_t taken = m_decoder->accept_run(cursor(), data_end())) {
      *this += static_cast<unsigned>(taken);
      continue;
    }
    int ends_record = 0;
    if (delimiter_check(delimiters_allowed, **this, ends_record)) {
      ++*this;
      halt_buffer(ends_record);
      break;
    }
    m_decoder->accept_character(**this, more, delimiters_allowed);
    if (more == 0) break;
    ++*this;
  }
  m_decoder->decode();
}

// The last column is passed over, as fixed_decode says.
void igsInEngine::fixed_slow_decode(unsigned width) {
  m_decoder->reset_slow_decode();
  const char* const field = cursor();
  unsigned i = 0;
  for (; field[i] != '\0' && i + 1 < width; ++i) {
    int more = 0;
    int delimiters_allowed = 0;
    m_decoder->accept_character(field[i], more, delimiters_allowed);
  }
  m_decoder->decode();
  // A record that the end of the input has cut short ends within the field: what is left of it is used up, or whoever
  // reads field after field would never come to its end.
  *this += field[i] != '\0' ? width : i;
}

void igsInEngine::collect_errors(igsIOErrorcoDynArr& errors) {
  igsInBuffer::collect_errors(errors);
  if (m_decoder != nullptr) m_decoder->collect_errors(errors);
  stamp(errors);
}

void igsInEngine::stamp(igsIOErrorcoDynArr& errors) const {
  igsFileSection section = igsNoSectionId;
  int line = 0;
  int column = 0;
  position(section, line, column);
  for (igsIOError& error : errors) error.set_location(section, line, column);
}
