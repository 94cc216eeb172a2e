#include "explain_table.h"

std::span<const ErrorText> file_errors() {
  static constexpr ErrorText rows[] = {
      {"igsFileDEEntityTypeMismatch",
       "the directory entry gives two entity types, {0} and {1}; the entity was left out", ""},
      {"igsFileInvalidIGESEntity", "{0} is no entity type of IGES; the entity was left out", ""},
      {"igsFileDefaultedForm", "entity type {0} has no form {1}; its default form was taken", ""},
      {"igsFileUnknownForm", "entity type {0} has no form {1} and no default form; the entity was left out", ""},
      {"igsFileDENullCharacters", "the directory entry contains NUL characters", "They are replaced by blanks."},
      {"igsFileInvalidLineNumbers", "sequence numbers are out of order, so that some data may be misread",
       "Records are numbered anew when the file is written."},
      {"igsFileBlankLine", "the file contains blank lines", "They are left out when the file is written."},
      {"igsFileIncorrectStartOfPD", "the parameter data begin at line {0}, the directory entry says line {1}", ""},
      {"igsFileIncorrectPDLineCount", "the parameter data take {0} lines, the directory entry says {1}", ""},
      {"igsFileNoPDData", "the entity has no parameter data that can be read; it was left out",
       "The entity is left out when the file is written."},
      {"igsFilePDEntityTypeMismatch", "the parameter data begin with entity type {0}, not with the directory entry's",
       ""},
      {"igsFilePDNullCharacters", "the parameter data contain NUL characters", "They are replaced by blanks."},
      {"igsFileCorruptObjectData", "the parameter data contain a real that is not a number", ""},
      {"igsFilePrematureObjectEnd", "the parameter data end before all fields are given", ""},
      {"igsFileObjectExtraData", "the parameter data contain more fields than the entity has", ""},
      {"igsFileDeletedNullEntity", "a null entity was deleted", ""},
      {"igsFileDeletedUnknownEntity", "an entity of unknown type was deleted", ""},
      {"igsFileLineNumberTooLarge", "a section of the written file would need a sequence number above 9999999", ""},
      {"igsFileBackPtrTooLarge", "the written file would need a back pointer above 9999999", ""},
  };
  return rows;
}
