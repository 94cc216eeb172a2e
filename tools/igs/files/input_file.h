#pragma once

#include <cstdint>
#include <fstream>
#include <istream>
#include <sstream>
#include <string>
#include <utility>

struct InMemory {
  std::string bytes;
};

/// A file named on the command line, opened for reading; "-" is standard input.
class InputFile {
 public:
  explicit InputFile(const std::string& name);
  /// Bytes in memory in the place of a file.
  explicit InputFile(InMemory input);

  /// Takes all that is left to read into memory, where it stays after it has been read until take_bytes().
  void keep_bytes();
  std::string take_bytes() { return std::move(m_memory).str(); }
  std::istream& stream() { return *m_stream; }
  /// Size in bytes; 0 for what is no regular file.
  std::uintmax_t size() const { return m_size; }
  /// Why the file cannot be opened, or, after reading, why it could not be read to its end; empty when all is well.
  std::string error() const;

 private:
  std::ifstream m_file;
  std::istringstream m_memory;
  std::istream* m_stream;
  std::uintmax_t m_size = 0;
  std::string m_open_error;
};
