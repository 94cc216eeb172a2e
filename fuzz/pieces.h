#pragma once

#include <algorithm>
#include <cstddef>
#include <streambuf>
#include <string>
#include <utility>

namespace igs_fuzz {

/// Supplies a text in pieces of at most `size` bytes.
class Pieces : public std::streambuf {
 public:
  Pieces(std::string text, std::size_t size) : m_text(std::move(text)), m_size(size) {}

 protected:
  int_type underflow() override {
    if (m_position >= m_text.size()) return traits_type::eof();
    const std::size_t size = std::min(m_size, m_text.size() - m_position);
    char* const first = m_text.data() + m_position;
    setg(first, first, first + size);
    m_position += size;
    return traits_type::to_int_type(*gptr());
  }

 private:
  std::string m_text;
  std::size_t m_size;
  std::size_t m_position = 0;
};

}  // namespace igs_fuzz
