#include "igs/support/private/igsTemporaryFile.h"

#include <cstddef>
#include <cstdio>

namespace {
constexpr std::size_t temporary_block_size = 262144;
}  // namespace

void igsTemporaryName::remove() {
  if (!m_name.empty() && std::remove(m_name.c_str()) == 0) m_name.clear();
}

igsBlockBuffer::igsBlockBuffer(std::streambuf& target)
    : m_target(target), m_block(std::make_unique_for_overwrite<char[]>(temporary_block_size)) {
  begin_block();
}

igsBlockBuffer::int_type igsBlockBuffer::overflow(int_type c) {
  if (!hand_over()) return traits_type::eof();
  return traits_type::eq_int_type(c, traits_type::eof()) ? traits_type::not_eof(c) : sputc(static_cast<char>(c));
}

int igsBlockBuffer::sync() { return hand_over() ? m_target.pubsync() : -1; }

void igsBlockBuffer::begin_block() { setp(m_block.get(), m_block.get() + temporary_block_size); }

bool igsBlockBuffer::hand_over() {
  const std::streamsize length = pptr() - pbase();
  begin_block();
  return m_target.sputn(pbase(), length) == length;
}

// The file is there already and empty; to cut it off anew would make some systems write it to the disk when closed.
igsTemporaryFile::igsTemporaryFile(const utString& directory)
    : m_name(directory), m_file(m_name(), std::ios::in | std::ios::out | std::ios::binary) {
  m_name.remove();
}
