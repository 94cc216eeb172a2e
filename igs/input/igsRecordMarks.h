#pragma once

#include "igs/input/igsFileSection.h"

/// What the columns behind the data of a record say.
struct igsRecordMarks {
  igsFileSection section = igsStartSectionId;
  int number = 0;       ///< sequence number within the section
  int backpointer = 0;  ///< DE number of the owner; 0 outside the Parameter Data section
};

/// Recognises a record that needs no repair: 80 characters without control characters, a section letter in column 73,
/// a right-aligned sequence number behind it and, in the Parameter Data section, a blank and a right-aligned
/// back-pointer before it. Returns false and leaves `marks` unspecified for any other text.
bool read_plain_record(const char* text, igsRecordMarks& marks);
