#pragma once

#include <string>

#include "files/exit_status.h"

/// What became of one of several files.
struct Tally {
  int status = exit_clean;  ///< an ExitStatus
  long long entities = 0;
  long long errors = 0;
  std::string failure = {};  ///< why it could not be opened, or read to its end; empty for a file that was read
};
