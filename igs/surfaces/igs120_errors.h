#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs120.h"

// Faults of a Surface of Revolution (igs120).

/// The pointer to the axis is null.
using igs120NullAxis = igsNamedError<"igs120NullAxis">;
/// The axis is not a line.
using igs120WrongAxisType = igsNamedError<"igs120WrongAxisType">;
/// The axis fails its own check.
using igs120InvalidAxis = igsNamedError<"igs120InvalidAxis", igsReferenceDataError>;
/// The pointer to the generatrix is null.
using igs120NullGenerator = igsNamedError<"igs120NullGenerator">;
/// The generatrix is not a curve. Repaired by conversion.
using igs120WrongGeneratorType =
    igsNamedError<"igs120WrongGeneratorType", igsCurveFieldError<igs120, &igs120::generator, &igs120::set_generator>>;
/// The generatrix fails its own check.
using igs120InvalidGenerator = igsNamedError<"igs120InvalidGenerator", igsReferenceDataError>;
/// An angle is undefined.
using igs120InvalidAngles = igsNamedError<"igs120InvalidAngles">;
/// The angles differ by less than kelTolCoincAngles, which may mean nothing or a full turn; carries the start and the
/// terminate angle.
using igs120CoincidentAngles = igsNamedError<"igs120CoincidentAngles", igsObjectError, double, double>;

/// The terminate angle is below the start angle; carries the start and the terminate angle.
class IGS_API igs120AnglesOutOfSequence
    : public igsErrorClass<igs120AnglesOutOfSequence, "igs120AnglesOutOfSequence", igsObjectError, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Adds full turns to the terminate angle until it is above the start angle, by one turn at most. 0 for angles that
  /// are too large to tell a turn.
  int fix() override;
};

/// The angles are more than a full turn apart; carries the start and the terminate angle.
class IGS_API igs120AngleRangeTooLarge
    : public igsErrorClass<igs120AngleRangeTooLarge, "igs120AngleRangeTooLarge", igsObjectError, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it a full turn that begins where it did, or later, as much as it must to hold the curves that trim the
  /// surface (their angle is the second parameter; curves that are not known to lie anywhere are passed over). 0 for a
  /// start angle that is too large to tell a turn, and for curves that take more than one.
  ///
  /// In a run of the fixer the curves of the file are looked at once, otherwise for each repair.
  int fix() override;
};
