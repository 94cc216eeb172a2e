#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of a Face (igs510). Positions are 0-based. What fails its own check is repaired for the face when it has been
// repaired itself.

/// The face has no surface.
class IGS_API igs510NullSurface : public igsErrorClass<igs510NullSurface, "igs510NullSurface", igsObjectError> {};

/// What should be the surface is not a surface.
class IGS_API igs510WrongSurfaceType
    : public igsErrorClass<igs510WrongSurfaceType, "igs510WrongSurfaceType", igsObjectError> {};

/// The surface fails its own check.
class IGS_API igs510InvalidSurface
    : public igsErrorClass<igs510InvalidSurface, "igs510InvalidSurface", igsReferenceDataError> {};

/// The outer loop flag is neither 0 nor 1.
class IGS_API igs510InvalidOuterLoopFlag
    : public igsErrorClass<igs510InvalidOuterLoopFlag, "igs510InvalidOuterLoopFlag", igsObjectError> {
 public:
  /// Sets it to 0.
  int fix() override;
};

/// The face has no loops, or their number is negative or out of proportion to the record.
class IGS_API igs510NoLoops : public igsErrorClass<igs510NoLoops, "igs510NoLoops", igsObjectError> {};

/// A pointer to a loop is null; carries its position.
class IGS_API igs510NullLoop : public igsErrorClass<igs510NullLoop, "igs510NullLoop", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be a loop is something else; carries its position.
class IGS_API igs510WrongLoopType
    : public igsErrorClass<igs510WrongLoopType, "igs510WrongLoopType", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A loop fails its own check; carries its position.
class IGS_API igs510InvalidLoop
    : public igsErrorClass<igs510InvalidLoop, "igs510InvalidLoop", igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
