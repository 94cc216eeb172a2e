#include "explain_table.h"

std::span<const ErrorText> directory_errors() {
  static constexpr ErrorText rows[] = {
      {"igsDEInvalidColour", "colour {0} is neither a colour number nor a pointer to a colour definition",
       "The colour is set to 0."},
      {"igsDEInvalidLevel", "level {0} is neither a level number nor a pointer to a list of levels",
       "The level is set to 0."},
      {"igsDEInvalidLineFont", "line font {0} is neither a line font pattern nor a pointer to a line font definition",
       "The line font is set to 0."},
      {"igsDEInvalidLineWeight", "line weight {0} is negative or above the file's number of line weights",
       "The line weight is set to 0."},
      {"igsDEInvalidEntityUse", "the entity use flag is not {0}, which the entity type demands",
       "The flag is set to the demanded value."},
      {"igsDEInvalidMatrix", "the transformation matrix pointer names an entity of another type", ""},
      {"igsDEInvalidMatrixData", "the transformation matrix has errors of its own",
       "Nothing is changed: the error is gone once the matrix is repaired."},
      {"igsDEInvalidStatusFlags", "the status number has a part without a meaning", ""},
      {"igsDEInvalidBlankStatus", "blank status {0} has no meaning", ""},
      {"igsDEInvalidSubordinateSwitch", "subordinate entity switch {0} has no meaning", ""},
      {"igsDEInvalidHierarchy", "hierarchy {0} has no meaning", ""},
      {"igsDEInvalidView", "the view pointer names no view", ""},
      {"igsDEInvalidLabelDisplay", "the label display pointer names no label display associativity", ""},
      {"igsDEInvalidEntityLabel", "the entity label is not valid", ""},
      {"igsDEInvalidEntitySubscript", "entity subscript {0} is negative", ""},
  };
  return rows;
}
