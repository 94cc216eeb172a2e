#include "igs/file/igsTerminateSection.h"

#include "igs/file/igsFile.h"
#include "igs/file/igsTerminateSection_errors.h"
#include "igs/input/igsInStream.h"
#include "igs/input/private/record.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

int igsTerminateSectionBadCount::fix() {
  if (key() == nullptr) return 0;
  const int lines = value<2>();
  switch (value<0>()) {
    case igsStartSectionId:
      key()->set_start_lines(lines);
      break;
    case igsGlobalSectionId:
      key()->set_global_lines(lines);
      break;
    case igsDirectorySectionId:
      key()->set_directory_lines(lines);
      break;
    case igsParameterSectionId:
      key()->set_parameter_lines(lines);
      break;
    default:
      break;
  }
  return 1;
}

int igsTerminateSection::set_lines(std::size_t section, int lines) {
  if (lines < 1 || lines > max_sequence_number) return 0;
  m_counts[section] = lines;
  return 1;
}

int igsTerminateSection::set_directory_lines(int lines) {
  return lines % 2 == 0 ? set_lines(igsDirectorySectionId, lines) : 0;
}

int igsTerminateSection::read(igsInStream& in) {
  for (std::size_t i = 0; i < m_counts.size(); ++i) {
    const auto section = static_cast<igsFileSection>(i);
    utString letter;
    in.read_string(1, letter);
    if (letter != utString(1, section_letters[i])) tag_error(new igsTerminateSectionBadName(section, letter));
    in.read_integer(sequence_columns, m_counts[i]);
    const int lines = in.num_lines(section);
    if (m_counts[i] != lines) tag_error(new igsTerminateSectionBadCount(section, m_counts[i], lines));
  }
  const int result = in.reset();
  if (result != 0) in.clear_errors();
  return result;
}

int igsTerminateSection::write(igsOutStream& out) {
  out.set_section(igsTerminateSectionId);
  for (std::size_t i = 0; i < m_counts.size(); ++i) {
    m_counts[i] = out.num_lines(static_cast<igsFileSection>(i));
    out.write_string(1, utString(1, section_letters[i]));
    out.write_integer(sequence_columns, m_counts[i]);
  }
  const int result = out.reset();
  if (result != 0) out.clear_errors();
  return result;
}

void igsTerminateSection::tag_error(igsTerminateError* error) const {
  if (error == nullptr) return;
  // Errors repair the section that reports them, even one that is only checked.
  error->set_key(const_cast<igsTerminateSection*>(this));
  if (m_owner != nullptr) error->set_message_stream(m_owner->message_stream());
}

void igsTerminateSection::print(utOstream& os) const {
  os << "TerminateSection = {" << utEndl;
  utOstream inner(os, 1);
  inner << "NoOfLinesInStartSection = " << start_lines() << utEndl;
  inner << "NoOfLinesInGlobalSection = " << global_lines() << utEndl;
  inner << "NoOfLinesInDirectorySection = " << directory_lines() << utEndl;
  inner << "NoOfLinesInParameterSection = " << parameter_lines() << utEndl;
  os << '}' << utEndl;
}
