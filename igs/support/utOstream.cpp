#include "igs/support/utOstream.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <ostream>

#include "igs/support/private/portable.h"

utOstream::utOstream(std::ostream& target) : m_own{&target, true, 0, nullptr}, m_target(&m_own), m_tabs(0) {}

utOstream::utOstream(utOstream& parent, int tabs)
    : m_own{nullptr, false, 0, nullptr}, m_target(parent.m_target), m_tabs(parent.m_tabs + std::max(tabs, 0)) {}

void utOstream::write(const char* text, std::size_t length) {
  if (length == 0) return;
  if (m_target->at_line_start) {
    for (int i = 0; i < m_tabs; ++i) m_target->stream->put('\t');
    m_target->at_line_start = false;
  }
  m_target->stream->write(text, static_cast<std::streamsize>(length));
}

utOstream& utOstream::operator<<(std::string_view text) {
  write(text.data(), text.size());
  return *this;
}

utOstream& utOstream::operator<<(const char* text) {
  write(text, std::strlen(text));
  return *this;
}

utOstream& utOstream::operator<<(char character) {
  write(&character, 1);
  return *this;
}

namespace {
constexpr std::size_t number_room = 32;

void write_number(utOstream& os, const char* text, const std::to_chars_result& result) {
  os << std::string_view(text, static_cast<std::size_t>(result.ptr - text));
}
}  // namespace

utOstream& utOstream::operator<<(int value) {
  char text[number_room];
  write_number(*this, text, std::to_chars(text, text + number_room, value));
  return *this;
}

utOstream& utOstream::operator<<(double value) {
  char text[number_room];
  write_number(*this, text, igs_portable::to_chars(text, text + number_room, value));
  return *this;
}

utOstream& utEndl(utOstream& os) {
  os.m_target->stream->put('\n');
  os.m_target->at_line_start = true;
  return os;
}
