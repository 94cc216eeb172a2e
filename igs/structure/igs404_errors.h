#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/structure/igs404.h"
#include "igs/structure/igsCompound_errors.h"

// Faults of a drawing (igs404). Positions of views and members are 0-based, as they were when it was checked.

/// A fault of one view of the drawing; carries its position.
class IGS_API igs404ViewError : public igsErrorClass<igs404ViewError, "igs404ViewError", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// The view's position.
  int view() const { return value<0>(); }
};

/// A pointer to a view is null.
class IGS_API igs404NullViewPointer : public igsTyped<igs404NullViewPointer, "igs404NullViewPointer", igs404ViewError> {
 public:
  using igsTyped::igsTyped;
  /// Takes all null views, with where they lie, out of the drawing; the others keep their order.
  int fix() override;
};

/// What should be a view is none.
using igs404InvalidViewPointer = igsNamedError<"igs404InvalidViewPointer", igs404ViewError>;

/// A view fails its own check.
class IGS_API igs404BadViewPointer : public igsTyped<igs404BadViewPointer, "igs404BadViewPointer", igs404ViewError> {
 public:
  using igsTyped::igsTyped;
  /// Changes nothing; 1 when the view has no logged errors any more.
  int fix() override;
};

/// The origin of a view is undefined; carries the view's position.
using igs404InvalidOrigin = igsNamedError<"igs404InvalidOrigin", igsObjectError, int>;
/// A pointer to a member is null; carries its position.
using igs404NullEntityPointer = igsNamedError<"igs404NullEntityPointer", igsCompoundEntityError>;
/// A member fails its own check; carries its position.
using igs404BadEntityPointer = igsNamedError<"igs404BadEntityPointer", igsCompoundEntityError>;
