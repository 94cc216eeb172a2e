#include "igs/file/igsStartSection.h"

#include <algorithm>
#include <cstddef>

#include "igs/file/igsFile.h"
#include "igs/file/igsStartSection_errors.h"
#include "igs/input/igsInStream.h"
#include "igs/input/record.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

int igsStartSectionInvalid::fix() {
  message("Warning : The start section of this file cannot be read.\n");
  return 1;
}

int igsStartSection::line(int i, utString& out) const {
  if (i < 0 || i >= num_lines()) return 0;
  out = m_lines[static_cast<std::size_t>(i)];
  return 1;
}

int igsStartSection::set_line(int i, const utString& text) {
  if (i < 0 || i >= max_sequence_number || text.empty() || text.size() > data_columns) return 0;
  const auto index = static_cast<std::size_t>(i);
  if (index >= m_lines.size()) m_lines.resize(index + 1);
  m_lines[index] = text;
  return 1;
}

int igsStartSection::valid() const {
  return std::all_of(m_lines.begin(), m_lines.end(), [](const utString& line) { return line.size() <= data_columns; })
             ? 1
             : 0;
}

int igsStartSection::read(igsInStream& in) {
  for (std::size_t i = 0; in.in_section(igsStartSectionId) != 0; ++i) {
    if (i == m_lines.size()) m_lines.emplace_back();
    in.read_string(data_columns, m_lines[i]);
  }
  if (in.error_type(igsIOStartOutOfOrder) != 0) tag_error(new igsStartSectionInvalid);
  const int result = in.reset();
  if (result != 0) in.clear_errors();
  return result;
}

int igsStartSection::write(igsOutStream& out) {
  out.set_section(igsStartSectionId);
  for (const utString& line : m_lines) {
    utString padded = line;
    padded.resize(std::max<std::size_t>(line.size(), data_columns), ' ');
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
  for (const utString& line : m_lines) inner << ++number << " = \"" << line << '"' << utEndl;
  os << '}' << utEndl;
}
