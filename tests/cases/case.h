#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "iges_builder.h"

// The language of the case files (docs/testing.md): files given by entities, fields and records, what is damaged
// in them, and what reading, checking, repairing and writing them gives.
namespace igs_test {
using Strings = std::vector<std::string>;

/// What a file says, as cases name it: "3.2" field 2 of DE 3, "3.d5" of its directory entry, "g14" a Global parameter.
using Content = std::map<std::string, std::string>;
/// Without the entities in `gone`, which are in the text unless it was written, and without what counts lines and
/// records.
Content content_of(const std::string& text, const std::set<int>& gone, bool is_written);

struct Case {
  std::string where, line;
  IgesBuilder sound, damaged, expected;  ///< the content, with its records damaged, and what is written at the end
  std::vector<std::pair<std::string, std::string>> settings;
  Strings errors = {}, messages = {};  ///< of the first check; what `left` and `says` give
  std::set<int> gone = {};             ///< entities of `expected` that are not written
};

/// A group of cases: its file, and what stands in brackets there.
struct CaseName {
  std::string file, group;
};
inline void PrintTo(const CaseName& name, std::ostream* os) { *os << name.group; }
/// Those of all groups of all case files. Each test looks them up, but reads its own cases alone.
std::vector<CaseName> all_cases();

struct CaseGroup {
  std::string prefix = {};  ///< of the names of errors
  int subject = 0;          ///< DE number of the first entity that is not common to all groups of the file
  std::vector<Case> cases = {};
  struct Print {
    std::string text;  ///< of the file
    int de;            ///< 0: the file
    std::string expected;
  };
  std::vector<Print> prints = {};
};

/// Throws std::runtime_error with file and line for what is no case.
CaseGroup case_group(const CaseName& name);

std::string joined(const Strings& items, const std::string& separator);

}  // namespace igs_test
