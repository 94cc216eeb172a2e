#include "igs/input/igsInStream.h"

#include "igs/input/eightCharacters.h"

igsInStream::igsInStream(std::istream& in, const igsInOptions& options) : igsInEngine(in, options) {
  configure_for_decode(&m_int_decoder);
}

template <class Decoder>
void igsInStream::read_field(Decoder& decoder) {
  m_collected = 0;
  configure_for_decode(&decoder);
  decode_with(decoder);
  m_value_present = decoder.value_present();
}

template <class Decoder>
void igsInStream::read_field(Decoder& decoder, unsigned width) {
  m_collected = 0;
  configure_for_decode(&decoder);
  fixed_decode_with(decoder, width);
  m_value_present = decoder.value_present();
}

// Up to seven digits and a delimiter are almost all there is; nothing else is touched.
bool igsInStream::read_plain_integer(int& value) {
  if (record_end() - cursor() < 8) return false;
  std::uint64_t digits = 0;
  const unsigned count = igs_eight::leading_digits(igs_eight::load(cursor()), digits);
  if (count == 0 || count == 8 || !step_over_field(count)) return false;
  value = static_cast<int>(igs_eight::number(digits << (64 - 8 * count)));
  m_int_decoder.note_value();
  return true;
}

void igsInStream::read_integer(int& value) {
  m_collected = 0;
  configure_for_decode(&m_int_decoder);
  m_value_present = 1;
  if (read_plain_integer(value)) return;
  read_field(m_int_decoder);
  value = m_int_decoder.decoded_value();
}

void igsInStream::read_integer(unsigned width, int& value) {
  read_field(m_int_decoder, width);
  value = m_int_decoder.decoded_value();
}

// Blanks, or a number right-aligned behind blanks, are almost all there is in fields of fixed width; nothing else is
// touched. `present` tells the two apart.
inline bool igsInStream::read_plain_integer(unsigned width, int& value, bool& present) {
  if (width > 8 || record_end() - cursor() < 8) return false;
  const std::uint64_t columns = igs_eight::right_aligned(igs_eight::load(cursor()), width);
  std::uint64_t number = 0;
  present = columns == igs_eight::single_zero || igs_eight::right_aligned_number(columns, number);
  if (!present && columns != igs_eight::blanks) return false;
  value = static_cast<int>(number);
  *this += width;
  return true;
}

void igsInStream::read_integers(unsigned width, std::initializer_list<int*> values) {
  // The widths of directory entries, so that the shifts are known when this is compiled.
  if (width == 8) return read_columns<8>(values);
  if (width == 2) return read_columns<2>(values);
  for (int* const value : values) read_integer(width, *value);
}

template <unsigned width>
void igsInStream::read_columns(std::initializer_list<int*> values) {
  m_collected = 0;
  configure_for_decode(&m_int_decoder);
  bool any_present = false;
  m_value_present = 0;
  for (int* const value : values) {
    bool present = false;
    if (read_plain_integer(width, *value, present)) {
      m_value_present = present ? 1 : 0;
      any_present |= present;
    } else {
      read_integer(width, *value);
    }
  }
  if (any_present) m_int_decoder.note_value();
}

// Knots, weights and components of directions are mostly a digit, a point and perhaps a zero; nothing else is touched.
bool igsInStream::read_plain_double(double& value) {
  const char* const text = cursor();
  if (!igs_number::is_digit(text[0]) || text[1] != '.') return false;
  const double digit = text[0] - '0';
  const std::size_t length = text[2] == '0' ? 3 : 2;
  // A digit or the mark of an exponent goes on with the number, even where it is a delimiter.
  if (text[length] >= '0' && text[length] != ';') return false;
  if (!step_over_field(length)) return false;
  value = digit;
  m_double_decoder.note_value();
  return true;
}

void igsInStream::read_double(double& value) {
  m_collected = 0;
  configure_for_decode(&m_double_decoder);
  m_value_present = 1;
  if (read_plain_double(value)) return;
  read_field(m_double_decoder);
  value = m_double_decoder.decoded_value();
}

void igsInStream::read_holerith(utString& value) {
  read_field(m_holerith_decoder);
  value = m_holerith_decoder.decoded_value();
}

void igsInStream::read_string(unsigned width, utString& value) {
  if (width == 8 && record_end() - cursor() >= 8 && !igs_eight::holds_nul(igs_eight::load(cursor()))) {
    m_collected = 0;
    configure_for_decode(&m_str_decoder);
    m_str_decoder.note_value();
    m_value_present = 1;
    value.assign(cursor(), width);
    *this += width;
    return;
  }
  read_field(m_str_decoder, width);
  value = m_str_decoder.decoded_value();
}

// The real decoder is left selected.
void igsInStream::collect_errors() {
  m_collected_errors = take_errors();
  m_collected_errors.merge(m_int_decoder.take_errors());
  m_collected_errors.merge(m_str_decoder.take_errors());
  m_collected_errors.merge(m_holerith_decoder.take_errors());
  m_collected_errors.merge(m_double_decoder.take_errors());
  configure_for_decode(&m_double_decoder);
  position(m_collected_section, m_collected_line, m_collected_column);
  m_collected = 1;
}

int igsInStream::error() {
  if (m_collected == 0) collect_errors();
  return m_collected_errors.empty() ? 0 : 1;
}

const igsIOErrorcoDynArr& igsInStream::errors() {
  if (m_collected == 0) collect_errors();
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
  m_int_decoder.forget_value_present();
  m_double_decoder.forget_value_present();
  m_holerith_decoder.forget_value_present();
  m_str_decoder.forget_value_present();
  if (m_collected != 0) m_collected_errors.erase(igsIOValuePresent);
  return present;
}

int igsInStream::grant_missing(std::int64_t count) {
  const std::int64_t most = always_granted + static_cast<std::int64_t>(bytes_read()) / bytes_per_granted;
  if (count > most - m_granted) return 0;
  m_granted += count;
  return 1;
}

int igsInStream::reset() {
  if (igsInEngine::reset() == 0) return 0;
  m_collected_errors.clear();
  m_collected = 0;
  return 1;
}
