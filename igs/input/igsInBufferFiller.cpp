#include "igs/input/igsInBufferFiller.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "igs/input/igsInBuffer.h"
#include "igs/input/private/igsInSource.h"
#include "igs/input/private/number.h"
#include "igs/input/private/plainRecord.h"
#include "igs/input/private/record.h"
#include "igs/support/kelabsOutput.h"

namespace {

constexpr std::size_t record_size = record_length;
constexpr std::size_t with_line_end = record_size + 2;
/// A line is taken up to this many characters; a longer one is handed on in pieces.
constexpr std::size_t longest_line = 2 * record_size;
/// Holds the place of a line end inside a record that was put together of several lines.
constexpr char join_marker = 127;

const char missing_point_warning[] =
    "Warning: This file is corrupt - it contains lines missing a decimal point at the start.\n"
    "A decimal point will be inserted at the start of such lines.\n";
const char two_points_warning[] =
    "Warning: This file is corrupt - it contains lines starting with two decimal points.\n"
    "One of the decimal points will be removed from such lines.\n";

using igs_number::is_digit;
bool newline_char(char c) { return c == '\r' || c == '\n'; }
bool iges_char(char c) { return std::string_view(section_letters).find(c) != std::string_view::npos; }

void remove_trailing_spaces(std::string& line) { line.resize(line.find_last_not_of(' ') + 1); }
void pad_buffer(std::string& line, std::size_t width) {
  if (line.size() < width) line.resize(width, ' ');
}

/// The digits that end a line, at most 7 of them, right-aligned in 7 columns.
struct Number {
  std::array<char, sequence_columns> columns;
  std::size_t digits = 0;

  Number() { columns.fill(' '); }
  /// Puts a digit before those placed so far; drops it when there is no room.
  void place(char digit) {
    if (digits < columns.size()) columns[columns.size() - ++digits] = digit;
  }
};

/// What ends a line: a letter, then blanks and digits.
struct Ending {
  bool found = false;      ///< there is a letter, a digit behind it, and no blank between the digits
  std::size_t letter = 0;  ///< index of the letter
  Number number;
};

Ending find_ending(const std::string& line) {
  Ending ending;
  bool blank_before_digits = false;
  for (std::size_t i = line.size(); i > 0; --i) {
    const char c = line[i - 1];
    if (is_digit(c)) {
      if (blank_before_digits) return ending;
      ending.number.place(c);
    } else if (c == ' ') {
      blank_before_digits = ending.number.digits > 0;
    } else {
      ending.letter = i - 1;
      ending.found = ending.number.digits > 0 && iges_char(c);
      return ending;
    }
  }
  return ending;
}

}  // namespace

igsInBufferFiller::igsInBufferFiller(std::istream& in, const igsInOptions& options)
    : m_source(std::make_unique<igsInSource>(in, options.lines)),
      m_messages(options.messages),
      m_shortcuts(options.shortcuts),
      m_recover(options.recover),
      m_wanted(options.recover ? 3 * with_line_end : with_line_end),
      m_lines(options.lines),
      m_plain_records(std::make_unique<igsPlainRecords>()) {
  m_overflow.reserve(2 * longest_line);
  if (options.note_line_end) note_line_end();
}

igsInBufferFiller::~igsInBufferFiller() = default;

void igsInBufferFiller::note_line_end() {
  const std::size_t length = std::min(m_source->require(igsInSource::max_required), igsInSource::max_required);
  const std::string_view text(m_source->data(), length);
  const std::size_t lf = text.find('\n');
  if (lf == std::string_view::npos) return;
  m_first_line_end = lf > 0 && text[lf - 1] == '\r' ? igsLineEnd::crlf : igsLineEnd::lf;
}

std::uint64_t igsInBufferFiller::bytes_read() const { return m_source->position(); }

int igsInBufferFiller::line_of_record() const { return m_lines ? m_source->line_at(m_record_begin) : 0; }

void igsInBufferFiller::set_error(igsIOErrorCode code) {
  m_errors.set(code);
  m_ever_met.set(code);
  if (code == igsIOStreamBad || code == igsIOEndOfInput || code == igsIOStreamFailed) m_fatal = 1;
}

int igsInBufferFiller::reset() {
  if (m_fatal != 0) return 0;
  m_errors.clear();
  return 1;
}

void igsInBufferFiller::collect_errors(igsIOErrorcoDynArr& errors) { take_errors().append_to(errors); }

void igsInBufferFiller::set_param_delimiter(char delimiter) {
  settle_continuation();
  m_param_delimiter = delimiter;
}

void igsInBufferFiller::set_record_delimiter(char delimiter) {
  settle_continuation();
  m_record_delimiter = delimiter;
}

void igsInBufferFiller::warn_once(bool& pending, const char* text) {
  if (pending && m_messages != nullptr) m_messages->print("iges", "%s", text);
  pending = false;
}

