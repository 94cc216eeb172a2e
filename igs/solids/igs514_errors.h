#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of a Shell (igs514). Those of a face carry its position, 0-based, as it was when the shell was checked.

/// The shell has no faces, or their number is negative or out of proportion to the record.
class IGS_API igs514NoFaces : public igsErrorClass<igs514NoFaces, "igs514NoFaces", igsObjectError> {};

/// A pointer to a face is null.
class IGS_API igs514OrientatedFaceNullFace
    : public igsErrorClass<igs514OrientatedFaceNullFace, "igs514OrientatedFaceNullFace", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// What should be a face is something else.
class IGS_API igs514OrientatedFaceWrongFaceType
    : public igsErrorClass<igs514OrientatedFaceWrongFaceType, "igs514OrientatedFaceWrongFaceType", igsObjectError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Takes every face out of the shell that is not a face or has logged errors. 0 when there is no shell.
  int fix() override;
};

/// A face fails its own check.
class IGS_API igs514OrientatedFaceInvalidFace
    : public igsErrorClass<igs514OrientatedFaceInvalidFace, "igs514OrientatedFaceInvalidFace", igsReferenceDataError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Takes every face out of the shell that is not a face or has logged errors. 0 when there is no shell.
  int fix() override;
};

/// The orientation is neither 0 nor 1.
class IGS_API igs514OrientatedFaceInvalidOrientation
    : public igsErrorClass<igs514OrientatedFaceInvalidOrientation, "igs514OrientatedFaceInvalidOrientation",
                           igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 1. Where the face has been taken out, the fault has gone with it: 1, too.
  int fix() override;
};
