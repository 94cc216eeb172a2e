#include "igs/support/kelabsOutput.h"

#include <cstdarg>
#include <cstdio>
#include <ostream>
#include <vector>

kelabsOutput::~kelabsOutput() = default;

void kelabsOutput::print(const char* tag, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  print_list(tag, format, arguments);
  va_end(arguments);
}

void kelabsOutput::print_list(const char* tag, const char* format, std::va_list arguments) {
  std::va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  if (length < 0) return;
  std::vector<char> text(static_cast<std::size_t>(length) + 1);
  std::vsnprintf(text.data(), text.size(), format, arguments);
  write(tag, text.data());
}

void kelabsStream::write(const char* /*tag*/, const char* text) { m_target << text; }
