#include "igs/input/igsInStream.h"

#include <algorithm>
#include <cmath>

#include "igs/input/igsDoubleDecoder.h"
#include "igs/input/igsHolerithDecoder.h"
#include "igs/input/igsInEngine.h"
#include "igs/input/igsIntDecoder.h"
#include "igs/input/igsStrDecoder.h"
#include "igs/input/private/eightCharacters.h"
#include "igs/input/private/number.h"

/// The common fields are taken at a glance; all others go to a decoder.
class igsInStream::Reader final : public igsInEngine {
 public:
  Reader(std::istream& in, const igsInOptions& options) : igsInEngine(in, options) { configure_for_decode(&m_integer); }

  void read_integer(int& value);
  void read_integer(unsigned width, int& value);
  template <unsigned width>
  void read_columns(std::initializer_list<int*> values);
  void read_double(double& value);
  void read_holerith(utString& value);
  void read_string(unsigned width, utString& value);
  void skip_columns(unsigned width) {
    begin_field(0);
    *this += static_cast<unsigned>(std::min<std::ptrdiff_t>(width, record_end() - cursor()));
  }

  void collect();
  int any_error() {
    if (!m_collected) collect();
    return m_collected_errors.empty() ? 0 : 1;
  }
  igsIOErrorSet& collected();
  const igsIOErrorcoDynArr& error_list();
  void clear_errors() { m_collected_errors.clear(); }
  void forget_collection() { m_collected = false; }
  int take_value_present();
  int value_present() const { return m_value_present; }
  int grant_missing(std::int64_t count);

 private:
  void begin_field(int value_present) {
    m_collected = false;
    m_value_present = value_present;
  }
  void note_value() {
    m_field_errors.set(igsIOValuePresent);
    m_value_present = 1;
  }
  void skip_blanks() {
    if (**this == ' ' || **this == '\n') pre_decode();
  }
  bool read_plain_integer(int& value);
  bool read_plain_integer(unsigned width, int& value, bool& present);
  bool read_plain_double(double& value);
  bool end_fast_field(std::size_t length);
  /// What `decode` does with the decoder: the field, and what it has met.
  template <class Decoder, class Decode>
  decltype(auto) decoded(Decoder& decoder, Decode decode) {
    configure_for_decode(&decoder);
    decode();
    const igsIOErrorSet met = decoder.take_errors();
    if (met.holds(igsIOValuePresent)) m_value_present = 1;
    m_field_errors.merge(met);
    return decoder.decoded_value();
  }

  igsIntDecoder m_integer;
  igsDoubleDecoder m_real;
  igsHolerithDecoder m_hollerith;
  igsStrDecoder m_string;
  igsIOErrorSet m_field_errors;  ///< of the fields since they were last collected
  igsIOErrorSet m_collected_errors;
  igsIOErrorcoDynArr m_error_list;  ///< m_collected_errors with their place, filled by errors()
  igsFileSection m_collected_section = igsStartSectionId;
  int m_collected_line = 0;
  int m_collected_column = 0;
  bool m_collected = false;
  int m_value_present = 0;
  std::int64_t m_granted = 0;  ///< list elements that no record supplied
};

// Up to seven digits and a delimiter are almost all there is; nothing else is touched.
inline bool igsInStream::Reader::read_plain_integer(int& value) {
  if (record_end() - cursor() < 8) return false;
  std::uint64_t digits = 0;
  const unsigned count = igs_eight::leading_digits(igs_eight::load(cursor()), digits);
  if (count == 0 || count == 8 || !step_over_field(count)) return false;
  value = static_cast<int>(igs_eight::number(digits << (64 - 8 * count)));
  m_field_errors.set(igsIOValuePresent);
  return true;
}

/// Ends a free-format field whose value, if any, takes `length` characters; false where it is not all of the field.
inline bool igsInStream::Reader::end_fast_field(std::size_t length) {
  m_value_present = 0;
  if (length > 0) note_value();
  return step_over_field(length);
}

inline void igsInStream::Reader::read_integer(int& value) {
  begin_field(1);
  if (read_plain_integer(value)) return;
  skip_blanks();
  if (end_fast_field(igs_number::parse_int(cursor(), value))) return;
  value = decoded(m_integer, [this] { slow_decode(); });
}

void igsInStream::Reader::read_integer(unsigned width, int& value) {
  begin_field(0);
  value = decoded(m_integer, [=, this] { fixed_decode(width); });
}

// Blanks, or a number right-aligned behind blanks, are almost all there is in fields of fixed width; nothing else is
// touched. `present` tells the two apart.
inline bool igsInStream::Reader::read_plain_integer(unsigned width, int& value, bool& present) {
  if (width > 8 || record_end() - cursor() < 8) return false;
  const std::uint64_t columns = igs_eight::right_aligned(igs_eight::load(cursor()), width);
  std::uint64_t number = 0;
  present = columns == igs_eight::single_zero || igs_eight::right_aligned_number(columns, number);
  if (!present && columns != igs_eight::blanks) return false;
  value = static_cast<int>(number);
  *this += width;
  return true;
}

template <unsigned width>
void igsInStream::Reader::read_columns(std::initializer_list<int*> values) {
  bool any_present = false;
  begin_field(0);
  for (int* const value : values) {
    bool present = false;
    if (read_plain_integer(width, *value, present)) {
      m_value_present = present ? 1 : 0;
      any_present |= present;
    } else {
      read_integer(width, *value);
    }
  }
  if (any_present) m_field_errors.set(igsIOValuePresent);
}

