#pragma once

#include "igs/curves/igs102.h"
#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsRepairs.h"

// Positions of sub-curves are 0-based, as they were when the curve was checked.

/// There is no sub-curve.
using igs102NoSubCurves = igsNamedError<"igs102NoSubCurves">;
/// A pointer to a sub-curve is null; carries its position.
using igs102NullSubCurvePtr = igsNamedError<"igs102NullSubCurvePtr", igsObjectError, int>;

/// A sub-curve is neither a curve nor a point; carries its position. Repaired by conversion.
class IGS_API igs102InvalidSubCurveType
    : public igsErrorClass<igs102InvalidSubCurveType, "igs102InvalidSubCurveType", igsCurveTypeError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// As for the other kinds of reference, but the sub-curve may have errors of its own.
  int fix() override { return convert(); }

 protected:
  igsObjectPtr reference() const override;
  void set_reference(const igsObjectPtr& curve) const override;
};

/// A sub-curve fails its own check; carries its position.
class IGS_API igs102InvalidSubCurveData
    : public igsErrorClass<igs102InvalidSubCurveData, "igs102InvalidSubCurveData", igsReferenceDataError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Removes the sub-curve from the composite curve, with a warning, unless it has no logged errors any more. The
  /// sub-curve itself stays in the file. 0 when there is no such sub-curve.
  int fix() override;
};

/// The only sub-curve is a point.
using igs102OnlyPoint = igsNamedError<"igs102OnlyPoint">;
/// A point follows a point; carries the positions of both. Accepted.
using igs102AdjacentPoints = igsNamedError<"igs102AdjacentPoints", igsAccepted<igsObjectError>, int, int>;
