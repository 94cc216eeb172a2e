#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs108.h"

/// A coefficient of the plane is undefined.
class IGS_API igs108InvalidCoefficients
    : public igsErrorClass<igs108InvalidCoefficients, "igs108InvalidCoefficients", igsObjectError> {};

/// The normal (A, B, C) is shorter than kelTolMinValue.
class IGS_API igs108ZeroNormal : public igsErrorClass<igs108ZeroNormal, "igs108ZeroNormal", igsObjectError> {};

/// Form 0, and there is a boundary.
class IGS_API igs108UnexpectedBoundary
    : public igsErrorClass<igs108UnexpectedBoundary, "igs108UnexpectedBoundary", igsObjectError> {
 public:
  /// Sets form 1 when the boundary is a curve without logged errors, and gives the boundary up otherwise; 1.
  int fix() override;
};

/// Form 1 or -1, and there is no boundary.
class IGS_API igs108NullBoundary : public igsErrorClass<igs108NullBoundary, "igs108NullBoundary", igsObjectError> {};

/// The boundary is no curve. Repaired by conversion.
class IGS_API igs108WrongBoundaryType
    : public igsErrorClass<igs108WrongBoundaryType, "igs108WrongBoundaryType",
                           igsCurveFieldError<igs108, &igs108::boundary, &igs108::set_boundary>> {};

/// The boundary fails its own check.
class IGS_API igs108InvalidBoundary
    : public igsErrorClass<igs108InvalidBoundary, "igs108InvalidBoundary", igsReferenceDataError> {};

/// The size of the display symbol is negative; carries it.
class IGS_API igs108InvalidSymbolSize
    : public igsErrorClass<igs108InvalidSymbolSize, "igs108InvalidSymbolSize", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0: no symbol.
  int fix() override;
};
