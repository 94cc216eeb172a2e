#include "igs/output/igsOutBuffer.h"

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

#include "igs/input/private/record.h"
#include "igs/support/private/portable.h"

namespace {
/// 64 kB: what larger blocks save is no longer to be seen.
constexpr int block_records = 800;
}  // namespace

igsOutBuffer::igsOutBuffer(std::ostream* destination)
    : igsOutBufferPurger(destination),
      m_block(igs_portable::make_unique_for_overwrite<char[]>(std::size_t{block_records} * max_line_length +
                                                              scratch_length)),
      m_line(m_block.get()) {}

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

int igsOutBuffer::begin_backpointer(int backpointer) {
  end_line();
  m_formatter.set_backpointer(backpointer);
  return m_frozen ? -1 : m_formatter.num_lines(m_formatter.section());
}

void igsOutBuffer::set_destination(std::ostream* destination) {
  try {
    write_out_partial_line();
  } catch (...) {  // the present destination may be gone soon: nothing stays behind for it
    m_line = m_block.get();
    m_num_waiting = 0;
    m_column = 0;
    throw;
  }
  if (!igsOutBufferPurger::set_destination(destination)) m_frozen = true;
}

void igsOutBuffer::use_crlf() {
  write_out_partial_line();
  igsOutBufferPurger::use_crlf();
}

int igsOutBuffer::reset() {
  write_out_block();
  if (m_frozen) {
    if (has_errors() || !m_formatter.reset()) return 0;
    m_frozen = false;
  }
  write_out_partial_line();
  return m_frozen ? 0 : 1;
}

int igsOutBuffer::num_lines(igsFileSection section) {
  write_out_block();
  return m_formatter.num_lines(section);
}

void igsOutBuffer::prepare_for_next_line() {
  // The record's last columns, which are stamped after this, may become blank, too.
  constexpr std::string_view blanks = "                ";
  do {
    std::memcpy(position(), blanks.data(), blanks.size());
    m_column += static_cast<int>(blanks.size());
  } while (m_column < data_width());
  m_column = 0;
  if (!m_formatter.format(m_line)) {
    // A record without its stamp would damage the file, so it is not written.
    write_out_block();
    m_frozen = true;
    return;
  }
  m_line += record_length;
  if (crlf()) *m_line++ = '\r';
  *m_line++ = '\n';
  if (++m_num_waiting == block_records) write_out_block();
}

void igsOutBuffer::write_out_partial_line() {
  end_line();
  write_out_block();
}

int igsOutBuffer::write_out_block() {
  char* const block = m_block.get();
  const char* const partial_line = m_line;
  if (m_num_waiting == 0) return m_frozen ? 0 : 1;
  // Should the destination fail, nothing is left to write, even when no memory is left to note that.
  const int count = std::exchange(m_num_waiting, 0);
  const int columns = std::exchange(m_column, 0);
  m_line = block;
  m_frozen = true;
  const int written = purge(block, count);
  if (written < count) {
    m_formatter.take_back(count - written - 1);  // as though the record that failed had been the last one
    return 0;
  }
  std::memmove(block, partial_line, static_cast<std::size_t>(columns));
  m_column = columns;
  m_frozen = false;
  return 1;
}
