#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/structure/igs310.h"

// Faults of a Text Font Definition (igs310). Positions of characters and of their pen motions are 0-based.

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
