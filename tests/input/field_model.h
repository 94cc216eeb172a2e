#pragma once

#include <bit>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <sstream>
#include <utility>

#include "igs/input/igsInStream.h"

namespace records {

/// A sound record without its line end; the back-pointer stands in Parameter Data records only.
inline std::string record(char section, int number, const std::string& data, int backpointer = 1) {
  std::ostringstream text;
  text << std::left << std::setw(section == 'P' ? 64 : 72) << data << std::right;
  if (section == 'P') text << std::setw(8) << backpointer;
  text << section << std::setw(7) << number;
  return text.str();
}

inline constexpr unsigned code(igsIOErrorCode c) { return 1U << static_cast<unsigned>(c); }
/// The codes that a field raises by itself.
inline constexpr unsigned field_codes = code(igsIOValuePresent) | code(igsIOBlankInValue) | code(igsIOExtraCharacters) |
                                        code(igsIOSplitValue) | code(igsIONotANumber) | code(igsIONullCharacter);

/// The delimiters, and what the records of a test have in common.
struct FieldLayout {
  char section = 'P';
  int records_per_entity = 1;
  char delimiter = ',';
  char end = ';';

  std::size_t width() const { return section == 'P' ? 64 : 72; }
  int entity(std::size_t number) const {
    return section == 'P' ? 1 + 2 * (static_cast<int>(number) / records_per_entity) : 1;
  }
  std::string line(std::size_t number, const std::string& data) const {
    return record(section, static_cast<int>(number) + 1, data, entity(number));
  }
};

/// What a reader knows after a field.
struct FieldOutcome {
  std::uint64_t number = 0;  ///< the bits of a real
  std::string text;
  unsigned codes = 0;
  std::size_t line = 0, column = 0;
  bool frozen = false;

  bool operator==(const FieldOutcome&) const = default;
};

inline std::uint64_t bits(double value) {
  return std::isnan(value) ? std::bit_cast<std::uint64_t>(std::nan("")) : std::bit_cast<std::uint64_t>(value);
}

inline int nearest_int(long long value) { return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX)); }

/// Reads fields as igsInStream does, but takes every character by itself and leaves every conversion to the C library,
/// whose locale has to be "C". The data of each record is as wide as the layout says and free of line ends.
class FieldModel {
 public:
  FieldModel(const FieldLayout& layout, const std::vector<std::string>& data) : m_layout(layout), m_data(data) {
    load();
    m_null_code = 0;
  }

  /// i, r, h: a free integer, real or string; I, S: an integer or a text of `width` columns. Of the codes the model
  /// knows field_codes alone.
  FieldOutcome read(char kind, unsigned width) {
    m_outcome = FieldOutcome();
    m_outcome.codes = std::exchange(m_null_code, 0);
    m_kind = kind;
    m_text.clear();
    m_started = m_in_string = false;
    m_declared = m_stored = 0;
    m_next_codes = 0;
    if (kind == 'I' || kind == 'S') {
      if (!read_fixed_fast(width)) read_fixed_slow(width);
    } else {
      while (at() == ' ' || at() == '\n') advance(1);
      if (kind == 'h' || !read_fast()) read_slow();
    }
    m_outcome.codes |= std::exchange(m_null_code, 0);
    m_outcome.line = m_line + 1;
    m_outcome.column = m_column;
    m_outcome.frozen = m_frozen;
    return m_outcome;
  }

  bool frozen() const { return m_frozen; }
  bool ended() const { return m_line >= m_data.size(); }
  bool reset() {
    while (m_frozen && !ended()) {
      m_frozen = false;
      m_null_code = 0;
      if (m_column == 0) break;
      next_record();
    }
    return !ended();
  }

 private:
  void load() {
    if (ended()) return;
    std::string data = m_data[m_line];
    if (data.find('\0') != std::string::npos) m_null_code = code(igsIONullCharacter);
    for (const char c : {'\0', '\t'}) std::replace(data.begin(), data.end(), c, ' ');
    m_record = m_layout.line(m_line, data);
    m_end = m_layout.width();
    if (m_layout.section != 'D') m_record[m_end] = '\n';
    if (m_layout.section == 'G') ++m_end;
  }
  void next_record() {
    ++m_line;
    m_column = 0;
    load();
    m_frozen = ended() || m_layout.entity(m_line) != m_layout.entity(m_line - 1);
  }
  char at() const { return m_frozen ? '\0' : m_record[m_column]; }
  std::string rest() const { return m_frozen ? "" : m_record.substr(m_column); }
  void advance(std::size_t count) {
    if (m_frozen) return;
    m_column += count;
    if (m_column >= m_end) next_record();
  }
  bool is_delimiter(char c) const { return c == m_layout.delimiter || c == m_layout.end; }
  void step_over_delimiter(std::size_t count) {
    const bool ends_record = m_record[m_column + count - 1] == m_layout.end;
    advance(count);
    m_frozen = m_frozen || ends_record;
  }
  void raise(igsIOErrorCode c) { m_outcome.codes |= code(c); }
  void set_real(double value) {
    m_outcome.number = bits(value);
    if (std::isnan(value)) raise(igsIONotANumber);
  }
  void set_int(long long value) { m_outcome.number = static_cast<std::uint64_t>(std::int64_t{nearest_int(value)}); }

