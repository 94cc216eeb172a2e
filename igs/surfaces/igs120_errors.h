#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs120.h"

// Faults of a Surface of Revolution (igs120).

/// The pointer to the axis is null.
class IGS_API igs120NullAxis : public igsErrorClass<igs120NullAxis, "igs120NullAxis", igsObjectError> {};

/// The axis is not a line.
class IGS_API igs120WrongAxisType : public igsErrorClass<igs120WrongAxisType, "igs120WrongAxisType", igsObjectError> {};

/// The axis fails its own check.
class IGS_API igs120InvalidAxis : public igsErrorClass<igs120InvalidAxis, "igs120InvalidAxis", igsReferenceDataError> {
};

/// The pointer to the generatrix is null.
class IGS_API igs120NullGenerator : public igsErrorClass<igs120NullGenerator, "igs120NullGenerator", igsObjectError> {};

/// The generatrix is not a curve. Repaired by conversion.
class IGS_API igs120WrongGeneratorType
    : public igsErrorClass<igs120WrongGeneratorType, "igs120WrongGeneratorType",
                           igsCurveFieldError<igs120, &igs120::generator, &igs120::set_generator>> {};

/// The generatrix fails its own check.
class IGS_API igs120InvalidGenerator
    : public igsErrorClass<igs120InvalidGenerator, "igs120InvalidGenerator", igsReferenceDataError> {};

/// An angle is undefined.
class IGS_API igs120InvalidAngles : public igsErrorClass<igs120InvalidAngles, "igs120InvalidAngles", igsObjectError> {};

/// The angles differ by less than kelTolCoincAngles, which may mean nothing or a full turn; carries the start and the
/// terminate angle.
class IGS_API igs120CoincidentAngles
    : public igsErrorClass<igs120CoincidentAngles, "igs120CoincidentAngles", igsObjectError, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
};

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
  /// Makes it a full turn; 0 for a start angle that is too large to tell one.
  int fix() override;
};
