#pragma once

#include "igs/curves/igs124.h"
#include "igs/errors/igsRepairs.h"

/// An element of the matrix is undefined or not finite.
using igs124NoConstruct = igsNamedError<"igs124NoConstruct">;
/// The last element is not exactly 1; carries it.
using igs124NotHomogenous = igsNamedError<"igs124NotHomogenous", igsObjectError, double>;

/// The repair of the next two. With kelOptRigidTransforms set, makes the rotation rigid and the form agree with its
/// hand when the determinant is within 100 x kelTolRigidTransformDeterminant of 1 or -1; otherwise declines: 0. Without
/// it only makes the form agree with the determinant's sign, and declines for 0.
IGS_API int igs_repair_hand(igs124& matrix, double determinant);

/// Form 0, and the determinant of the rotation is farther than kelTolMinValue from 1; carries the determinant.
using igs124InvalidRHS = igsNamedError<"igs124InvalidRHS", igsRepairedBy<igs124, &igs_repair_hand>, double>;
/// Form 1, and the determinant of the rotation is farther than kelTolMinValue from -1; carries the determinant.
using igs124InvalidLHS = igsNamedError<"igs124InvalidLHS", igsRepairedBy<igs124, &igs_repair_hand>, double>;

/// The length of a column of the rotation differs from 1 by more than kelTolRigidTransformDeterminant.
class IGS_API igs124InvalidUnitVectors
    : public igsErrorClass<igs124InvalidUnitVectors, "igs124InvalidUnitVectors", igsObjectError> {
 public:
  /// With kelOptRigidTransforms set and a determinant as near to 1 or -1 as for igs124InvalidRHS, makes the rotation
  /// rigid; otherwise declines.
  int fix() override;
};
