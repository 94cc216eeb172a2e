#pragma once

#include <cstddef>
#include <fstream>
#include <string>

/// A file that is written whole or not at all: a temporary beside the target takes the data, and only commit() gives it
/// the target's name. Whatever happens before that, the target stays as it was and the temporary is removed, by a
/// signal that ends the program, too. An existing target keeps its permissions; a symbolic link keeps pointing at it.
/// A target that is no regular file (a device, a pipe) is written directly.
class OutputFile {
 public:
  explicit OutputFile(const std::string& name);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  /// Where the data go; usable while error() is empty.
  std::ostream& stream() { return m_stream; }
  /// Puts the file in place. True when it stands there with all its data; error() tells otherwise.
  bool commit();
  /// Why the file cannot be opened or put in place; empty while all is well.
  const std::string& error() const { return m_error; }

 private:
  void open_direct();
  void open_temporary();
  bool fail(int system_error);
  void discard();

  std::string m_target;
  std::string m_temporary;  ///< empty when the target is written directly
  std::size_t m_guard = 0;  ///< place of the temporary among those that signals remove
  int m_descriptor = -1;    ///< of the temporary
  std::ofstream m_stream;
  std::string m_error;
};
