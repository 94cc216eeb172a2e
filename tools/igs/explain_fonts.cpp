#include "explain_table.h"

// Line fonts, text fonts, text templates, colours.
std::span<const ErrorText> font_errors() {
  static constexpr std::string_view clamped =
      "It is set to the nearer end of the range, and to 0 when it is undefined.";
  static constexpr ErrorText rows[] = {
      {"igs304_1InvalidOrientation", "the line font's orientation is {0}; it has to be 1 or 2", "It becomes 1."},
      {"igs304_1NullTemplate", "the subfigure that the line font repeats is missing", ""},
      {"igs304_1WrongTemplateType", "what the line font repeats is no subfigure definition", ""},
      {"igs304_1InvalidTemplate", "the subfigure that the line font repeats has faults of its own",
       "The subfigure is repaired; if that fails, the line font keeps its fault."},
      {"igs304_1InvalidSpacing", "the spacing of the line font's subfigures is {0}; it has to be above 0", ""},
      {"igs304_1InvalidScale", "the scale of the line font's subfigures is {0}; it has to be above 0", "It becomes 1."},
      {"igs304_2BadNumSegments", "the record cannot hold {0} segments; the line font was left out", ""},
      {"igs304_2NoSegments", "the line font has no segments", ""},
      {"igs304_2InvalidLength", "segment {0} (counted from 0) of the line font has the length {1}", ""},
      {"igs304_2InvalidPattern", "the line font's pattern is empty or has characters that are no hexadecimal digits",
       ""},
      {"igs310BadNumCharacters", "the record cannot hold {0} characters; the text font was left out", ""},
      {"igs310BadNumMotions",
       "the record cannot hold {1} pen motions of character {0} (counted from 0); the text font was left out", ""},
      {"igs310WrongSupersededFontType", "the font that the text font supersedes is given by an entity of another type",
       ""},
      {"igs310InvalidSupersededFont", "the font that the text font supersedes has faults of its own",
       "That font is repaired; if that fails, the text font keeps its fault."},
      {"igs310InvalidScale", "a text's height is {0} grid units of the text font; it has to be 1 or more", ""},
      {"igs310NoCharacters", "the text font has no characters", ""},
      {"igs310InvalidCharacterCode", "character {0} (counted from 0) has the code {1}; it has to be 0 to 127", ""},
      {"igs310InvalidPenFlag",
       "the pen flag of motion {1} of character {0} (both counted from 0) is {2}; it has to be 0 or 1",
       "It becomes 0: pen down."},
      {"igs312InvalidCharacterWidth", "the text template's character width is {0}", ""},
      {"igs312InvalidCharacterHeight", "the text template's character height is {0}", ""},
      {"igs312WrongFontType", "the text template's font is no text font", ""},
      {"igs312InvalidFont", "the text template's text font has faults of its own",
       "The font is repaired; if that fails, the text template keeps its fault."},
      {"igs312InvalidMirrorFlag", "the text template's mirror flag is {0}; it has to be 0, 1 or 2",
       "It becomes 0: not mirrored."},
      {"igs312InvalidRotateFlag", "the text template's rotate flag is {0}; it has to be 0 or 1",
       "It becomes 0: the letters follow the base line."},
      {"igs312InvalidStartPoint", "the text template's start point is undefined", ""},
      {"igs314InvalidRed", "the colour's red component is {0} percent; it has to be 0 to 100", clamped},
      {"igs314InvalidGreen", "the colour's green component is {0} percent; it has to be 0 to 100", clamped},
      {"igs314InvalidBlue", "the colour's blue component is {0} percent; it has to be 0 to 100", clamped},
  };
  return rows;
}
