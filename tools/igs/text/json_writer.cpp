#include "text/json_writer.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <ostream>

#include "text/text.h"

void JsonWriter::key(std::string_view name) {
  separate();
  write_text(name);
  m_out << ':';
  m_needs_comma = false;
}

void JsonWriter::value(std::string_view text) {
  separate();
  write_text(text);
}

void JsonWriter::value(int number) { value(static_cast<long long>(number)); }

void JsonWriter::value(long long number) {
  separate();
  m_out << std::to_string(number);
}

void JsonWriter::value(bool truth) {
  separate();
  m_out << (truth ? "true" : "false");
}

void JsonWriter::value(double number) {
  if (!std::isfinite(number)) return null();
  separate();
  // Readers take "-0" for an integer, which has no sign to keep.
  m_out << (number == 0 && std::signbit(number) ? "-0.0" : format_real(number));
}

void JsonWriter::null() {
  separate();
  m_out << "null";
}

void JsonWriter::open(char bracket) {
  separate();
  m_out << bracket;
  m_needs_comma = false;
}

void JsonWriter::close(char bracket) {
  m_out << bracket;
  m_needs_comma = true;
}

void JsonWriter::separate() {
  if (m_needs_comma) m_out << ',';
  m_needs_comma = true;
}

void JsonWriter::write_text(std::string_view text) {
  const auto is_plain = [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; };
  if (std::all_of(text.begin(), text.end(), is_plain)) {  // as nearly all are
    m_out << '"' << text << '"';
    return;
  }
  constexpr int one_line = -1;
  constexpr bool ascii_only = true;
  m_out << nlohmann::json(to_utf8(text)).dump(one_line, ' ', ascii_only);
}
