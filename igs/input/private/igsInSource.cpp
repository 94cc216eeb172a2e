#include "igs/input/private/igsInSource.h"

#include <algorithm>
#include <cstring>
#include <streambuf>

#include "igs/support/private/portable.h"

namespace {

constexpr std::size_t block_size = std::size_t{256} * 1024;

}  // namespace

igsInSource::igsInSource(std::istream& in, bool count_lines)
    : m_in(in),
      m_state(in.rdstate()),
      m_block(igs_portable::make_unique_for_overwrite<char[]>(block_size)),
      m_cursor(m_block.get()),
      m_limit(m_block.get()),
      m_count_lines(count_lines) {
  if (in.rdbuf() == nullptr) m_state |= std::ios_base::badbit;
  if (!good()) m_ending = m_state;
}

bool igsInSource::look_ahead() {
  if (require(1) > 0) return true;
  m_state |= m_ending;
  try {
    m_in.setstate(m_ending);
  } catch (...) {  // the stream's exceptions() are enabled; its state is set all the same
  }
  return false;
}

// Takes only what the stream buffer has at hand: a buffer that throws later on then loses none of the characters
// before.
bool igsInSource::read_more() {
  if (m_ending != std::ios_base::goodbit) return false;
  char* const block = m_block.get();
  if (static_cast<std::size_t>(block + block_size - m_limit) < max_required) {
    const std::size_t rest = available();
    std::memmove(block, m_cursor, rest);
    m_cursor = block;
    m_limit = block + rest;
  }
  std::streamsize count = 0;
  try {
    std::streambuf& source = *m_in.rdbuf();
    if (!std::istream::traits_type::eq_int_type(source.sgetc(), std::istream::traits_type::eof())) {
      count = std::clamp<std::streamsize>(source.in_avail(), 1, block + block_size - m_limit);
      count = source.sgetn(m_limit, count);
    }
  } catch (...) {
    m_ending = std::ios_base::badbit;
    return false;
  }
  if (count <= 0) {
    m_ending = std::ios_base::eofbit;
    return false;
  }
  if (m_count_lines) note_lines(m_limit, static_cast<std::size_t>(count));
  m_limit += count;
  m_num_read += static_cast<std::uint64_t>(count);
  return true;
}

void igsInSource::note_lines(const char* text, std::size_t length) {
  if (length > 0 && m_after_cr && text[0] != '\n') m_line_begins.push_back(m_num_read);
  const char* const end = text + length;
  for (const char* line = text; line < end;) {
    const auto find = [&line](char c, const char* limit) {
      const void* const found = std::memchr(line, c, static_cast<std::size_t>(limit - line));
      return found != nullptr ? static_cast<const char*>(found) : limit;
    };
    const char* const lf = find('\n', end);
    const char* const cr = find('\r', lf);
    const bool ends_at_cr = cr + 1 < lf;  // not CR LF, nor CR at the end of what is known
    line = (ends_at_cr ? cr : lf) + 1;
    if (ends_at_cr || lf < end) m_line_begins.push_back(m_num_read + static_cast<std::uint64_t>(line - text));
  }
  m_after_cr = length > 0 && end[-1] == '\r';
}

int igsInSource::line_at(std::uint64_t position) {
  while (!m_line_begins.empty() && m_line_begins.front() <= position) {
    m_line_begins.pop_front();
    ++m_line;
  }
  return m_line;
}
