#pragma once

#include <cstdint>

#include "igs/input/igsRecordMarks.h"

/// Recognises records that need no repair: 80 characters without control characters, a section letter in column 73, a
/// right-aligned sequence number behind it and, in the Parameter Data section, a blank and a right-aligned back-pointer
/// before it.
class igsPlainRecords {
 public:
  /// Whether the text is such a record. Its marks are good then, until the next call.
  bool recognise(const char* text);
  const igsRecordMarks& marks() const { return m_marks; }

 private:
  bool take_ending(const char* text);
  bool take_owner(const char* text);

  igsRecordMarks m_marks;
  std::uint64_t m_ending = 0;  ///< the last 8 columns of the last record; 0 where that was none
  std::uint64_t m_owner = 0;   ///< the 8 columns before them, in the Parameter Data section
};
