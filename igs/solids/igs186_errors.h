#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of a Manifold Solid B-Rep Object (igs186). Those of a void shell carry its position, 0-based. What fails its
// own check is repaired for the solid when it has been repaired itself.

/// The solid has no outer shell.
class IGS_API igs186OuterShellNullShell
    : public igsErrorClass<igs186OuterShellNullShell, "igs186OuterShellNullShell", igsObjectError> {};

/// What should be the outer shell is something else.
class IGS_API igs186OuterShellWrongShellType
    : public igsErrorClass<igs186OuterShellWrongShellType, "igs186OuterShellWrongShellType", igsObjectError> {
 public:
  /// Puts a new, empty shell with orientation 0 in its place, so that the solid refers to a shell; answers 0, since the
  /// solid is still without faces.
  int fix() override;
};

/// The outer shell fails its own check.
class IGS_API igs186OuterShellInvalidShell
    : public igsErrorClass<igs186OuterShellInvalidShell, "igs186OuterShellInvalidShell", igsReferenceDataError> {};

/// The orientation of the outer shell is neither 0 nor 1.
class IGS_API igs186OuterShellInvalidOrientation
    : public igsErrorClass<igs186OuterShellInvalidOrientation, "igs186OuterShellInvalidOrientation", igsObjectError> {};

/// A pointer to a void shell is null.
class IGS_API igs186InnerShellNullShell
    : public igsErrorClass<igs186InnerShellNullShell, "igs186InnerShellNullShell", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be a void shell is something else.
class IGS_API igs186InnerShellWrongShellType
    : public igsErrorClass<igs186InnerShellWrongShellType, "igs186InnerShellWrongShellType", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A void shell fails its own check.
class IGS_API igs186InnerShellInvalidShell
    : public igsErrorClass<igs186InnerShellInvalidShell, "igs186InnerShellInvalidShell", igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The orientation of a void shell is neither 0 nor 1.
class IGS_API igs186InnerShellInvalidOrientation
    : public igsErrorClass<igs186InnerShellInvalidOrientation, "igs186InnerShellInvalidOrientation", igsObjectError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The number of void shells is negative or out of proportion to the record; carries it.
class IGS_API igs186BadNumInnerShells
    : public igsErrorClass<igs186BadNumInnerShells, "igs186BadNumInnerShells", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
