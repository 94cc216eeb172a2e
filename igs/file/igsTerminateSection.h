#pragma once

#include <array>
#include <cstddef>

#include "igs/support/export.h"
#include "igs/support/undefined.h"

class igsFile;
class igsInStream;
class igsOutStream;
class igsTerminateError;
class utOstream;

/// The Terminate section (IGES 5.3, section 2.2.4.6): how many records the other four sections have. The counts are
/// those that were read or written last; -2147483647 until then.
class IGS_API igsTerminateSection {
 public:
  /// A section without a file, or of `owner`, which is not owned.
  igsTerminateSection() = default;
  explicit igsTerminateSection(igsFile* owner) : m_owner(owner) {}

  /// Copies the counts and the owner.
  void become(const igsTerminateSection& other) { *this = other; }

  int start_lines() const { return m_counts[0]; }
  int global_lines() const { return m_counts[1]; }
  int directory_lines() const { return m_counts[2]; }
  int parameter_lines() const { return m_counts[3]; }

  /// Take 1 to 9999999, for the directory only even numbers (two records an entity), and return 1; refuse any other
  /// with 0.
  int set_start_lines(int lines) { return set_lines(0, lines); }
  int set_global_lines(int lines) { return set_lines(1, lines); }
  int set_directory_lines(int lines);
  int set_parameter_lines(int lines) { return set_lines(3, lines); }

  void print(utOstream& os) const;

 protected:
  friend class igsFile;

  /// Reads the Terminate record and compares its counts with the records that `in` has read. Wrong letters and counts
  /// are logged and kept. 0 only when the stream cannot go on.
  int read(igsInStream& in);
  /// Takes the counts from the records that `out` has written, and writes them. 0 only when the stream cannot go on.
  int write(igsOutStream& out);
  /// Gives the error this section and the message stream of the owner.
  void tag_error(igsTerminateError* error) const;

 private:
  static constexpr int num_counts = 4;

  int set_lines(std::size_t section, int lines);
  void set_owner(igsFile* owner) { m_owner = owner; }

  std::array<int, num_counts> m_counts{igs_unset_int, igs_unset_int, igs_unset_int,
                                       igs_unset_int};  // by igsFileSection
  igsFile* m_owner = nullptr;
};
