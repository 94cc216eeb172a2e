#include "files/input_file.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>
#include <utility>

#include "files/file_kind.h"

InputFile::InputFile(const std::string& name) : m_stream(&m_file) {
  if (name == "-") {
    look_into(std::cin);
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
    return;
  }
  look_into(m_file);
  constexpr std::uintmax_t usual_ratio = 5;
  if (std::filesystem::is_regular_file(name, none)) m_size = std::filesystem::file_size(name, none);
  if (none) m_size = 0;
  if (is_packed()) m_size *= usual_ratio;
}

void InputFile::look_into(std::istream& source) {
  m_bytes = std::make_unique<Peeked>(source);
  m_stream = &m_bytes->stream;
  if (!begins_as_gzip(m_bytes->buffer.beginning())) return;
  m_gzip = std::make_unique<GzipBuffer>(*m_stream);
  m_unpacked = std::make_unique<std::istream>(m_gzip.get());
  m_content = std::make_unique<Peeked>(*m_unpacked);
  m_stream = &m_content->stream;
}

std::string_view InputFile::foreign_kind() const {
  if (m_bytes == nullptr) return "";
  return ::foreign_kind((m_content != nullptr ? m_content : m_bytes)->buffer.beginning());
}

InputFile::InputFile(InMemory input) : m_memory(std::move(input.bytes)), m_stream(&m_memory) {}

InputFile::InputFile(OpenStream input) : m_stream(&input.stream) { look_into(input.stream); }

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
  if (m_gzip != nullptr && !m_gzip->error().empty()) return m_gzip->error();
  return m_stream->bad() ? "read error" : "";
}
