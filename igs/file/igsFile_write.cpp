// Writing a file: the drivers of igsFile that put the sections on the output stream.

#include <array>
#include <cstdio>
#include <ios>
#include <istream>
#include <ostream>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsObject.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/coResourceTable.h"
#include "igs/support/ubFStream.h"

namespace {
/// Keeps a stream from throwing: its faults are asked for.
class QuietStream {
 public:
  explicit QuietStream(std::ostream& stream) : m_stream(stream), m_exceptions(stream.exceptions()) {
    stream.exceptions(std::ios::goodbit);
  }
  ~QuietStream() {
    try {
      m_stream.exceptions(m_exceptions);
    } catch (const std::ios::failure&) {
      // the stream is bad already: the caller learns that from the result
    }
  }
  QuietStream(const QuietStream&) = delete;
  QuietStream& operator=(const QuietStream&) = delete;

 private:
  std::ostream& m_stream;
  std::ios::iostate m_exceptions;
};

/// A file that is written and read back, and gone afterwards. Where the system allows it the name goes at once, so that
/// nothing is left behind even when the process is killed.
class TemporaryFile {
 public:
  explicit TemporaryFile(const utString& directory)
      : m_name(klu_make_temp_file_name(directory)), m_out(m_name), m_in(m_name) {
    m_removed = !m_name.empty() && std::remove(m_name.c_str()) == 0;
  }
  ~TemporaryFile() {
    m_out.close();
    m_in.close();
    if (!m_removed && !m_name.empty()) std::remove(m_name.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool is_open() const { return m_out.is_open() && m_in.is_open(); }
  std::ofstream& out() { return m_out; }
  std::ifstream& in() { return m_in; }

 private:
  utString m_name;
  ubOFStream m_out;
  ubIFStream m_in;
  bool m_removed = false;
};
}  // namespace

int igsFile::write(std::ostream& out, utOstream& messages) {
  const igsFileScope current(*this);
  const QuietStream quiet(out);
  return write_sections(out, messages) != 0 && out.flush() ? 1 : 0;
}

int igsFile::write_sections(std::ostream& out, utOstream& messages) {
  compress();
  igsOutStream stream(&out);
  return m_start_section.write(stream) != 0 && m_global_section.write(stream, messages) != 0 &&
                 write_data_section(out, stream) != 0 && m_terminate_section.write(stream) != 0
             ? 1
             : 0;
}

// The Directory section comes first in the file, but names the lines that the Parameter Data will take: those are
// written to a temporary file before it.
int igsFile::write_data_section(std::ostream& out, igsOutStream& stream) {
  TemporaryFile parameter_data(m_write_dir);
  if (!parameter_data.is_open()) return 0;
  stream.set_section(igsParameterSectionId);
  stream.set_destination(&parameter_data.out());
  int result = write_entities(stream);
  tag_overflow_errors(stream);
  stream.set_destination(&out);
  stream.set_section(igsDirectorySectionId);
  parameter_data.out().close();
  if (stream.reset() == 0 || !parameter_data.out()) result = 0;
  if (result == 0) return 0;
  stream.clear_errors();
  return write_directory_entries(stream) != 0 && write_parameter_data_section(out, parameter_data.in()) != 0 ? 1 : 0;
}

// Returns 0 when the stream failed.
int igsFile::write_entities(igsOutStream& stream) {
  const coResourceTable& options = kel_resource_table_inquire();
  const int width = options.value(kelOptDoubleFieldWidth);
  const int parametric_precision = options.value(kelOptDoubleParametricPrecision);
  igsFileIT entities(this);
  while (++entities) {
    const igsObject& object = *entities();
    igsDirectoryEntry& entry = object.directory_entry();
    const bool parametric = entry.status_flags().entity_use() == entity_use_2d_parametric;
    const int lines_before = stream.num_lines(igsParameterSectionId);
    if (parametric) stream.push_double_format(width, parametric_precision);
    object.write(stream);
    if (parametric) stream.pop_double_format();
    stream.set_backpointer(object.de_number() + 2);
    entry.set_start_of_parameter_data(lines_before + 1);
    entry.set_parameter_line_count(stream.num_lines(igsParameterSectionId) - lines_before);
    if (stream.reset() == 0) return 0;
    stream.clear_errors();
  }
  return 1;
}

void igsFile::tag_overflow_errors(igsOutStream& stream) const {
  if (stream.error_type(igsIOSequenceTooLarge) != 0) tag_error(new igsFileLineNumberTooLarge);
  if (stream.error_type(igsIOBackPointerTooLarge) != 0) tag_error(new igsFileBackPtrTooLarge);
}

int igsFile::write_directory_entries(igsOutStream& stream) {
  igsFileIT entities(this);
  while (++entities) entities()->directory_entry().write(stream);
  const int result = stream.reset();
  if (result != 0) stream.clear_errors();
  return result;
}

int igsFile::write_parameter_data_section(std::ostream& out, std::istream& in) {
  std::array<char, 65536> block;
  while (in) {
    in.read(block.data(), block.size());
    out.write(block.data(), in.gcount());
  }
  return in.eof() && out ? 1 : 0;
}
