#pragma once

#include "igs/fields/igsNamedError.h"

// Faults of a General Note (igs212). Those of a string carry its position first, 0-based.

/// The number of strings is negative or out of proportion to the record; carries it.
class IGS_API igs212BadNumStrings
    : public igsErrorClass<igs212BadNumStrings, "igs212BadNumStrings", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

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

/// The mirror flag of a string is none of 0, 1 and 2; carries it.
class IGS_API igs212InvalidMirrorFlag
    : public igsErrorClass<igs212InvalidMirrorFlag, "igs212InvalidMirrorFlag", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0; 0 when there is no such string.
  int fix() override;
};

/// The rotate flag of a string is neither 0 nor 1; carries it.
class IGS_API igs212InvalidRotateFlag
    : public igsErrorClass<igs212InvalidRotateFlag, "igs212InvalidRotateFlag", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0; 0 when there is no such string.
  int fix() override;
};

/// The start of a string is undefined.
using igs212InvalidStartPoint = igsNamedError<"igs212InvalidStartPoint", igsObjectError, int>;
