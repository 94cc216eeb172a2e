#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/fields/igsStoredDefault.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igsCompound_errors.h"

// Faults of a Subfigure Definition (igs308). Positions of members are 0-based, as they were when it was checked.

/// The nesting depth is negative; carries it. Repaired to 0.
using igs308InvalidDepth = igsNamedError<"igs308InvalidDepth", igsStoredDefault<igs308, &igs308::set_depth, 0>, int>;

/// A pointer to a member is null; carries its position.
class IGS_API igs308NullGeometryPointer
    : public igsTyped<igs308NullGeometryPointer, "igs308NullGeometryPointer", igsCompoundEntityError> {
 public:
  using igsTyped::igsTyped;
};

/// A member fails its own check; carries its position.
class IGS_API igs308BadSubEntity : public igsTyped<igs308BadSubEntity, "igs308BadSubEntity", igsCompoundEntityError> {
 public:
  using igsTyped::igsTyped;
};

/// The number of members is negative or out of proportion to the record; carries it.
class IGS_API igs308BadNumEntities
    : public igsErrorClass<igs308BadNumEntities, "igs308BadNumEntities", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
