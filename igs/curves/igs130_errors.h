#pragma once

#include "igs/curves/igs130.h"
#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"

// Faults of an Offset Curve (igs130).

/// The pointer to the base curve is null.
class IGS_API igs130NullBaseCurve : public igsErrorClass<igs130NullBaseCurve, "igs130NullBaseCurve", igsObjectError> {};

/// The base curve is not a curve. Repaired by conversion.
class IGS_API igs130WrongBaseCurveType
    : public igsErrorClass<igs130WrongBaseCurveType, "igs130WrongBaseCurveType",
                           igsCurveFieldError<igs130, &igs130::base_curve, &igs130::set_base_curve>> {};

/// The base curve fails its own check.
class IGS_API igs130InvalidBaseCurve
    : public igsErrorClass<igs130InvalidBaseCurve, "igs130InvalidBaseCurve", igsReferenceDataError> {};

/// FLAG is none of 1, 2 and 3; carries it.
class IGS_API igs130InvalidOffsetType
    : public igsErrorClass<igs130InvalidOffsetType, "igs130InvalidOffsetType", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The pointer to the offset function is null.
class IGS_API igs130NullOffsetFunction
    : public igsErrorClass<igs130NullOffsetFunction, "igs130NullOffsetFunction", igsObjectError> {};

/// The offset function is not a curve.
class IGS_API igs130WrongOffsetFunctionType
    : public igsErrorClass<igs130WrongOffsetFunctionType, "igs130WrongOffsetFunctionType", igsObjectError> {};

/// The offset function fails its own check.
class IGS_API igs130InvalidOffsetFunction
    : public igsErrorClass<igs130InvalidOffsetFunction, "igs130InvalidOffsetFunction", igsReferenceDataError> {};

/// NDIM is none of 1, 2 and 3, but FLAG is 3; carries it.
class IGS_API igs130InvalidCoordinate
    : public igsErrorClass<igs130InvalidCoordinate, "igs130InvalidCoordinate", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PTYPE is neither 1 nor 2, but FLAG is 2 or 3; carries it.
class IGS_API igs130InvalidTaperType
    : public igsErrorClass<igs130InvalidTaperType, "igs130InvalidTaperType", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The normal is undefined or shorter than kelTolMinValue.
class IGS_API igs130ZeroNormal : public igsErrorClass<igs130ZeroNormal, "igs130ZeroNormal", igsObjectError> {};

/// The length of the normal differs from 1 by more than kelTolZeroLength; carries it.
class IGS_API igs130NormalNotUnit
    : public igsErrorClass<igs130NormalNotUnit, "igs130NormalNotUnit", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it 1; 0 for a length that is not finite.
  int fix() override;
};

/// The end parameter is not above the start parameter; carries the start and the end parameter.
class IGS_API igs130ParamsOutOfSequence
    : public igsErrorClass<igs130ParamsOutOfSequence, "igs130ParamsOutOfSequence", igsObjectError, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
};
