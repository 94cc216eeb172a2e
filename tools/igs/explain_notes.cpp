#include "explain_table.h"

// General notes, leaders, sectioned areas.
std::span<const ErrorText> note_errors() {
  static constexpr ErrorText rows[] = {
      {"igs212BadNumStrings", "the record cannot hold {0} strings; the note was left out", ""},
      {"igs212NoStrings", "the note has no strings", ""},
      {"igs212BadCharacterCount", "string {0} (counted from 0) is said to have {1} characters, but its text has {2}",
       "The number is set to the length of the text."},
      {"igs212InvalidBoxWidth", "the box around string {0} (counted from 0) has the width {1}", ""},
      {"igs212InvalidBoxHeight", "the box around string {0} (counted from 0) has the height {1}", ""},
      {"igs212WrongFontType", "the font of string {0} (counted from 0) is no text font", ""},
      {"igs212InvalidFont", "the text font of string {0} (counted from 0) has faults of its own",
       "The font is repaired; if that fails, the note keeps its fault."},
      {"igs212InvalidMirrorFlag", "the mirror flag of string {0} (counted from 0) is {1}; it has to be 0, 1 or 2",
       "It becomes 0: not mirrored."},
      {"igs212InvalidRotateFlag", "the rotate flag of string {0} (counted from 0) is {1}; it has to be 0 or 1",
       "It becomes 0: the letters follow the base line."},
      {"igs212InvalidStartPoint", "the start of string {0} (counted from 0) is undefined", ""},
      {"igs214BadNumSegments", "the record cannot hold {0} segments; the leader was left out", ""},
      {"igs214NoSegments", "the leader has no segments", ""},
      {"igs214InvalidArrowHeight", "the height of the leader's arrowhead is {0}", ""},
      {"igs214InvalidArrowWidth", "the width of the leader's arrowhead is {0}", ""},
      {"igs214InvalidZLevel", "the height of the leader's plane is undefined", ""},
      {"igs214InvalidArrowHead", "the place of the leader's arrowhead is undefined", ""},
      {"igs214InvalidTail", "tail {0} (counted from 0) of the leader is undefined", ""},
      {"igs230BadNumIslands", "the record cannot hold {0} islands; the sectioned area was left out", ""},
      {"igs230NullBoundary", "the sectioned area's boundary is missing", ""},
      {"igs230WrongBoundaryType", "the sectioned area's boundary is no curve",
       "A point set is converted to a polyline; anything else stays as it is."},
      {"igs230InvalidBoundary", "the sectioned area's boundary has faults of its own",
       "The boundary is repaired; if that fails, the sectioned area keeps its fault."},
      {"igs230InvalidPattern", "the sectioned area's pattern is {0}; it cannot be below 0", "It becomes 1."},
      {"igs230InvalidPoint", "the point that a line of the sectioned area runs through is undefined", ""},
      {"igs230InvalidDistance", "the distance between the sectioned area's lines is {0}", ""},
      {"igs230InvalidAngle", "the angle of the sectioned area's lines is undefined", ""},
      {"igs230NullIsland", "island {0} (counted from 0) of the sectioned area is missing",
       "All islands that are missing are taken out of the list."},
      {"igs230WrongIslandType", "island {0} (counted from 0) of the sectioned area is no curve", ""},
      {"igs230InvalidIsland", "island {0} (counted from 0) of the sectioned area has faults of its own",
       "The island is repaired; if that fails, the sectioned area keeps its fault."},
  };
  return rows;
}
