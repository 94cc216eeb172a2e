#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "iges_builder.h"

// The language of the case files (docs/testing.md): files given by entities, fields and records, what is damaged
// in them, and what reading, checking, repairing and writing them gives.
namespace igs_test {

/// What a file says, section by section: what a case starts from, and what is written at its end.
struct Content {
  struct Entity {
    std::string kind;                 ///< "type:form", as the directory entry has it
    std::vector<std::string> fields;  ///< of the parameter data, the type number first
    std::vector<std::string> entry;   ///< directory entry fields 1 to 20, those that count lines and records empty
  };
  std::vector<Entity> entities;
  std::vector<std::string> global;
  std::size_t subject = 1;  ///< DE number of the entity whose number changes need not give
};
Content content_of(const std::string& text);

/// One expected error: `description` as shortened() begins it, then its values; `fixes`: a sign for each call of `fix`,
/// + for 1 and - for 0.
struct ExpectedError {
  std::string description, fixes;
};

struct Case {
  std::string where, line;
  IgesBuilder sound, damaged;  ///< the same content, in the second one the records are damaged, too
  std::vector<std::pair<std::string, std::string>> settings;
  int read = 1;
  int entities = -1;  ///< left after reading; -1: all
  std::vector<ExpectedError> errors = {};
  std::vector<std::string> after = {};  ///< changes to `sound` that are written, messages, errors left
};

struct CaseGroup {
  std::string file, name;
  std::vector<Case> cases;
  std::map<int, std::string> prints;  ///< by DE number
  std::string prefix;                 ///< of the names of errors
  int subject = 1;                    ///< DE number of the first entity that is not common to all groups of the file
};
inline void PrintTo(const CaseGroup& group, std::ostream* os) { *os << group.name; }

/// All groups of all case files; throws std::runtime_error with file and line for what is no case.
std::vector<CaseGroup> all_case_groups();

/// Splits `text` at `separator`, where no quotation marks are open, and trims the parts; empty parts are left out.
std::vector<std::string> split_items(const std::string& text, const std::string& separator);

/// "InvalidStartPoint" for igs110InvalidStartPoint of the subject where the prefix is igs110; "igs116InvalidPoint@3".
std::string shortened(std::string name, int key, const CaseGroup& group);

/// The error `item` of a case, and the signs behind it.
ExpectedError expected_error(const std::string& item, const CaseGroup& group);

/// Applies a change, such as `3=0.5` or `5.d4=1`, to `content`; false when it is none of those that change content.
bool change_content(Content& content, const std::string& change);

}  // namespace igs_test
