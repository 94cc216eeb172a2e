#include "igs/input/igsInBuffer.h"

#include <string_view>

#include "igs/input/private/record.h"

namespace {

constinit thread_local igsInBuffer::line_read_callback callback = nullptr;

}  // namespace

igsInBuffer::igsInBuffer(std::istream& in, const igsInOptions& options)
    : igsInBufferFiller(in, options), m_checker(options.recover), m_callback(&callback) {
  m_line.reserve(std::size_t{4} * record_length);
  m_record = m_line.data();
  m_position = m_record;
  m_end = m_record;
  *this += 0;
}

igsInBuffer::~igsInBuffer() = default;

void igsInBuffer::set_line_read_callback(line_read_callback new_callback) { callback = new_callback; }

void igsInBuffer::get_next_line() {
  m_has_record = get(*this) != 0;
  m_position = m_record;
  std::size_t data_length = 0;
  int sound = 0;
  if (m_has_record) {
    const igsRecordMarks* const marks = plain_marks();
    sound = marks != nullptr ? m_checker.check_plain(m_record, *marks, data_length)
                             : m_checker.check(m_record, m_length, data_length);
  }
  m_end = m_record + data_length;
  m_sound = sound != 0;
  if (!m_sound) {
    freeze();
  } else if (m_text != nullptr) {
    append_to_text();
  }
  if (*m_callback != nullptr) (*m_callback)();
}

void igsInBuffer::collect_text(std::string* text, std::vector<std::pair<std::size_t, int>>* lines) {
  m_text = text;
  m_text_lines = lines;
  m_rest = nullptr;
  m_sound = m_has_record && !m_frozen;  // whatever came before
  if (text != nullptr && m_sound) append_to_text();
}

// The line feed behind a Global record is none of its characters.
void igsInBuffer::append_to_text() {
  std::string_view data(m_position, static_cast<std::size_t>(m_end - m_position));
  if (data.ends_with('\n')) data.remove_suffix(1);
  if (m_text_lines != nullptr) m_text_lines->emplace_back(m_text->size(), input_line());
  m_text->append(data);
}

void igsInBuffer::note_end_of_fields() {
  m_record_ended = m_frozen && m_sound;
  m_fields_end = 0;
  if (m_text != nullptr) {
    m_fields_end = text_position();
    return;
  }
  m_text = m_rest;
  if (!m_sound) return;
  if (m_frozen) *m_position = m_saved;
  append_to_text();
  if (m_frozen) *m_position = '\0';
}

/// The place of the read position in the text collected.
std::size_t igsInBuffer::text_position() const {
  std::ptrdiff_t left = m_sound ? m_end - m_position : 0;
  if (left > 0 && m_end[-1] == '\n') --left;
  return m_text->size() - static_cast<std::size_t>(left);
}

void igsInBuffer::freeze() {
  if (m_frozen) return;
  m_saved = *m_position;
  *m_position = '\0';
  m_frozen = true;
}

void igsInBuffer::unfreeze() {
  if (!m_frozen) return;
  *m_position = m_saved;
  m_frozen = false;
}

int igsInBuffer::reset() {
  while (m_frozen) {
    const int filler_ok = igsInBufferFiller::reset();
    const int checker_ok = m_checker.reset();
    if (filler_ok == 0 || checker_ok == 0) return 0;
    unfreeze();
    if (m_has_record && m_position == m_record) return 1;
    get_next_line();
  }
  return 1;
}

void igsInBuffer::skip_line() {
  unfreeze();
  get_next_line();
}

void igsInBuffer::collect_errors(igsIOErrorcoDynArr& errors) {
  igsInBufferFiller::collect_errors(errors);
  m_checker.collect_errors(errors);
}
