#include "igs/file/igsStartSection.h"

#include <algorithm>
#include <cstddef>

#include "igs/file/igsFile.h"
#include "igs/file/igsStartSection_errors.h"
#include "igs/input/igsInStream.h"
#include "igs/input/private/record.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

int igsStartSectionInvalid::fix() {
  message("Warning : The start section of this file cannot be read.\n");
  return 1;
}

int igsStartSection::line(int i, utString& out) const {
  if (i < 0 || i >= num_lines()) return 0;
  out = text_of(m_lines[static_cast<std::size_t>(i)]);
  return 1;
}

utString igsStartSection::text_of(const Line& line) const {
  const auto begin = m_text.begin() + static_cast<std::ptrdiff_t>(line.at);
  utString text(begin, begin + static_cast<std::ptrdiff_t>(line.length));
  text.append(line.blanks, ' ');
  return text;
}

/// `text`: at most 72 characters.
igsStartSection::Line igsStartSection::pooled(std::string_view text) {
  const std::string_view kept = text.substr(0, text.find_last_not_of(' ') + 1);
  Line line;
  line.at = std::uint64_t{m_text.size()} & 0xFFFFFFFFFFFF;
  line.length = static_cast<unsigned char>(kept.size());
  line.blanks = static_cast<unsigned char>(text.size() - kept.size());
  m_text.insert(m_text.end(), kept.begin(), kept.end());
  return line;
}

void igsStartSection::replace(std::size_t index, std::string_view text) {
  const Line line = pooled(text);
  m_unused += static_cast<std::size_t>(m_lines[index].length);
  m_lines[index] = line;
  constexpr std::size_t tolerated = 4096;
  if (m_unused > tolerated && m_unused > m_text.size() / 2) drop_unused_text();
}

void igsStartSection::drop_unused_text() {
  igsStartSection compact;
  compact.m_lines.clear();
  for (const Line& line : m_lines) compact.m_lines.push_back(compact.pooled(text_of(line)));
  m_text.swap(compact.m_text);
  m_lines.swap(compact.m_lines);
  m_unused = 0;
}

int igsStartSection::set_line(int i, const utString& text) {
  if (i < 0 || i >= max_sequence_number || text.empty() || text.size() > data_columns) return 0;
  const auto index = static_cast<std::size_t>(i);
  if (index >= m_lines.size()) m_lines.resize(index + 1);
  replace(index, text);
  return 1;
}

int igsStartSection::valid() const {
  return std::all_of(m_lines.begin(), m_lines.end(),
                     [](const Line& line) { return line.length + line.blanks <= data_columns; })
             ? 1
             : 0;
}

int igsStartSection::read(igsInStream& in) {
  utString text;
  for (std::size_t i = 0; in.in_section(igsStartSectionId) != 0; ++i) {
    if (i == m_lines.size()) m_lines.emplace_back();
    in.read_string(data_columns, text);
    replace(i, text);
  }
  if (in.error_type(igsIOStartOutOfOrder) != 0) tag_error(new igsStartSectionInvalid);
  const int result = in.reset();
  if (result != 0) in.clear_errors();
  return result;
}

int igsStartSection::write(igsOutStream& out) {
  out.set_section(igsStartSectionId);
  for (const Line& line : m_lines) {
    utString padded = text_of(line);
    padded.resize(std::max<std::size_t>(padded.size(), data_columns), ' ');
    out.write_string(data_columns, padded);
  }
  const int result = out.reset();
  if (result != 0) out.clear_errors();
  return result;
}

void igsStartSection::tag_error(igsStartError* error) const {
  if (error != nullptr && m_owner != nullptr) error->set_message_stream(m_owner->message_stream());
}

void igsStartSection::print(utOstream& os) const {
  os << "NoOfLinesInStartSection = " << num_lines() << utEndl << "StartSection = {" << utEndl;
  utOstream inner(os, 1);
  int number = 0;
  for (const Line& line : m_lines) inner << ++number << " = \"" << text_of(line) << '"' << utEndl;
  os << '}' << utEndl;
}
