#include "igs/output/igsOutStream.h"

#include <algorithm>

#include "igs/output/igsDoubleEncoder.h"
#include "igs/output/igsEncoder.h"
#include "igs/output/igsOutEngine.h"
#include "igs/support/undefined.h"

static_assert(std::max(igsIntEncoder::max_length, igsDoubleEncoder::max_length) < igsOutEngine::scratch_length);

struct igsOutStream::State {
  explicit State(std::ostream* destination) : engine(destination) { engine.set_encoder(&integer); }

  /// Readies an encoder for the next field.
  template <class Encoder>
  Encoder& select(Encoder& encoder) {
    encoder.reset();
    engine.set_encoder(&encoder);
    return encoder;
  }

  igsIntEncoder integer;
  igsDoubleEncoder real;
  igsHolerithEncoder hollerith;
  igsFieldEncoder field;
  igsStrEncoder string;
  igsOutEngine engine;
  bool exact = false;
  igsIOErrorcoDynArr errors;
};

igsOutStream::igsOutStream(std::ostream* destination) : m_state(std::make_unique<State>(destination)) {}

igsOutStream::~igsOutStream() = default;

void igsOutStream::write_integer(int value) {
  m_state->engine.encode_printed([value](char* text) { return igsIntEncoder::print(text, value); });
}

void igsOutStream::write_integer(int width, int value) {
  igsIntEncoder& integer = m_state->select(m_state->integer);
  integer.encode(value);
  if (static_cast<int>(integer.piece(0).size()) > width) return write_string(width, utString());
  m_state->engine.fixed_encode(width);
}

void igsOutStream::write_double(double value) {
  State& state = *m_state;
  if (state.exact && igs_is_undefined_real(value)) return write_field({});
  state.engine.encode_printed([&state, value](char* text) { return state.real.print(text, value); });
}

void igsOutStream::write_holerith(const utString& value) {
  m_state->select(m_state->hollerith).encode(value, m_state->exact);
  m_state->engine.encode();
}

void igsOutStream::set_exact(bool exact) { m_state->exact = exact; }

bool igsOutStream::exact() const { return m_state->exact; }

void igsOutStream::set_style(const igsWritingStyle& style) {
  if (style.shortest_reals) m_state->real.use_shortest();
  if (style.exponent_letter == igsExponentLetter::e) m_state->real.set_exponent_letter('E');
  if (style.line_end == igsLineEnd::crlf) m_state->engine.use_crlf();
}

void igsOutStream::write_field(std::string_view field) {
  m_state->select(m_state->field).encode(field);
  m_state->engine.encode();
}

void igsOutStream::set_comment(const utString& comment) { m_state->engine.set_comment(comment); }

void igsOutStream::write_string(int width, const utString& value) {
  m_state->select(m_state->string).encode(value);
  m_state->engine.fixed_encode(width);
}

void igsOutStream::write_columns(std::string_view columns) { m_state->engine.write_columns(columns); }

void igsOutStream::push_double_format(int width, int precision) { m_state->real.push_format(width, precision); }

void igsOutStream::pop_double_format() { m_state->real.pop_format(); }

void igsOutStream::set_section(igsFileSection section) { m_state->engine.set_section(section); }

void igsOutStream::set_backpointer(int backpointer) { m_state->engine.set_backpointer(backpointer); }

int igsOutStream::end_entity(int backpointer) {
  const int num_lines = m_state->engine.begin_backpointer(backpointer);
  if (num_lines >= 0) clear_errors();
  return num_lines;
}

void igsOutStream::set_destination(std::ostream* destination) { m_state->engine.set_destination(destination); }

void igsOutStream::set_delimiters(const utString& parameter_delimiter, const utString& record_delimiter) {
  m_state->engine.set_delimiters(parameter_delimiter, record_delimiter);
}

int igsOutStream::num_lines(igsFileSection section) const { return m_state->engine.num_lines(section); }

int igsOutStream::error() {
  collect_errors();
  return m_state->errors.empty() ? 0 : 1;
}

int igsOutStream::error_type(igsIOErrorCode code) {
  collect_errors();
  const auto has_code = [code](const igsIOError& error) { return error.error_type() == code; };
  return std::any_of(m_state->errors.begin(), m_state->errors.end(), has_code) ? 1 : 0;
}

int igsOutStream::reset() {
  if (!m_state->engine.reset()) return 0;
  clear_errors();
  return 1;
}

void igsOutStream::clear_errors() { m_state->errors.clear(); }

void igsOutStream::collect_errors() { m_state->engine.collect_errors(m_state->errors); }
