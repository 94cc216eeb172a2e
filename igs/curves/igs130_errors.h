#pragma once

#include "igs/curves/igs130.h"
#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"

// Faults of an Offset Curve (igs130).

/// The pointer to the base curve is null.
using igs130NullBaseCurve = igsNamedError<"igs130NullBaseCurve">;
/// The base curve is not a curve. Repaired by conversion.
using igs130WrongBaseCurveType =
    igsNamedError<"igs130WrongBaseCurveType", igsCurveFieldError<igs130, &igs130::base_curve, &igs130::set_base_curve>>;
/// The base curve fails its own check.
using igs130InvalidBaseCurve = igsNamedError<"igs130InvalidBaseCurve", igsReferenceDataError>;
/// FLAG is none of 1, 2 and 3; carries it.
using igs130InvalidOffsetType = igsNamedError<"igs130InvalidOffsetType", igsObjectError, int>;
/// The pointer to the offset function is null.
using igs130NullOffsetFunction = igsNamedError<"igs130NullOffsetFunction">;
/// The offset function is not a curve.
using igs130WrongOffsetFunctionType = igsNamedError<"igs130WrongOffsetFunctionType">;
/// The offset function fails its own check.
using igs130InvalidOffsetFunction = igsNamedError<"igs130InvalidOffsetFunction", igsReferenceDataError>;
/// NDIM is none of 1, 2 and 3, but FLAG is 3; carries it.
using igs130InvalidCoordinate = igsNamedError<"igs130InvalidCoordinate", igsObjectError, int>;
/// PTYPE is neither 1 nor 2, but FLAG is 2 or 3; carries it.
using igs130InvalidTaperType = igsNamedError<"igs130InvalidTaperType", igsObjectError, int>;
/// The normal is undefined or shorter than kelTolMinValue.
using igs130ZeroNormal = igsNamedError<"igs130ZeroNormal">;

/// The length of the normal differs from 1 by more than kelTolZeroLength; carries it.
class IGS_API igs130NormalNotUnit
    : public igsErrorClass<igs130NormalNotUnit, "igs130NormalNotUnit", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it 1; 0 for a length that is not finite.
  int fix() override;
};

/// The end parameter is not above the start parameter; carries the start and the end parameter.
using igs130ParamsOutOfSequence = igsNamedError<"igs130ParamsOutOfSequence", igsObjectError, double, double>;
