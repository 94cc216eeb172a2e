#include "input_file.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

InputFile::InputFile(const std::string& name) : m_stream(&m_file) {
  if (name == "-") {
    m_stream = &std::cin;
    return;
  }
  std::error_code none;
  if (std::filesystem::is_directory(name, none)) {  // opens, but reads fail
    m_open_error = std::generic_category().message(EISDIR);
    return;
  }
  errno = 0;
  m_file.open(name, std::ios::binary);
  if (!m_file) {
    m_open_error = errno != 0 ? std::generic_category().message(errno) : "cannot be opened";
  } else if (std::filesystem::is_regular_file(name, none)) {
    m_size = std::filesystem::file_size(name, none);
    if (none) m_size = 0;
  }
}

std::string InputFile::error() const {
  if (!m_open_error.empty()) return m_open_error;
  return m_stream->bad() ? "read error" : "";
}
