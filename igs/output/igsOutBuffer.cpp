#include "igs/output/igsOutBuffer.h"

#include <algorithm>
#include <cstring>

igsOutBuffer::igsOutBuffer(std::ostream* destination) : igsOutBufferPurger(destination) {
  std::fill_n(m_line, record_length, ' ');
  m_line[record_length] = '\n';
}

igsOutBuffer::~igsOutBuffer() {
  try {
    write_out_partial_line();
  } catch (...) {  // no memory to note a fault that nobody can ask for any more
  }
}

void igsOutBuffer::set_section(igsFileSection section) {
  write_out_partial_line();
  m_formatter.set_section(section);
}

void igsOutBuffer::set_backpointer(int backpointer) {
  write_out_partial_line();
  m_formatter.set_backpointer(backpointer);
}

void igsOutBuffer::set_destination(std::ostream* destination) {
  write_out_partial_line();
  if (!igsOutBufferPurger::set_destination(destination)) m_frozen = true;
}

int igsOutBuffer::reset() {
  if (m_frozen) {
    if (has_errors() || !m_formatter.reset()) return 0;
    m_frozen = false;
  }
  write_out_partial_line();
  return m_frozen ? 0 : 1;
}

void igsOutBuffer::advance(int columns) {
  if (m_frozen) return;
  if (columns < room()) {
    m_column += columns;
  } else {
    prepare_for_next_line();
  }
}

void igsOutBuffer::write_split(std::string_view text) {
  while (!text.empty() && !m_frozen) {
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(room()));
    std::memcpy(m_line + m_column, text.data(), length);
    text.remove_prefix(length);
    advance(static_cast<int>(length));
  }
}

void igsOutBuffer::write_on_one_line(std::string_view text, std::size_t columns) {
  if (columns > static_cast<std::size_t>(room())) advance(room());
  write_split(text);
}

void igsOutBuffer::prepare_for_next_line() {
  m_column = 0;
  // A record without its stamp would damage the file, so it is not written.
  if (!m_formatter.format(m_line) || !purge(m_line)) m_frozen = true;
  std::fill_n(m_line, record_length, ' ');
}

void igsOutBuffer::write_out_partial_line() {
  if (m_column > 0 && !m_frozen) prepare_for_next_line();
}
