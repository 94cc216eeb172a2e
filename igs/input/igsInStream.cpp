#include "igs/input/igsInStream.h"

#include <cmath>

#include "igs/input/private/eightCharacters.h"
#include "igs/input/private/number.h"

// The common fields are taken at a glance; all others go to a decoder.

igsInStream::igsInStream(std::istream& in, const igsInOptions& options) : igsInEngine(in, options) {
  configure_for_decode(&m_integer);
}

/// What `decode` does with the decoder: the field, and what it has met.
template <class Decoder, class Decode>
decltype(auto) igsInStream::decoded(Decoder& decoder, Decode decode) {
  configure_for_decode(&decoder);
  decode();
  const igsIOErrorSet met = decoder.take_errors();
  if (met.holds(igsIOValuePresent)) m_value_present = 1;
  m_field_errors.merge(met);
  return decoder.decoded_value();
}

// Up to seven digits and a delimiter are almost all there is; nothing else is touched.
inline bool igsInStream::read_plain_integer(int& value) {
  if (record_end() - cursor() < 8) return false;
  std::uint64_t digits = 0;
  const unsigned count = igs_eight::leading_digits(igs_eight::load(cursor()), digits);
  if (count == 0 || count == 8 || !step_over_field(count)) return false;
  value = static_cast<int>(igs_eight::number(digits << (64 - 8 * count)));
  m_field_errors.set(igsIOValuePresent);
  return true;
}

/// Ends a free-format field whose value, if any, takes `length` characters; false where it is not all of the field.
inline bool igsInStream::end_fast_field(std::size_t length) {
  m_value_present = 0;
  if (length > 0) note_value();
  return step_over_field(length);
}

void igsInStream::read_integer(int& value) {
  begin_field(1);
  if (read_plain_integer(value)) return;
  if (**this == ' ' || **this == '\n') pre_decode();
  if (end_fast_field(igs_number::parse_int(cursor(), value))) return;
  m_met_odd_field = true;
  value = decoded(m_integer, [this] { slow_decode(); });
}

void igsInStream::read_integer(unsigned width, int& value) {
  begin_field(0);
  value = decoded(m_integer, [=, this] { fixed_decode(width); });
}

namespace {

// Blanks, or a number right-aligned behind blanks, are almost all there is in fields of eight columns. `present` tells
// the two apart; false for anything else.
inline bool take_eight_columns(std::uint64_t columns, int& value, bool& present) {
  std::uint64_t number = 0;
  present = columns == igs_eight::single_zero || igs_eight::right_aligned_number(columns, number);
  value = static_cast<int>(number);
  if (present || columns == igs_eight::blanks) return true;
  present = igs_eight::right_aligned_number(igs_eight::without_minus(columns), number);
  value = -static_cast<int>(number);
  return present;
}

}  // namespace

/// Takes fields of eight columns as long as they are plain, and returns the first that is not.
inline int* const* igsInStream::read_plain_columns(int* const* value, int* const* end) {
  if (frozen() || data_end() - cursor() < 8 * (end - value)) return value;
  const char* columns = cursor();
  bool any_present = false, present = false;
  for (; value != end; ++value, columns += 8) {
    bool is_present = false;
    if (!take_eight_columns(igs_eight::load(columns), **value, is_present)) break;
    present = is_present;
    any_present |= present;
  }
  if (any_present) m_field_errors.set(igsIOValuePresent);
  m_value_present = present ? 1 : 0;
  *this += static_cast<unsigned>(columns - cursor());
  return value;
}

/// Takes four fields of two columns where both are digits in all of them.
inline bool igsInStream::read_plain_pairs(std::initializer_list<int*> values) {
  std::uint64_t digits = 0;
  if (values.size() != 4 || frozen() || data_end() - cursor() < 8 ||
      igs_eight::leading_digits(igs_eight::load(cursor()), digits) != 8) {
    return false;
  }
  std::uint64_t pairs = digits * 10 + (digits >> 8);
  for (int* const value : values) {
    *value = static_cast<int>(pairs & 0xFF);
    pairs >>= 16;
  }
  note_value();
  *this += 8;
  return true;
}

