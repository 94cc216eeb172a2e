#pragma once

#include <array>
#include <cstdint>

#include "igs/input/igsFileSection.h"
#include "igs/input/igsIOError.h"
#include "igs/support/export.h"

/// Counts the records of each section and stamps their last columns: section letter and sequence number, in Parameter
/// Data after the back-pointer. Before any section is set, records stay unstamped.
class IGS_API igsOutBufferFormatter {
 public:
  /// Begins a section: its count starts at 0 again; in Parameter Data the back-pointer starts at 1.
  void set_section(igsFileSection section);
  void set_backpointer(int backpointer);

  igsFileSection section() const { return m_section; }
  /// Of the record stamped last; 0 before the first.
  int sequence_number() const { return m_sequence_number; }
  /// Records stamped in `section` since it was begun; 0 when that is no section.
  int num_lines(igsFileSection section) const;
  /// Goes on counting in `section` as though `count` records (0 or more) had been stamped there.
  void set_num_lines(igsFileSection section, int count);
  /// Forgets the records stamped last in the present section, `count` of those counted there.
  void take_back(int count);
  /// Number of columns open to data: 80 before any section is set, 64 in Parameter Data, else 72.
  int data_width() const { return m_data_width; }

  /// Stamps `record` (80 characters) and returns 1. Returns 0, the record left as it is, when the
  /// back-pointer or the sequence number does not fit its 7 columns; nothing can be stamped after that.
  int format(char* record);

  /// Drops the errors and returns 1; 0 once a number was too large.
  int reset();
  /// Moves the errors to the end of `errors`.
  void collect_errors(igsIOErrorcoDynArr& errors);

 private:
  int fail(igsIOErrorCode code);
  void update_sequence_text();

  std::array<int, igsNoSectionId> m_num_lines{};
  igsFileSection m_section = igsNoSectionId;
  int m_data_width = 80;
  int m_sequence_number = 0;
  int m_backpointer = 1;
  /// The columns of the numbers, kept because they change little from one record to the next: in eight bytes, the first
  /// column in the lowest. That of the sequence number is blank and leaves room for the letter.
  std::uint64_t m_backpointer_text = 0;
  std::uint64_t m_sequence_text = 0;
  int m_printed_number = -1;  ///< what m_sequence_text says
  int m_fatal = 0;
  igsIOErrorcoDynArr m_errors;
};
