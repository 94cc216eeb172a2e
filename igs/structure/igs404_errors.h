#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/structure/igsCompound_errors.h"

// Faults of a drawing (igs404). Positions of views and members are 0-based, as they were when it was checked.

/// A fault of one view of the drawing; carries its position.
class IGS_API igs404ViewError : public igsTyped<igs404ViewError, "igs404ViewError", igsObjectError> {
 public:
  explicit igs404ViewError(int view) : m_view(view) {}

  int view() const { return m_view; }
  void visit_values(igsErrorValueVisitor& visitor) const override { visitor.value(m_view); }

 private:
  int m_view;
};

/// A pointer to a view is null.
class IGS_API igs404NullViewPointer : public igsTyped<igs404NullViewPointer, "igs404NullViewPointer", igs404ViewError> {
 public:
  using igsTyped::igsTyped;
  /// Takes all null views, with where they lie, out of the drawing; the others keep their order.
  int fix() override;
};

/// What should be a view is none.
class IGS_API igs404InvalidViewPointer
    : public igsTyped<igs404InvalidViewPointer, "igs404InvalidViewPointer", igs404ViewError> {
 public:
  using igsTyped::igsTyped;
};

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
class IGS_API igs404NullEntityPointer
    : public igsTyped<igs404NullEntityPointer, "igs404NullEntityPointer", igsCompoundEntityError> {
 public:
  using igsTyped::igsTyped;
};

/// A member fails its own check; carries its position.
class IGS_API igs404BadEntityPointer
    : public igsTyped<igs404BadEntityPointer, "igs404BadEntityPointer", igsCompoundEntityError> {
 public:
  using igsTyped::igsTyped;
};

/// The number of views is negative or out of proportion to the record; carries it.
class IGS_API igs404BadNumViews : public igsErrorClass<igs404BadNumViews, "igs404BadNumViews", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The number of members is negative or out of proportion to the record; carries it.
class IGS_API igs404BadNumEntities
    : public igsErrorClass<igs404BadNumEntities, "igs404BadNumEntities", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