// A line that the repair steps would leave as it is becomes the record where it stands in the block.
inline bool igsInBufferFiller::get_plain(igsInBuffer& buffer) {
  if (!m_overflow.empty()) return false;
  igsInSource& source = *m_source;
  if (source.available() < m_wanted) {
    settle_continuation();  // the last record may be overwritten
    if (source.require(m_wanted) < with_line_end) return false;
  }
  char* const text = source.data();
  const bool lf = text[record_size] == '\n';
  const bool cr_lf = text[record_size] == '\r' && text[record_size + 1] == '\n';
  if (!(lf || cr_lf) || !m_plain_records->recognise(text)) return false;
  m_plain_marks = &m_plain_records->marks();
  text[record_size] = '\0';
  if (m_lines) m_record_begin = source.position();
  m_lf = true;
  source.consume(lf ? record_size + 1 : record_size + 2);
  m_unsettled = text;
  buffer.set_record(text, record_size);
  return true;
}

int igsInBufferFiller::get(igsInBuffer& buffer) {
  m_nul_in_record = false;
  if (m_shortcuts && get_plain(buffer)) return 1;
  m_plain_marks = nullptr;
  settle_continuation();
  std::string& line = buffer.m_line;
  rebuild(line);
  if (m_recover) m_source->require(m_wanted);
  m_continuation = check_for_continuation(line.data(), line.size());
  buffer.set_record(line.data(), line.size());
  if (line.empty() && m_source->eof()) set_error(igsIOEndOfInput);
  if (m_source->bad()) set_error(igsIOStreamBad);
  if (m_source->fail()) set_error(igsIOStreamFailed);
  return line.empty() ? 0 : 1;
}

int igsInBufferFiller::num_numbered_on(igsFileSection section, int number) const {
  constexpr int lines = 2;
  if (!m_overflow.empty()) return -1;
  std::string_view ahead(m_source->data(), m_source->available());
  for (int i = 0; i < lines; ++i) {
    if (ahead.size() < record_size || convert_char_to_section(ahead[data_columns]) != section) return i;
    const std::string digits(ahead.substr(data_columns + 1, sequence_columns));
    int found = 0;
    igs_number::parse_int(digits.c_str(), found);
    if (found != ++number) return -1;
    ahead.remove_prefix(record_size);
    ahead.remove_prefix(std::min(ahead.find_first_not_of("\r\n"), ahead.size()));
  }
  return lines;
}

// The checker has written its end marks into the record, over columns whose characters are known.
void igsInBufferFiller::settle_continuation() {
  if (m_unsettled == nullptr) return;
  std::array<char, record_length> text;
  std::memcpy(text.data(), m_unsettled, text.size());
  m_unsettled = nullptr;
  if (text[data_columns] == '\n') text[data_columns] = section_letters[igsGlobalSectionId];
  if (text[data_columns] == section_letters[igsParameterSectionId]) text[pd_data_columns] = ' ';
  m_continuation = check_for_continuation(text.data(), text.size());
}

bool igsInBufferFiller::check_for_continuation(const char* text, std::size_t length) const {
  for (std::size_t i = length; i > 0; --i) {
    const char c = text[i - 1];
    if (c == m_record_delimiter) return false;
    if (c == m_param_delimiter && i < length && text[i] == ' ') return true;
  }
  return false;
}

void igsInBufferFiller::rebuild(std::string& line) {
  line.clear();
  bool joined = false;
  if (m_lines) m_record_begin = m_source->position() - m_overflow.size();
  while (get_line(line) != 0) {
    if (buffer_empty(line)) {
      set_error(igsIOBlankLine);
      line.clear();
      if (m_lines) m_record_begin = m_source->position() - m_overflow.size();
      continue;
    }
    if (check_buffer(line, joined) == 0) break;
    line.push_back(join_marker);
    joined = true;
  }
  if (joined) std::replace(line.begin(), line.end(), join_marker, ' ');
}

int igsInBufferFiller::get_line(std::string& line) {
  const std::size_t before = line.size();
  if (drain_overflow(line)) return 1;
  bool ended = false;
  while (!ended && m_source->good() && m_source->look_ahead() && *m_source->data() != '\n' &&
         line.size() < longest_line) {
    ended = read_chunk(line);
  }
  if (m_source->good() && m_source->look_ahead()) {
    if (*m_source->data() == '\n') {
      m_source->consume(1);
      m_lf = true;
    } else if (ended && m_recover) {
      m_lone_cr = true;
    }
  }
  return line.size() > before || m_source->good() ? 1 : 0;
}

// Returns whether a line end was found among the characters left over.
bool igsInBufferFiller::drain_overflow(std::string& line) {
  const auto end = std::find_if(m_overflow.begin(), m_overflow.end(), newline_char);
  const bool ended = end != m_overflow.end();
  append_cleaned(line, m_overflow.data(), static_cast<std::size_t>(end - m_overflow.begin()));
  m_overflow.erase(m_overflow.begin(), ended ? end + 1 : end);
  return ended;
}

