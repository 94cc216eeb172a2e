#pragma once

#include <array>
#include <set>
#include <string>
#include <string_view>

#include "files/exit_status.h"

/// What became of one of several files.
struct Tally {
  int status = exit_clean;  ///< an ExitStatus
  long long entities = 0;
  std::array<long long, 3> findings{};      ///< by Severity
  long long not_listed = 0;                 ///< findings that the report left out
  std::set<std::string_view> classes = {};  ///< of the findings listed
  std::string failure = {};                 ///< why it could not be opened, read to its end or written; else empty
};
