#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"

// Positions of sub-curves are 0-based, as they were when the curve was checked.

/// There is no sub-curve.
class IGS_API igs102NoSubCurves : public igsErrorClass<igs102NoSubCurves, "igs102NoSubCurves", igsObjectError> {};

/// A pointer to a sub-curve is null; carries its position.
class IGS_API igs102NullSubCurvePtr
    : public igsErrorClass<igs102NullSubCurvePtr, "igs102NullSubCurvePtr", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A sub-curve is neither a curve nor a point; carries its position. Repaired by conversion.
class IGS_API igs102InvalidSubCurveType
    : public igsErrorClass<igs102InvalidSubCurveType, "igs102InvalidSubCurveType", igsCurveTypeError, int> {
 public:
  using igsErrorClass::igsErrorClass;

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
class IGS_API igs102OnlyPoint : public igsErrorClass<igs102OnlyPoint, "igs102OnlyPoint", igsObjectError> {};

/// A point follows a point; carries the positions of both.
class IGS_API igs102AdjacentPoints
    : public igsErrorClass<igs102AdjacentPoints, "igs102AdjacentPoints", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Accepts it: 1, nothing is changed.
  int fix() override { return 1; }
};

/// The number of sub-curves is negative or out of proportion to the record; carries it.
class IGS_API igs102BadNumCurves : public igsErrorClass<igs102BadNumCurves, "igs102BadNumCurves", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
