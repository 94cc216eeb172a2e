#pragma once

#include <string>
#include <vector>

#include "igs/igs.h"

/// The lines of the section, with the blanks at their ends.
inline std::vector<std::string> start_lines(const igsStartSection& start) {
  std::vector<std::string> lines;
  std::string line;
  for (int i = 0; start.line(i, line) != 0; ++i) lines.push_back(line);
  return lines;
}