// Knots, weights and components of directions are mostly a digit, a point and perhaps a zero; nothing else is touched.
inline bool igsInStream::read_plain_double(double& value) {
  const char* const text = cursor();
  if (!igs_number::is_digit(text[0]) || text[1] != '.') return false;
  const double digit = text[0] - '0';
  const std::size_t length = text[2] == '0' ? 3 : 2;
  // A digit or the mark of an exponent goes on with the number, even where it is a delimiter.
  if (text[length] >= '0' && text[length] != ';') return false;
  if (!step_over_field(length)) return false;
  value = digit;
  m_field_errors.set(igsIOValuePresent);
  return true;
}

void igsInStream::read_integers(unsigned width, std::initializer_list<int*> values) {
  begin_field(0);
  if (width == 2 && read_plain_pairs(values)) return;
  int* const* value = values.begin();
  while (value != values.end()) {
    if (width == 8) value = read_plain_columns(value, values.end());
    if (value != values.end()) read_integer(width, **value++);
  }
}

void igsInStream::read_double(double& value) {
  begin_field(1);
  if (read_plain_double(value)) return;
  if (**this == ' ' || **this == '\n') pre_decode();
  const std::size_t length = igs_number::parse_real_with_d(cursor(), value, record_end());
  if (!std::isfinite(value)) {
    if (std::isnan(value)) m_field_errors.set(igsIONotANumber);
    m_met_odd_field = true;
  }
  if (end_fast_field(length)) return;
  m_met_odd_field = true;
  value = decoded(m_real, [this] { slow_decode(); });
}

void igsInStream::read_holerith(utString& value) {
  begin_field(0);
  m_met_odd_field = true;
  value = decoded(m_hollerith, [this] { decode(); });
}

void igsInStream::read_string(unsigned width, utString& value) {
  begin_field(0);
  if (width == 8 && record_end() - cursor() >= 8 && !igs_eight::holds_nul(igs_eight::load(cursor()))) {
    note_value();
    value.assign(cursor(), width);
    *this += width;
  } else {
    value = decoded(m_string, [=, this] { fixed_decode(width); });
  }
}

bool igsInStream::take_blanks(unsigned width) {
  if (frozen() || data_end() - cursor() < static_cast<std::ptrdiff_t>(width)) return false;
  for (unsigned i = 0; i < width; i += 8) {
    if (igs_eight::load(cursor() + i) != igs_eight::blanks) return false;
  }
  begin_field(0);
  note_value();
  *this += width;
  return true;
}

void igsInStream::collect_errors() {
  m_collected_errors = take_errors();
  m_collected_errors.merge(m_field_errors);
  m_field_errors.clear();
  position(m_collected_section, m_collected_line, m_collected_column);
  m_collected = true;
}

int igsInStream::error() {
  if (!m_collected) collect_errors();
  return m_collected_errors.empty() ? 0 : 1;
}

const igsIOErrorcoDynArr& igsInStream::errors() {
  if (!m_collected) collect_errors();
  m_error_list.clear();
  m_collected_errors.append_to(m_error_list);
  for (igsIOError& error : m_error_list) {
    error.set_location(m_collected_section, m_collected_line, m_collected_column);
  }
  return m_error_list;
}

int igsInStream::take_value_present() {
  const int present = m_value_present;
  m_value_present = 0;
  m_field_errors.erase(igsIOValuePresent);
  if (m_collected) m_collected_errors.erase(igsIOValuePresent);
  return present;
}

int igsInStream::grant_missing(std::int64_t count) {
  const std::int64_t most = always_granted + static_cast<std::int64_t>(bytes_read()) / bytes_per_granted;
  if (count > most - m_granted) return 0;
  m_granted += count;
  m_met_odd_field = true;
  return 1;
}

int igsInStream::reset() {
  if (igsInEngine::reset() == 0) return 0;
  m_collected_errors.clear();
  m_collected = false;
  return 1;
}
