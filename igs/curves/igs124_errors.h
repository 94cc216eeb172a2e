#pragma once

#include "igs/errors/igsErrorClass.h"

/// An element of the matrix is undefined or not finite.
class IGS_API igs124NoConstruct : public igsErrorClass<igs124NoConstruct, "igs124NoConstruct", igsObjectError> {};

/// The last element is not exactly 1; carries it.
class IGS_API igs124NotHomogenous
    : public igsErrorClass<igs124NotHomogenous, "igs124NotHomogenous", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Form 0, and the determinant of the rotation is farther than kelTolMinValue from 1; carries the determinant.
///
/// With kelOptRigidTransforms set, both repairs make the rotation rigid and the form agree with its hand when the
/// determinant is within 100 x kelTolRigidTransformDeterminant of 1 or -1; otherwise they decline. Without it they only
/// make the form agree with the determinant's sign, and decline for 0.
class IGS_API igs124InvalidRHS : public igsErrorClass<igs124InvalidRHS, "igs124InvalidRHS", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Form 1, and the determinant of the rotation is farther than kelTolMinValue from -1; carries the determinant.
class IGS_API igs124InvalidLHS : public igsErrorClass<igs124InvalidLHS, "igs124InvalidLHS", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// The length of a column of the rotation differs from 1 by more than kelTolRigidTransformDeterminant.
class IGS_API igs124InvalidUnitVectors
    : public igsErrorClass<igs124InvalidUnitVectors, "igs124InvalidUnitVectors", igsObjectError> {
 public:
  /// With kelOptRigidTransforms set and a determinant as near to 1 or -1 as for igs124InvalidRHS, makes the rotation
  /// rigid; otherwise declines.
  int fix() override;
};
