#include "igs/output/igsOutEngine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "igs/input/private/record.h"
#include "igs/output/igsEncoder.h"

void igsOutEngine::encode() {
  if (m_encoder == nullptr) return;
  write_pending_delimiter();
  const int last = m_encoder->num_pieces() - 1;
  for (int i = 0; i <= last; ++i) write_piece(m_encoder->piece(i), m_encoder->get_split_flag(i), i == last);
  m_delimiter_pending = m_delimited_section;
}

/// Writes a piece that stands behind its delimiter, where that, the columns of the stamp or the next record will be.
void igsOutEngine::encode_copy(const char* piece, std::ptrdiff_t length) {
  std::array<char, scratch_length> copy;
  std::memcpy(copy.data(), piece, copy.size());  // the whole array: quicker than a length
  if (m_is_plain_delimiter && m_delimited_section && length < data_width()) {
    if (m_delimiter_pending) keep_printed(1, 1);
    if (length >= room()) end_line();
    std::memcpy(position(), copy.data(), copy.size());
    keep_printed(length, length);
  } else {
    write_pending_delimiter();
    write_piece({copy.data(), static_cast<std::size_t>(length)}, false, true);
  }
  m_delimiter_pending = m_delimited_section;
}

void igsOutEngine::write_pending_delimiter() {
  if (m_delimiter_pending) write_split(m_parameter_delimiter);
}

void igsOutEngine::write_piece(std::string_view piece, bool may_split, bool is_last) {
  const std::size_t columns = piece.size() + (m_delimited_section && is_last ? 1 : 0);
  if (columns <= static_cast<std::size_t>(data_width()) && !may_split) {
    write_on_one_line(piece, columns);
  } else {
    write_split(piece);
  }
}

void igsOutEngine::fixed_encode(int width) {
  if (m_encoder == nullptr || width <= 0) return;
  for (int i = 0; i < m_encoder->num_pieces(); ++i) {
    const std::string_view piece = m_encoder->piece(i).substr(0, static_cast<std::size_t>(width));
    const int length = static_cast<int>(piece.size());
    if (length != width) advance(width - length);
    write_on_one_line(piece, piece.size());
  }
}

void igsOutEngine::set_delimiters(const utString& parameter_delimiter, const utString& record_delimiter) {
  m_parameter_delimiter = parameter_delimiter;
  m_is_plain_delimiter = parameter_delimiter.size() == 1;
  m_record_delimiter = record_delimiter;
}

void igsOutEngine::set_comment(const utString& comment) {
  m_comment = comment;
  std::transform(m_comment.begin(), m_comment.end(), m_comment.begin(), record_character);
}

void igsOutEngine::end_record() {
  write_split(m_record_delimiter);
  if (m_comment.empty()) return;
  write_split(m_comment);
  m_comment.clear();
}

void igsOutEngine::set_section(igsFileSection section) {
  if (formatter().section() == igsGlobalSectionId) end_record();
  m_delimited_section = section == igsGlobalSectionId || section == igsParameterSectionId;
  m_delimiter_pending = false;
  igsOutBuffer::set_section(section);
}

void igsOutEngine::set_backpointer(int backpointer) {
  end_record();
  igsOutBuffer::set_backpointer(backpointer);
  m_delimiter_pending = false;
}

int igsOutEngine::begin_backpointer(int backpointer) {
  end_record();
  m_delimiter_pending = false;
  return igsOutBuffer::begin_backpointer(backpointer);
}

int igsOutEngine::reset() {
  if (m_delimiter_pending && write_out_block()) return 1;
  return igsOutBuffer::reset();
}

void igsOutEngine::collect_errors(igsIOErrorcoDynArr& errors) {
  write_out_block();
  formatter().collect_errors(errors);
  igsOutBufferPurger::collect_errors(errors);
  for (igsIOError& error : errors) {
    error.set_location(formatter().section(), formatter().sequence_number(), column());
  }
}
