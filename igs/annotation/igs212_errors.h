#pragma once

#include "igs/annotation/igs212.h"
#include "igs/errors/igsRepairs.h"

// Faults of a General Note (igs212). Those of a string carry its position first, 0-based.

using igs212NoStrings = igsNamedError<"igs212NoStrings">;

/// The number of characters is not the length of the text, with the blanks at its end or without; carries both.
class IGS_API igs212BadCharacterCount
    : public igsErrorClass<igs212BadCharacterCount, "igs212BadCharacterCount", igsObjectError, int, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets the number to the length; 0 when there is no such string.
  int fix() override;
};

/// The box around a string has a negative width or height; carries it.
using igs212InvalidBoxWidth = igsNamedError<"igs212InvalidBoxWidth", igsObjectError, int, double>;
using igs212InvalidBoxHeight = igsNamedError<"igs212InvalidBoxHeight", igsObjectError, int, double>;
/// The font of a string is an entity other than a text font (igs310).
using igs212WrongFontType = igsNamedError<"igs212WrongFontType", igsObjectError, int>;
/// The text font of a string fails its own check.
using igs212InvalidFont = igsNamedError<"igs212InvalidFont", igsReferenceDataError, int>;
/// The mirror flag of a string is none of 0, 1 and 2; carries it. It becomes 0.
using igs212InvalidMirrorFlag =
    igsNamedError<"igs212InvalidMirrorFlag",
                  igsStoredElementDefault<igs212, &igs212::string_at, &igsNoteString::set_mirror_flag, 0>, int, int>;
/// The rotate flag of a string is neither 0 nor 1; carries it. It becomes 0.
using igs212InvalidRotateFlag =
    igsNamedError<"igs212InvalidRotateFlag",
                  igsStoredElementDefault<igs212, &igs212::string_at, &igsNoteString::set_rotate_flag, 0>, int, int>;
/// The start of a string is undefined.
using igs212InvalidStartPoint = igsNamedError<"igs212InvalidStartPoint", igsObjectError, int>;
