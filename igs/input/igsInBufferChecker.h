#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "igs/input/igsIOErrorSet.h"
#include "igs/input/igsRecordMarks.h"
#include "igs/support/export.h"

/// Checks the columns behind the data of every record and the order of the records, and counts the records of each
/// section. Errors: 5 to 10 and 18; 7 and 10 are fatal.
class IGS_API igsInBufferChecker {
 public:
  /// With `recover`, column 65 of Parameter Data belongs to the data where it is not blank.
  explicit igsInBufferChecker(bool recover = false) : m_recover(recover) {}

  /// Checks a NUL-terminated record and prepares its data for the decoders: column 65 of Parameter Data is blanked and
  /// a line feed marks the end of the data of Global and Parameter Data records. `data_length` receives the number of
  /// data characters, never more than `length`. Returns 1 when the record has passed every check.
  int check(char* record, std::size_t length, std::size_t& data_length);
  /// As check, for an 80-column record whose marks are known to be sound.
  int check_plain(char* record, const igsRecordMarks& marks, std::size_t& data_length);

  /// Section and sequence number of the record checked last.
  void position(igsFileSection& section, int& line) const {
    section = m_current.section;
    line = m_current.number;
  }
  igsFileSection section() const { return m_current.section; }
  /// Sequence number of the record checked last, as it stands there.
  int number_as_read() const { return m_number_as_read; }
  /// Back-pointers of the records whose column 65 belongs to their data, equal ones in a row once.
  const std::vector<int>& owners_of_column_65() const { return m_owners_of_column_65; }
  /// Number of records checked so far in the section; 0 for igsNoSectionId.
  int num_lines(igsFileSection section) const;
  /// Back-pointer of the record checked last; 0 outside the Parameter Data section.
  int backpointer() const { return m_current.backpointer; }
  int fatal_error() const { return m_fatal; }
  /// Every condition met so far, those forgotten meanwhile too.
  igsIOErrorSet ever_met() const { return m_ever_met; }
  /// Forgets the errors and returns 1; returns 0 and keeps them after a fatal one.
  int reset();
  /// Appends the errors to the list and forgets them unless one is fatal.
  void collect_errors(igsIOErrorcoDynArr& errors);
  /// The errors, as collect_errors hands them over.
  igsIOErrorSet take_errors() {
    const igsIOErrorSet errors = m_errors;
    if (m_fatal == 0) m_errors.clear();
    return errors;
  }

 private:
  bool check_syntax(igsRecordMarks& marks);
  bool check_section(igsFileSection& section);
  void check_line_number(int& number);
  bool check_backpointer(const igsRecordMarks& marks, int& backpointer);
  void check_separator_column(const igsRecordMarks& marks);
  bool check_semantics(igsRecordMarks& marks);
  void check_line_number_sequence(igsRecordMarks& marks);
  bool check_section_sequence(const igsRecordMarks& marks);
  bool check_backpointer_sequence(const igsRecordMarks& marks);
  void accept(const igsRecordMarks& marks);
  std::size_t mark_data_end(igsFileSection section);
  void set_error(igsIOErrorCode code);

  static bool check_16bit_overflow(int& number);

  bool m_recover;
  int m_number_as_read = 0;
  std::vector<int> m_owners_of_column_65;
  char* m_record = nullptr;  ///< during a check
  std::size_t m_length = 0;
  std::array<int, igsNoSectionId> m_lines{};
  igsRecordMarks m_current;
  int m_fatal = 0;
  igsIOErrorSet m_errors;
  igsIOErrorSet m_ever_met;
};
