#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsStoredDefault.h"
#include "igs/surfaces/igs118.h"

// Faults of a Ruled Surface (igs118).

/// The pointer to the first curve is null.
class IGS_API igs118NullFirstCurve
    : public igsErrorClass<igs118NullFirstCurve, "igs118NullFirstCurve", igsObjectError> {};

/// The first curve is not a curve or a point. Repaired by conversion.
class IGS_API igs118WrongFirstCurveType
    : public igsErrorClass<igs118WrongFirstCurveType, "igs118WrongFirstCurveType",
                           igsCurveFieldError<igs118, &igs118::first_curve, &igs118::set_first_curve>> {};

/// The first curve fails its own check.
class IGS_API igs118InvalidFirstCurve
    : public igsErrorClass<igs118InvalidFirstCurve, "igs118InvalidFirstCurve", igsReferenceDataError> {};

/// The pointer to the second curve is null.
class IGS_API igs118NullSecondCurve
    : public igsErrorClass<igs118NullSecondCurve, "igs118NullSecondCurve", igsObjectError> {};

/// The second curve is not a curve or a point. Repaired by conversion.
class IGS_API igs118WrongSecondCurveType
    : public igsErrorClass<igs118WrongSecondCurveType, "igs118WrongSecondCurveType",
                           igsCurveFieldError<igs118, &igs118::second_curve, &igs118::set_second_curve>> {};

/// The second curve fails its own check.
class IGS_API igs118InvalidSecondCurve
    : public igsErrorClass<igs118InvalidSecondCurve, "igs118InvalidSecondCurve", igsReferenceDataError> {};

/// DIRFLG is neither 0 nor 1; carries it. It becomes 0.
class IGS_API igs118InvalidDirectionFlag
    : public igsErrorClass<igs118InvalidDirectionFlag, "igs118InvalidDirectionFlag",
                           igsStoredDefault<igs118, &igs118::set_direction_flag, 0>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// DEVFLG is neither 0 nor 1; carries it. It becomes 0.
class IGS_API igs118InvalidDevelopableFlag
    : public igsErrorClass<igs118InvalidDevelopableFlag, "igs118InvalidDevelopableFlag",
                           igsStoredDefault<igs118, &igs118::set_developable_flag, 0>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Both curves are points.
class IGS_API igs118OnlyPoints : public igsErrorClass<igs118OnlyPoints, "igs118OnlyPoints", igsObjectError> {};
