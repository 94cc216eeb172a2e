// Writing a file: the drivers of igsFile that put the sections on the output stream.

#include <algorithm>
#include <cstddef>
#include <ios>
#include <istream>
#include <memory>
#include <ostream>
#include <utility>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/file/private/igsFileMemory.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/coResourceTable.h"
#include "igs/support/private/igsTemporaryFile.h"
#include "igs/support/private/portable.h"
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

/// Makes sure that an output stream lets go of the temporary file before that is gone, even when memory runs out.
class Detour {
 public:
  Detour(igsOutStream& stream, std::ostream& way, std::ostream& back) : m_stream(stream), m_back(back) {
    m_stream.set_destination(&way);
  }
  ~Detour() {
    try {
      end();
    } catch (...) {  // no memory to note a fault of the temporary file; its partial line is dropped
    }
  }
  Detour(const Detour&) = delete;
  Detour& operator=(const Detour&) = delete;
  void end() {
    if (!std::exchange(m_ended, true)) m_stream.set_destination(&m_back);
  }

 private:
  igsOutStream& m_stream;
  std::ostream& m_back;
  bool m_ended = false;
};
}  // namespace

int igsFile::write(std::ostream& out, utOstream& messages) {
  const igsFileScope current(*this);
  const QuietStream quiet(out);
  return within_memory([&] { return write_sections(out, messages) != 0 && out.flush() ? 1 : 0; });
}

int igsFile::write_sections(std::ostream& out, utOstream& messages) {
  compress();
  igsOutStream stream(&out);
  stream.set_exact(m_options.keep);
  stream.set_style(m_options.style);
  return m_start_section.write(stream) != 0 && m_global_section.write(stream, messages) != 0 &&
                 write_data_section(out, stream) != 0 && m_terminate_section.write(stream) != 0
             ? 1
             : 0;
}

// The Directory section comes first in the file, but names the lines that the Parameter Data will take: those are
// written to a temporary file before it.
int igsFile::write_data_section(std::ostream& out, igsOutStream& stream) {
  igsTemporaryFile parameter_data(m_write_dir);
  if (!parameter_data.is_open()) return 0;
  stream.set_section(igsParameterSectionId);
  Detour detour(stream, parameter_data.out(), out);
  int result = write_entities(stream);
  tag_overflow_errors(stream);
  detour.end();
  stream.set_section(igsDirectorySectionId);
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
  int num_lines = stream.num_lines(igsParameterSectionId);
  for (std::size_t slot = 0; slot < m_slots.size(); ++slot) {
    const int lines_before = num_lines;
    const int next_de_number = 2 * static_cast<int>(slot) + 3;
    if (m_slots[slot] == nullptr) {
      stream.write_integer(0);  // a null entity, which has no other field
      num_lines = stream.end_entity(next_de_number);
    } else {
      igsObject& object = *m_slots[slot]->object();
      igsDirectoryEntry& entry = object.directory_entry();
      const bool parametric = entry.status_flags().entity_use() == igsStatusFlags::use_2d_parametric;
      if (parametric) stream.push_double_format(width, parametric_precision);
      object.write(stream);
      if (parametric) stream.pop_double_format();
      num_lines = stream.end_entity(next_de_number);
      entry.set_start_of_parameter_data(lines_before + 1);
      entry.set_parameter_line_count(std::max(num_lines - lines_before, 0));
    }
    if (num_lines < 0) return 0;
  }
  return 1;
}

void igsFile::tag_overflow_errors(igsOutStream& stream) const {
  if (stream.error_type(igsIOSequenceTooLarge) != 0) tag_error(new igsFileLineNumberTooLarge);
  if (stream.error_type(igsIOBackPointerTooLarge) != 0) tag_error(new igsFileBackPtrTooLarge);
}

int igsFile::write_directory_entries(igsOutStream& stream) {
  igsDirectoryEntry null_entity;
  null_entity.set_type(static_cast<igsEntityType>(0), 0);
  null_entity.set_parameter_line_count(1);
  int next_line = 1;
  for (const igsObjectManager* const manager : m_slots) {
    null_entity.set_start_of_parameter_data(next_line);
    const igsDirectoryEntry& entry = manager != nullptr ? *manager->directory_entry() : null_entity;
    entry.write(stream);
    next_line += entry.parameter_line_count();
  }
  const int result = stream.reset();
  if (result != 0) stream.clear_errors();
  return result;
}

int igsFile::write_parameter_data_section(std::ostream& out, std::istream& in) {
  constexpr std::streamsize block_size = 65536;
  const auto block = igs_portable::make_unique_for_overwrite<char[]>(block_size);
  while (in && out) {
    in.read(block.get(), block_size);
    out.write(block.get(), in.gcount());
  }
  return in.eof() && out ? 1 : 0;
}

int igsFile::write_parameter_data_section(std::ostream& out, const utString& name) {
  ubIFStream in(name);
  return in ? write_parameter_data_section(out, in) : 0;
}
