#include "igs/output/igsOutEngine.h"

#include <cstddef>
#include <string_view>

#include "igs/output/igsEncoder.h"

void igsOutEngine::encode() {
  if (m_encoder == nullptr) return;
  write_pending_delimiter();
  const int last = m_encoder->num_pieces() - 1;
  for (int i = 0; i <= last; ++i) {
    const std::string_view piece = m_encoder->piece(i);
    const std::size_t columns = piece.size() + (m_delimited_section && i == last ? 1 : 0);
    if (columns <= static_cast<std::size_t>(data_width()) && !m_encoder->get_split_flag(i)) {
      write_on_one_line(piece, columns);
    } else {
      write_split(piece);
    }
  }
  if (m_delimited_section) m_delimiter_pending = true;
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
  m_record_delimiter = record_delimiter;
}

void igsOutEngine::set_section(igsFileSection section) {
  if (formatter().section() == igsGlobalSectionId) write_split(m_record_delimiter);
  m_delimited_section = section == igsGlobalSectionId || section == igsParameterSectionId;
  if (m_delimited_section) m_delimiter_pending = false;
  igsOutBuffer::set_section(section);
}

void igsOutEngine::set_backpointer(int backpointer) {
  write_split(m_record_delimiter);
  igsOutBuffer::set_backpointer(backpointer);
  m_delimiter_pending = false;
}

int igsOutEngine::reset() {
  const bool record_open = m_delimited_section && m_delimiter_pending;
  if (record_open && write_out_block()) return 1;
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