// Reads up to a line feed or as far as the line may grow; returns whether a carriage return has ended the line.
bool igsInBufferFiller::read_chunk(std::string& line) {
  const std::size_t wanted = std::min(longest_line - line.size(), record_size);
  std::size_t length = std::min(m_source->require(wanted), wanted);
  const char* const text = m_source->data();
  if (const void* lf = std::memchr(text, '\n', length)) {
    length = static_cast<std::size_t>(static_cast<const char*>(lf) - text);
  }
  const void* cr = std::memchr(text, '\r', length);
  const std::size_t kept = cr == nullptr ? length : static_cast<std::size_t>(static_cast<const char*>(cr) - text);
  append_cleaned(line, text, kept);
  if (cr != nullptr && m_recover) {
    m_source->consume(kept + 1);
    return true;
  }
  if (cr != nullptr) m_overflow.append(text + kept + 1, length - kept - 1);
  m_source->consume(length);
  // A read that wanted more than there was has seen the end of the input.
  if (length < wanted) m_source->look_ahead();
  return cr != nullptr;
}

void igsInBufferFiller::append_cleaned(std::string& line, const char* text, std::size_t length) {
  const std::size_t start = line.size();
  line.append(text, length);
  if (std::memchr(text, '\0', length) == nullptr) return;
  set_error(igsIONullCharacter);
  m_nul_in_record = true;
  std::replace(line.begin() + static_cast<std::ptrdiff_t>(start), line.end(), '\0', ' ');
}

bool igsInBufferFiller::buffer_empty(const std::string& line) {
  return line.find_first_not_of(" \t\n\v\f\r") == std::string::npos;
}

// Returns the number of characters that the next line must supply; 0 when the record is complete.
int igsInBufferFiller::check_buffer(std::string& line, bool joined) {
  std::replace(line.begin(), line.end(), '\t', ' ');
  std::size_t letter = 0;
  bool iges = looks_like_iges(line, letter);
  if (!iges) {
    if (line.size() < record_size) return static_cast<int>(record_size - line.size());
    if (line.size() == record_size) {
      format_buffer(line);
      return 0;
    }
    if (joined) remove_excess_127s(line);
  }
  if (!iges || line.size() >= longest_line) {
    store_overflow(line);
    iges = looks_like_iges(line, letter);
  }
  if (iges && letter < data_columns) insert_point(line);
  if (iges && letter > data_columns) remove_point(line);
  format_buffer(line);
  return 0;
}

bool igsInBufferFiller::looks_like_iges(const std::string& line, std::size_t& letter) {
  const Ending ending = find_ending(line);
  letter = ending.letter;
  return ending.found;
}

void igsInBufferFiller::format_buffer(std::string& line) {
  if (line.find_first_not_of(' ') == std::string::npos) line.clear();
  const Ending ending = find_ending(line);
  if (!ending.found)
    return;  // the line stays as it is: a record without a sequence number keeps its letter in column 73
  const char section = line[ending.letter];
  line.resize(ending.letter);
  Number backpointer;
  if (section == section_letters[igsParameterSectionId]) {
    while (!line.empty() && is_digit(line.back()) && backpointer.digits < backpointer.columns.size()) {
      backpointer.place(line.back());
      line.pop_back();
    }
    remove_trailing_spaces(line);
    pad_buffer(line, pd_data_columns);
    line += ' ';
    line.append(backpointer.columns.data(), backpointer.columns.size());
  } else {
    remove_trailing_spaces(line);
    pad_buffer(line, data_columns);
  }
  line += section;
  line.append(ending.number.columns.data(), ending.number.columns.size());
}

// The characters go before those already stored, which were read later.
void igsInBufferFiller::store_overflow(std::string& line) {
  if (line.size() <= record_size) return;
  m_overflow.insert(0, line, record_size, std::string::npos);
  line.resize(record_size);
}

void igsInBufferFiller::remove_excess_127s(std::string& line) {
  std::size_t excess = line.size() - record_size;
  const auto is_excess = [&excess](char c) {
    if (excess == 0 || c != join_marker) return false;
    --excess;
    return true;
  };
  std::size_t kept = 0;
  for (const char c : line) {
    if (!is_excess(c)) line[kept++] = c;
  }
  line.resize(kept);
}

void igsInBufferFiller::insert_point(std::string& line) {
  std::size_t letter = 0;
  if (!looks_like_iges(line, letter) || line.size() >= record_size || !m_continuation) return;
  if (line[letter] != section_letters[igsParameterSectionId] || !is_digit(line[0])) return;
  const std::string_view field = std::string_view(line).substr(0, line.find(m_param_delimiter));
  if (field.find('.') != std::string_view::npos) return;
  line.insert(line.begin(), '.');
  warn_once(m_missing_point_pending, missing_point_warning);
}

void igsInBufferFiller::remove_point(std::string& line) {
  if (line.size() <= record_size || line.compare(0, 2, "..") != 0) return;
  line.erase(line.begin());
  warn_once(m_two_points_pending, two_points_warning);
}
