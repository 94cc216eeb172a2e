#include "files/peeked_buffer.h"

#include <algorithm>

PeekedBuffer::PeekedBuffer(std::istream& source) : m_source(source) {
  m_source.read(m_block.data(), peeked);
  m_num_peeked = static_cast<std::size_t>(m_source.gcount());
  setg(m_block.data(), m_block.data(), m_block.data() + m_num_peeked);
}

PeekedBuffer::int_type PeekedBuffer::underflow() {
  if (gptr() == egptr()) {
    const std::streamsize count = take(m_block.data(), std::ssize(m_block));
    setg(m_block.data(), m_block.data(), m_block.data() + count);
  }
  return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

std::streamsize PeekedBuffer::xsgetn(char* to, std::streamsize count) {
  const std::streamsize held = std::min<std::streamsize>(count, egptr() - gptr());
  std::copy_n(gptr(), held, to);
  gbump(static_cast<int>(held));
  return held == count ? count : held + take(to + held, count - held);
}

std::streamsize PeekedBuffer::take(char* to, std::streamsize count) {
  m_source.read(to, count);
  if (m_source.bad() && m_source.gcount() == 0) throw std::ios_base::failure("read error");  // istreams catch it
  return m_source.gcount();
}