// Knots, weights and components of directions are mostly a digit, a point and perhaps a zero; nothing else is touched.
inline bool igsInStream::Reader::read_plain_double(double& value) {
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

inline void igsInStream::Reader::read_double(double& value) {
  begin_field(1);
  if (read_plain_double(value)) return;
  skip_blanks();
  const std::size_t length = igs_number::parse_real_with_d(cursor(), value, record_end());
  if (std::isnan(value)) m_field_errors.set(igsIONotANumber);
  if (end_fast_field(length)) return;
  value = decoded(m_real, [this] { slow_decode(); });
}

inline void igsInStream::Reader::read_holerith(utString& value) {
  begin_field(0);
  value = decoded(m_hollerith, [this] { decode(); });
}

inline void igsInStream::Reader::read_string(unsigned width, utString& value) {
  begin_field(0);
  if (width == 8 && record_end() - cursor() >= 8 && !igs_eight::holds_nul(igs_eight::load(cursor()))) {
    note_value();
    value.assign(cursor(), width);
    *this += width;
  } else {
    value = decoded(m_string, [=, this] { fixed_decode(width); });
  }
}

void igsInStream::Reader::collect() {
  m_collected_errors = take_errors();
  m_collected_errors.merge(m_field_errors);
  m_field_errors.clear();
  position(m_collected_section, m_collected_line, m_collected_column);
  m_collected = true;
}

/// What the fields have met, and the fatal conditions, whenever they were met.
inline igsIOErrorSet& igsInStream::Reader::collected() {
  if (!m_collected) collect();
  if (fatal_error() != 0) m_collected_errors.merge(take_errors());
  return m_collected_errors;
}

const igsIOErrorcoDynArr& igsInStream::Reader::error_list() {
  if (!m_collected) collect();
  m_error_list.clear();
  m_collected_errors.append_to(m_error_list);
  for (igsIOError& error : m_error_list) {
    error.set_location(m_collected_section, m_collected_line, m_collected_column);
  }
  return m_error_list;
}

inline int igsInStream::Reader::take_value_present() {
  const int present = m_value_present;
  m_value_present = 0;
  m_field_errors.erase(igsIOValuePresent);
  if (m_collected) m_collected_errors.erase(igsIOValuePresent);
  return present;
}

int igsInStream::Reader::grant_missing(std::int64_t count) {
  const std::int64_t most = always_granted + static_cast<std::int64_t>(bytes_read()) / bytes_per_granted;
  if (count > most - m_granted) return 0;
  m_granted += count;
  return 1;
}

igsInStream::igsInStream(std::istream& in, const igsInOptions& options)
    : m_reader(std::make_unique<Reader>(in, options)) {}

igsInStream::~igsInStream() = default;

void igsInStream::read_integer(int& value) { m_reader->read_integer(value); }

void igsInStream::read_integer(unsigned width, int& value) { m_reader->read_integer(width, value); }

void igsInStream::read_integers(unsigned width, std::initializer_list<int*> values) {
  // The widths of directory entries, so that the shifts are known when this is compiled.
  if (width == 8) return m_reader->read_columns<8>(values);
  if (width == 2) return m_reader->read_columns<2>(values);
  for (int* const value : values) m_reader->read_integer(width, *value);
}

void igsInStream::read_double(double& value) { m_reader->read_double(value); }

void igsInStream::read_holerith(utString& value) { m_reader->read_holerith(value); }

void igsInStream::read_string(unsigned width, utString& value) { m_reader->read_string(width, value); }

void igsInStream::skip_columns(unsigned width) { m_reader->skip_columns(width); }

int igsInStream::error() { return m_reader->any_error(); }

int igsInStream::error_type(igsIOErrorCode code) { return m_reader->collected().holds(code) ? 1 : 0; }

const igsIOErrorcoDynArr& igsInStream::errors() { return m_reader->error_list(); }

int igsInStream::take_value_present() { return m_reader->take_value_present(); }

int igsInStream::value_present() const { return m_reader->value_present(); }

int igsInStream::grant_missing(std::int64_t count) { return m_reader->grant_missing(count); }

void igsInStream::clear_errors() { m_reader->clear_errors(); }

int igsInStream::fatal_error() const { return m_reader->fatal_error(); }

bool igsInStream::ever_met(igsIOErrorCode code) const { return m_reader->ever_met(code); }

int igsInStream::reset() {
  if (m_reader->reset() == 0) return 0;
  m_reader->clear_errors();
  m_reader->forget_collection();
  return 1;
}

void igsInStream::position(igsFileSection& section, int& line, int& column) const {
  m_reader->position(section, line, column);
}

int igsInStream::in_section(igsFileSection section) const { return m_reader->in_section(section); }

int igsInStream::num_lines(igsFileSection section) const { return m_reader->num_lines(section); }

int igsInStream::backpointer() const { return m_reader->backpointer(); }

std::size_t igsInStream::capacity() const { return m_reader->capacity(); }

bool igsInStream::nul_in_record() const { return m_reader->nul_in_record(); }

bool igsInStream::frozen() const { return m_reader->frozen(); }

void igsInStream::freeze() { m_reader->freeze(); }

void igsInStream::skip_line() { m_reader->skip_line(); }

void igsInStream::set_param_delimiter(char delimiter) { m_reader->set_param_delimiter(delimiter); }

void igsInStream::set_record_delimiter(char delimiter) { m_reader->set_record_delimiter(delimiter); }

void igsInStream::configure_for_decode(igsDecoder* decoder) { m_reader->configure_for_decode(decoder); }

void igsInStream::decode() {
  m_reader->forget_collection();
  m_reader->decode();
}

void igsInStream::fixed_decode(unsigned width) {
  m_reader->forget_collection();
  m_reader->fixed_decode(width);
}

void igsInStream::set_line_read_callback(void (*callback)()) { igsInBuffer::set_line_read_callback(callback); }

igsInStream::operator igsInEngine&() { return *m_reader; }

void igsInStream::collect_errors() { m_reader->collect(); }
