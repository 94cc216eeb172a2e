#include "text/text.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "igs/support/utOstream.h"

namespace {

unsigned byte_at(std::string_view text, std::size_t index) {
  return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
}

bool is_continuation(unsigned byte) { return (byte & 0xC0U) == 0x80U; }

bool is_control(std::string_view character) {
  const unsigned first = byte_at(character, 0);
  const bool is_c1 = character.size() == 2 && first == 0xC2U && byte_at(character, 1) < 0xA0U;  // U+0080 to U+009F
  return first < 0x20U || first == 0x7FU || is_c1;
}

void append_hex(std::string& target, std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    target += "\\x";
    target += digits[byte >> 4U];
    target += digits[byte & 15U];
  }
}

}  // namespace

std::size_t utf8_length(std::string_view text) {
  const unsigned first = byte_at(text, 0);
  const unsigned second = byte_at(text, 1);
  if (text.empty()) return 0;
  if (first < 0x80U) return 1;
  if (!is_continuation(second) || first < 0xC2U || first > 0xF4U) return 0;
  if (first < 0xE0U) return 2;
  // Not the shortest form, a surrogate, or above U+10FFFF.
  if ((first == 0xE0U && second < 0xA0U) || (first == 0xEDU && second > 0x9FU)) return 0;
  if ((first == 0xF0U && second < 0x90U) || (first == 0xF4U && second > 0x8FU)) return 0;
  if (!is_continuation(byte_at(text, 2))) return 0;
  if (first < 0xF0U) return 3;
  return is_continuation(byte_at(text, 3)) ? 4 : 0;
}

std::string to_utf8(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8_length(text);
    if (length > 0) {
      result += text.substr(0, length);
    } else {
      const unsigned byte = byte_at(text, 0);
      result += static_cast<char>(0xC0U | (byte >> 6U));
      result += static_cast<char>(0x80U | (byte & 0x3FU));
    }
    text.remove_prefix(length > 0 ? length : 1);
  }
  return result;
}

std::string printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8_length(text);
    const std::string_view character = text.substr(0, length > 0 ? length : 1);
    if (length == 0 || is_control(character)) {
      append_hex(result, character);
    } else {
      result += character;
    }
    text.remove_prefix(character.size());
  }
  return result;
}

double rounded_to_digits(double value, int digits) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*e", digits - 1, value);
  const double result = std::strtod(text.data(), nullptr);
  return std::isfinite(result) ? result : value;
}

std::string without_outer_blanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string format_real(double value) {
  std::ostringstream text;
  utOstream(text) << value;
  return text.str();
}

std::string format_figure(double value) {
  constexpr int digits = 12;
  return std::isfinite(value) ? format_real(rounded_to_digits(value, digits)) : "not known";
}

std::optional<double> real_of(const std::string& text) {
  // strtod takes these, too. Nothing here sets a locale.
  if (text.find_first_of(" \f\n\r\t\v+") == 0 || text.find_first_of("xX") != std::string::npos) return std::nullopt;
  char* end = nullptr;
  errno = 0;
  const double value = std::strtod(text.c_str(), &end);
  const bool is_whole = !text.empty() && end == text.c_str() + text.size();
  return is_whole && errno != ERANGE ? std::optional(value) : std::nullopt;
}

std::string counted(long long count, std::string_view singular, std::string_view plural) {
  return std::to_string(count) + ' ' + std::string(count == 1 ? singular : plural);
}
