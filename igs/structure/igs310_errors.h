#pragma once

#include "igs/fields/igsNamedError.h"

// Faults of a Text Font Definition (igs310). Positions of characters and of their pen motions are 0-based.

/// The number of characters is negative or out of proportion to the record; carries it.
class IGS_API igs310BadNumCharacters
    : public igsErrorClass<igs310BadNumCharacters, "igs310BadNumCharacters", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The number of pen motions of a character is negative or out of proportion to the record; carries the position of the
/// character and the number.
class IGS_API igs310BadNumMotions
    : public igsErrorClass<igs310BadNumMotions, "igs310BadNumMotions", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What the superseded font is said to be is no text font, or one that fails its own check.
using igs310WrongSupersededFontType = igsReferenceErrors<"igs310", "SupersededFont">::WrongType;
using igs310InvalidSupersededFont = igsReferenceErrors<"igs310", "SupersededFont">::Invalid;
/// The height of a text is less than one grid unit; carries it.
using igs310InvalidScale = igsNamedError<"igs310InvalidScale", igsObjectError, int>;
using igs310NoCharacters = igsNamedError<"igs310NoCharacters">;
/// A character's code is outside 0 to 127; carries the position and the code.
using igs310InvalidCharacterCode = igsNamedError<"igs310InvalidCharacterCode", igsObjectError, int, int>;

/// The pen flag of a motion is neither 0 nor 1; carries the positions of the character and of the motion and the flag.
class IGS_API igs310InvalidPenFlag
    : public igsErrorClass<igs310InvalidPenFlag, "igs310InvalidPenFlag", igsObjectError, int, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0, pen down; 0 when there is no such motion.
  int fix() override;
};
