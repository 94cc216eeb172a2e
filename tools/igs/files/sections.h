#pragma once

#include <string>
#include <vector>

#include "igs/igs.h"

// The sections of a file that hold no entities, for the commands that show them.

/// Hands `visit(name, value)` the parameters of the section in their order, under the names of their accessors.
template <class Visit>
void for_each_parameter(const igsGlobalSection& global, Visit visit) {
  for (const igsGlobalParameter& parameter : global.parameters()) {
    // NOLINTNEXTLINE(readability-redundant-string-cstr): most visitors take the name as it is printed
    std::visit([&](const auto& value) { visit(parameter.name.c_str(), value); }, parameter.value);
  }
}

inline std::vector<std::string> start_lines(const igsStartSection& start) {
  std::vector<std::string> lines;
  std::string line;
  for (int i = 0; start.line(i, line) != 0; ++i) lines.push_back(line);
  return lines;
}
