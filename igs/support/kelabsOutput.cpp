#include "igs/support/kelabsOutput.h"

#include <cstdarg>
#include <cstdio>
#include <ostream>
#include <vector>

kelabsOutput::~kelabsOutput() = default;

void kelabsOutput::print(const char* tag, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  if (length >= 0) {
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    write(tag, text.data());
  }
  va_end(arguments);
}

void kelabsStream::write(const char* /*tag*/, const char* text) { m_target << text; }
