#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/solids/igs186.h"

// Faults of a Manifold Solid B-Rep Object (igs186). Those of a void shell carry its position, 0-based. See
// igsNamedError.h for what each family of errors says.

using igs186OuterShellNullShell = igsReferenceErrors<"igs186OuterShell", "Shell">::Null;
/// What should be the outer shell is something else.
class IGS_API igs186OuterShellWrongShellType
    : public igsErrorClass<igs186OuterShellWrongShellType, "igs186OuterShellWrongShellType", igsObjectError> {
 public:
  /// Puts a new, empty shell with orientation 0 in its place, so that the solid refers to a shell; answers 0, since the
  /// solid is still without faces.
  int fix() override;
};
using igs186OuterShellInvalidShell = igsReferenceErrors<"igs186OuterShell", "Shell">::Invalid;
/// The orientation of the outer shell is neither 0 nor 1.
using igs186OuterShellInvalidOrientation = igsNamedError<"igs186OuterShellInvalidOrientation">;

using igs186InnerShellNullShell = igsReferenceErrors<"igs186InnerShell", "Shell", int>::Null;
using igs186InnerShellWrongShellType = igsReferenceErrors<"igs186InnerShell", "Shell", int>::WrongType;
using igs186InnerShellInvalidShell = igsReferenceErrors<"igs186InnerShell", "Shell", int>::Invalid;
/// The orientation of a void shell is neither 0 nor 1.
using igs186InnerShellInvalidOrientation = igsNamedError<"igs186InnerShellInvalidOrientation", igsObjectError, int>;