  // One conversion at the read position; the number of characters that belong to it.
  std::size_t convert_at_once(const std::string& text) {
    const char* const start = text.c_str();
    char* end = nullptr;
    if (m_kind == 'S') {
      m_outcome.text = text;
      end = const_cast<char*>(start) + text.size();
    } else if (m_kind == 'r') {
      set_real(real_with_d(start, end));
    } else {
      set_int(std::strtoll(start, &end, 10));
    }
    if (end > start) raise(igsIOValuePresent);
    return static_cast<std::size_t>(end - start);
  }
  // A D behind a decimal number is an E to which an E before it is added; behind any other it multiplies the value.
  static double real_with_d(const char* start, char*& end) {
    const double value = std::strtod(start, &end);
    if (*end != 'D' && *end != 'd') return value;
    const std::string number(start, static_cast<const char*>(end));
    const long long d = nearest_int(std::strtoll(end + 1, &end, 10));
    if (number.empty()) return 0;
    if (number.find_first_of("xXnNiI") != std::string::npos) return value * std::pow(10., static_cast<double>(d));
    const std::size_t mantissa = std::min(number.find_first_of("eE"), number.size());
    constexpr long long huge = 1LL << 60;  // as good as infinite, and its sum with a D exponent is a number
    const long long e = mantissa == number.size() ? 0 : std::strtoll(number.c_str() + mantissa + 1, nullptr, 10);
    return std::strtod((number.substr(0, mantissa) + "E" + std::to_string(std::clamp(e, -huge, huge) + d)).c_str(),
                       nullptr);
  }

  bool read_fast() {
    const std::string text = rest();
    const std::size_t length = convert_at_once(text);
    // A conversion that runs on into the columns behind the data has found nothing of the field's.
    if (m_frozen || m_column + length >= m_end || !is_delimiter(text[length])) return false;
    step_over_delimiter(length + 1);
    return true;
  }
  void read_slow() {
    const auto at_end = [this] { return (m_kind != 'h' || m_stored >= m_declared) && is_delimiter(at()); };
    while (at() != '\0' && !at_end() && accept(at())) advance(1);
    if (at_end()) step_over_delimiter(1);
    finish();
  }
  bool read_fixed_fast(std::size_t width) {
    if (convert_at_once(rest().substr(0, width)) != width) return false;
    advance(width);
    return true;
  }
  void read_fixed_slow(std::size_t width) {
    const std::string text = rest();
    for (std::size_t i = 0; i + 1 < width && i < text.size(); ++i) accept(text[i]);
    finish();
    advance(std::min(width, text.size()));
  }

  // False when no further character is wanted.
  bool accept(char c) {
    if (m_in_string) return accept_in_string(c);
    if (c == '\n' || (c == ' ' && (m_kind != 'S' || !m_started))) {
      if (m_started && m_kind != 'S') m_next_codes |= code(c == ' ' ? igsIOBlankInValue : igsIOSplitValue);
      return true;
    }
    m_outcome.codes |= code(igsIOValuePresent) | std::exchange(m_next_codes, 0);
    m_started = true;
    if (m_kind == 'h' && (c == 'H' || c == 'h')) {
      m_declared = nearest_int(std::strtoll(m_text.c_str(), nullptr, 10));
      m_text.clear();
      m_in_string = true;
    } else {
      m_text += m_kind == 'r' && (c == 'D' || c == 'd') ? 'E' : c;
    }
    return true;
  }
  bool accept_in_string(char c) {
    if (m_declared > 0 && c != '\n') {
      m_text += c;
      ++m_stored;
    } else if (c != '\n' && c != ' ') {
      raise(igsIOExtraCharacters);
      return false;
    }
    return true;
  }
  void finish() {
    char* end = nullptr;
    if (m_kind == 'h' && m_stored > m_declared) drop_excess();
    if (m_kind == 'h' || m_kind == 'S') {
      m_outcome.text = m_text;
    } else if (m_kind == 'r') {
      set_real(std::strtod(m_text.c_str(), &end));
      if (*end != '\0') raise(igsIOValuePresent);
    } else {
      set_int(std::strtoll(m_text.c_str(), &end, 10));
      if (*end != '\0') raise(igsIOExtraCharacters);
    }
  }
  void drop_excess() {
    const std::string stored = std::exchange(m_text, "");
    long long excess = m_stored - m_declared;
    for (std::size_t i = 0; i < stored.size(); ++i) {
      const bool drop = excess > 0 && i > 0 && stored[i] == ' ' && stored[i - 1] == ' ';
      drop ? void(--excess) : m_text.push_back(stored[i]);
    }
    m_text.resize(std::min(m_text.size(), static_cast<std::size_t>(m_declared)));
  }

  FieldLayout m_layout;
  std::vector<std::string> m_data;
  std::string m_record;
  std::size_t m_line = 0, m_column = 0, m_end = 0;
  bool m_frozen = false;
  unsigned m_null_code = 0;

  // Of the field that is read; m_next_codes are raised if one more character belongs to it.
  char m_kind = 'i';
  bool m_started = false, m_in_string = false;
  unsigned m_next_codes = 0;
  std::string m_text;
  long long m_declared = 0, m_stored = 0;
  FieldOutcome m_outcome;
};

/// The same field, with all its codes.
inline FieldOutcome read_by_stream(igsInStream& in, char kind, unsigned width) {
  FieldOutcome outcome;
  int number = 0;
  double real = 0;
  if (kind == 'r') in.read_double(real);
  if (kind == 'h') in.read_holerith(outcome.text);
  if (kind == 'S') in.read_string(width, outcome.text);
  if (kind == 'I') in.read_integer(width, number);
  if (std::string_view("rhSI").find(kind) == std::string_view::npos) in.read_integer(number);
  outcome.number = kind == 'r' ? bits(real) : static_cast<std::uint64_t>(std::int64_t{number});
  for (const igsIOError& error : in.errors()) outcome.codes |= code(error.error_type());
  igsFileSection section = igsNoSectionId;
  int line = 0, column = 0;
  in.position(section, line, column);
  outcome.line = static_cast<std::size_t>(line);
  outcome.column = static_cast<std::size_t>(column);
  outcome.frozen = in.frozen();
  return outcome;
}

}  // namespace records
