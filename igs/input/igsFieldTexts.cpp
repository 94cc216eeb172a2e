#include "igs/input/igsFieldTexts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "igs/input/private/number.h"
#include "igs/input/private/record.h"
#include "igs/support/undefined.h"

namespace {

std::size_t count_digits(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), igs_number::is_digit) - text.begin());
}

void remove_sign(std::string_view& text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
}

std::size_t remove_digits(std::string_view& text) {
  const std::size_t count = count_digits(text);
  text.remove_prefix(count);
  return count;
}

constexpr std::string_view exponent_letters = "DdEe";

/// The position behind the count and the H that begin a string, and the count; 0 where no string begins.
std::size_t string_begin(std::string_view text, std::size_t& count) {
  const std::size_t digits = count_digits(text);
  if (digits == 0 || digits == text.size() || (text[digits] != 'H' && text[digits] != 'h')) return 0;
  const auto result = std::from_chars(text.data(), text.data() + digits, count);
  if (result.ec != std::errc()) count = text.max_size();
  return digits + 1;
}

std::string_view without_blanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

}  // namespace

std::size_t igsFieldTexts::take(std::string_view records, std::size_t begin, char parameter_delimiter,
                                char record_delimiter, std::vector<std::size_t>* begins) {
  while (true) {
    begin = std::min(records.find_first_not_of(' ', begin), records.size());
    std::size_t count = 0;
    const std::size_t string = string_begin(records.substr(begin), count);
    if (begins != nullptr) begins->push_back(begin);
    const bool beyond = string != 0 && count > records.size() - begin - string;
    const std::size_t least = string != 0 && !beyond ? begin + string + count : begin;
    std::size_t end = least;
    while (end < records.size() && records[end] != parameter_delimiter && records[end] != record_delimiter) ++end;
    const std::string_view field = records.substr(begin, end - begin);
    if (beyond) {
      if (m_first_recounted < 0) m_first_recounted = static_cast<int>(std::count(m_text.begin(), m_text.end(), '\0'));
      const std::string_view text = without_blanks(field.substr(string));
      append(std::to_string(text.size()) + 'H' + std::string(text));
    } else if (end < records.size() || !without_blanks(field).empty()) {
      const std::size_t kept = std::max(least - begin, field.find_last_not_of(' ') + 1);
      append(field.substr(0, kept));
    }
    if (end == records.size()) return end;
    begin = end + 1;
    if (records[end] == record_delimiter) return begin;
  }
}

void igsFieldTexts::append(std::string_view field) {
  const auto size = static_cast<std::ptrdiff_t>(m_text.size());
  m_text.append(field);
  std::transform(m_text.begin() + size, m_text.end(), m_text.begin() + size, record_character);
  m_text.push_back('\0');
}

std::vector<std::string_view> igsFieldTexts::fields() const {
  std::vector<std::string_view> list;
  std::string_view left = m_text;
  while (!left.empty()) {
    list.push_back(left.substr(0, left.find('\0')));
    left.remove_prefix(list.back().size() + 1);
  }
  return list;
}

igsFieldKind igsFieldTexts::kind(std::string_view field) {
  if (field.empty()) return igsFieldKind::empty;
  std::size_t count = 0;
  if (string_begin(field, count) != 0) return igsFieldKind::string;
  remove_sign(field);
  const std::size_t whole = remove_digits(field);
  if (whole != 0 && field.empty()) return igsFieldKind::integer;
  std::size_t fraction = 0;
  if (field.starts_with('.')) {
    field.remove_prefix(1);
    fraction = remove_digits(field);
  }
  if (whole + fraction == 0) return igsFieldKind::other;
  if (!field.empty() && exponent_letters.find(field[0]) != std::string_view::npos) {
    field.remove_prefix(1);
    remove_sign(field);
    if (remove_digits(field) == 0) return igsFieldKind::other;
  }
  return field.empty() ? igsFieldKind::real : igsFieldKind::other;
}

int igsFieldTexts::integer(std::string_view field, int otherwise) {
  if (kind(field) != igsFieldKind::integer) return otherwise;
  field.remove_prefix(field[0] == '+' ? 1 : 0);
  int value = 0;
  return std::from_chars(field.data(), field.data() + field.size(), value).ec == std::errc() ? value : otherwise;
}

double igsFieldTexts::real(std::string_view field) {
  if (kind(field) != igsFieldKind::integer && kind(field) != igsFieldKind::real) return igs_undefined_real;
  double value = 0;
  igs_number::parse_real_with_d(utString(field).c_str(), value);
  return value;
}

std::string_view igsFieldTexts::string(std::string_view field) {
  std::size_t count = 0;
  const std::size_t begin = string_begin(field, count);
  return begin != 0 ? field.substr(begin, count) : std::string_view();
}
