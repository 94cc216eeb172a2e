#pragma once

#include <cstdint>
#include <fstream>
#include <istream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "files/gzip_buffer.h"
#include "files/peeked_buffer.h"

struct InMemory {
  std::string bytes;
};
/// A stream of the caller's, which outlives the reading.
struct OpenStream {
  std::istream& stream;
};

/// A file named on the command line, opened for reading; "-" is standard input. What is packed by gzip is unpacked on
/// its way.
class InputFile {
 public:
  explicit InputFile(const std::string& name);
  /// Bytes in memory in the place of a file.
  explicit InputFile(InMemory input);
  /// As a file of that content would be read.
  explicit InputFile(OpenStream input);

  /// Takes all that is left to read into memory, where it stays after it has been read until take_bytes().
  void keep_bytes();
  std::string take_bytes() { return std::move(m_memory).str(); }
  std::istream& stream() { return *m_stream; }
  /// What the file is, when it is certainly no IGES file, as foreign_kind() says it. Before it is read.
  std::string_view foreign_kind() const;
  /// Size in bytes, of a packed file about that of its content; 0 for what is no regular file.
  std::uintmax_t size() const { return m_size; }
  bool is_packed() const { return m_gzip != nullptr; }
  /// Why the file cannot be opened, or, after reading, why it could not be read to its end; empty when all is well.
  std::string error() const;

 private:
  /// A stream whose beginning is known.
  struct Peeked {
    explicit Peeked(std::istream& source) : buffer(source), stream(&buffer) {}
    PeekedBuffer buffer;
    std::istream stream;
  };
  /// Looks at how the stream of the file or standard input begins.
  void look_into(std::istream& source);

  std::ifstream m_file;
  std::istringstream m_memory;
  std::unique_ptr<Peeked> m_bytes;  ///< of the file
  std::unique_ptr<GzipBuffer> m_gzip;
  std::unique_ptr<std::istream> m_unpacked;
  std::unique_ptr<Peeked> m_content;  ///< of a packed file
  std::istream* m_stream;
  std::uintmax_t m_size = 0;
  std::string m_open_error;
};
