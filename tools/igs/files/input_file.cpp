#include "files/input_file.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

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

InputFile::InputFile(InMemory input) : m_memory(std::move(input.bytes)), m_stream(&m_memory) {}

void InputFile::keep_bytes() {
  std::string bytes;
  std::array<char, 1U << 16U> block{};
  while (m_stream->read(block.data(), std::ssize(block)) || m_stream->gcount() > 0) {
    bytes.append(block.data(), static_cast<std::size_t>(m_stream->gcount()));
  }
  if (m_stream->bad()) return;  // which error() tells
  m_memory.str(std::move(bytes));
  m_stream = &m_memory;
}

std::string InputFile::error() const {
  if (!m_open_error.empty()) return m_open_error;
  return m_stream->bad() ? "read error" : "";
}
