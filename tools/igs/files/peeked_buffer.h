#pragma once

#include <array>
#include <cstddef>
#include <istream>
#include <streambuf>
#include <string_view>

/// Reads a stream that may not be able to go back, and knows how it begins. When the stream fails, so does a stream
/// over this buffer.
class PeekedBuffer : public std::streambuf {
 public:
  explicit PeekedBuffer(std::istream& source);
  PeekedBuffer(const PeekedBuffer&) = delete;
  PeekedBuffer& operator=(const PeekedBuffer&) = delete;

  /// The first bytes, all when there are fewer than a few hundred. Valid until the first is read.
  std::string_view beginning() const { return {m_block.data(), m_num_peeked}; }

 protected:
  int_type underflow() override;
  std::streamsize xsgetn(char* to, std::streamsize count) override;

 private:
  static constexpr std::size_t peeked = 512;

  /// As much as there is, up to `count`.
  std::streamsize take(char* to, std::streamsize count);

  std::istream& m_source;
  std::array<char, std::size_t{1} << 14U> m_block;
  std::size_t m_num_peeked;
};
