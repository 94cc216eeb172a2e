#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igs312.h"

// Faults of a Text Display Template (igs312).

/// A character has a negative width or height.
using igs312InvalidCharacterWidth = igsRealErrors<"igs312", "CharacterWidth">::Invalid;
using igs312InvalidCharacterHeight = igsRealErrors<"igs312", "CharacterHeight">::Invalid;
/// The font is an entity other than a text font (igs310), or one that fails its own check.
using igs312WrongFontType = igsReferenceErrors<"igs312", "Font">::WrongType;
using igs312InvalidFont = igsReferenceErrors<"igs312", "Font">::Invalid;
/// The mirror flag is none of 0, 1 and 2; carries it. It becomes 0.
using igs312InvalidMirrorFlag =
    igsNamedError<"igs312InvalidMirrorFlag", igsStoredDefault<igs312, &igs312::set_mirror_flag, 0>, int>;
/// The rotate flag is neither 0 nor 1; carries it. It becomes 0.
using igs312InvalidRotateFlag =
    igsNamedError<"igs312InvalidRotateFlag", igsStoredDefault<igs312, &igs312::set_rotate_flag, 0>, int>;
using igs312InvalidStartPoint = igsUndefinedErrors<"igs312", "StartPoint">::Invalid;
