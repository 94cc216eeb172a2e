#pragma once

#include "igs/input/igsRecordMarks.h"

/// Recognises a record that needs no repair: 80 characters without control characters, a section letter in column 73,
/// a right-aligned sequence number behind it and, in the Parameter Data section, a blank and a right-aligned
/// back-pointer before it. Returns false and leaves `marks` unspecified for any other text.
bool read_plain_record(const char* text, igsRecordMarks& marks);
