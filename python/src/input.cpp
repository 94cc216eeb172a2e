#include "input.h"

#include <unistd.h>

#include <cerrno>

DescriptorBuffer::int_type DescriptorBuffer::underflow() {
  if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
  ssize_t count = 0;
  do {
    count = ::read(m_descriptor, m_block.data(), m_block.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) m_error = errno;
  if (count <= 0) return traits_type::eof();
  setg(m_block.data(), m_block.data(), m_block.data() + count);
  return traits_type::to_int_type(*gptr());
}
