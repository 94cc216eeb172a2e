#pragma once

#include <array>
#include <cstdint>
#include <istream>
#include <memory>
#include <streambuf>
#include <string>

/// Whether this program has been built with zlib.
bool can_read_gzip();

/// Unpacks a stream of gzip data, all members of it, as it is read (RFC 1952). Faulty data make a stream over this
/// buffer fail.
class GzipBuffer : public std::streambuf {
 public:
  explicit GzipBuffer(std::istream& source);
  GzipBuffer(const GzipBuffer&) = delete;
  GzipBuffer& operator=(const GzipBuffer&) = delete;
  ~GzipBuffer() override;

  /// Why reading failed, as a complaint of the file; empty when all is well.
  const std::string& error() const { return m_error; }

 protected:
  int_type underflow() override;

 private:
  class Inflater;
  static constexpr std::size_t block_size = std::size_t{1} << 16U;

  /// Unpacks some bytes, none at the end of all and behind a fault.
  std::size_t unpack();
  /// True when there is packed data to work on.
  bool refill();
  void fault_found(const std::string& what);
  /// Behind a member: whether there is one more.
  bool begin_next_member();

  std::istream& m_source;
  std::unique_ptr<Inflater> m_inflater;
  std::array<char, block_size> m_packed, m_unpacked;
  std::uintmax_t m_num_packed = 0, m_num_unpacked = 0;
  std::string m_fault;  ///< of the data behind those that wait to be read
  std::string m_error;
};
