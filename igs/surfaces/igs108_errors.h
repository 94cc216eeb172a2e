#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsRepairs.h"
#include "igs/surfaces/igs108.h"

/// A coefficient of the plane is undefined.
using igs108InvalidCoefficients = igsNamedError<"igs108InvalidCoefficients">;
/// The normal (A, B, C) is shorter than kelTolMinValue.
using igs108ZeroNormal = igsNamedError<"igs108ZeroNormal">;

/// Form 0, and there is a boundary.
class IGS_API igs108UnexpectedBoundary
    : public igsErrorClass<igs108UnexpectedBoundary, "igs108UnexpectedBoundary", igsObjectError> {
 public:
  /// Sets form 1 when the boundary is a curve without logged errors, and gives the boundary up otherwise; 1.
  int fix() override;
};

/// Form 1 or -1, and there is no boundary.
using igs108NullBoundary = igsNamedError<"igs108NullBoundary">;
/// The boundary is no curve. Repaired by conversion.
using igs108WrongBoundaryType =
    igsNamedError<"igs108WrongBoundaryType", igsCurveFieldError<igs108, &igs108::boundary, &igs108::set_boundary>>;
/// The boundary fails its own check.
using igs108InvalidBoundary = igsNamedError<"igs108InvalidBoundary", igsReferenceDataError>;
/// The size of the display symbol is negative; carries it. It becomes 0: no symbol.
using igs108InvalidSymbolSize =
    igsNamedError<"igs108InvalidSymbolSize", igsStoredDefault<igs108, &igs108::set_symbol_size, 0>, double>;
