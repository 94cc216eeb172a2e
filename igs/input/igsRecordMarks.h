#pragma once

#include "igs/input/igsFileSection.h"

/// What the columns behind the data of a record say.
struct igsRecordMarks {
  igsFileSection section = igsStartSectionId;
  int number = 0;       ///< sequence number within the section
  int backpointer = 0;  ///< DE number of the owner; 0 outside the Parameter Data section
};
