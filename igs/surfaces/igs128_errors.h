#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of a Rational B-Spline Surface (igs128). Indices are 0-based, those of a control point or weight in the order
// U, V.

/// Fewer than two control points along u, or a size that the record cannot hold; carries K1. The size ends the
/// read of the surface.
class IGS_API igs128BadUSumIndex : public igsErrorClass<igs128BadUSumIndex, "igs128BadUSumIndex", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Fewer than two control points along v, or a size that the record cannot hold; carries K2. The size ends the
/// read of the surface.
class IGS_API igs128BadVSumIndex : public igsErrorClass<igs128BadVSumIndex, "igs128BadVSumIndex", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A degree along u below 1; carries it.
class IGS_API igs128BadUDegree : public igsErrorClass<igs128BadUDegree, "igs128BadUDegree", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A degree along v below 1; carries it.
class IGS_API igs128BadVDegree : public igsErrorClass<igs128BadVDegree, "igs128BadVDegree", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Fewer control points along u than the degree needs; carries K1 and M1.
class IGS_API igs128USumIndexLessThanUDegree
    : public igsErrorClass<igs128USumIndexLessThanUDegree, "igs128USumIndexLessThanUDegree", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Fewer control points along v than the degree needs; carries K2 and M2.
class IGS_API igs128VSumIndexLessThanVDegree
    : public igsErrorClass<igs128VSumIndexLessThanVDegree, "igs128VSumIndexLessThanVDegree", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Knots, weights or control points are missing.
class IGS_API igs128NoConstruct : public igsErrorClass<igs128NoConstruct, "igs128NoConstruct", igsObjectError> {};

/// PROP1 is neither 0 nor 1; carries it.
class IGS_API igs128InvalidClosedUFlag
    : public igsErrorClass<igs128InvalidClosedUFlag, "igs128InvalidClosedUFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// PROP2 is neither 0 nor 1; carries it.
class IGS_API igs128InvalidClosedVFlag
    : public igsErrorClass<igs128InvalidClosedVFlag, "igs128InvalidClosedVFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// PROP3 is neither 0 nor 1; carries it.
class IGS_API igs128InvalidRationalFlag
    : public igsErrorClass<igs128InvalidRationalFlag, "igs128InvalidRationalFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// PROP4 is neither 0 nor 1; carries it.
class IGS_API igs128InvalidPeriodicUFlag
    : public igsErrorClass<igs128InvalidPeriodicUFlag, "igs128InvalidPeriodicUFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// PROP5 is neither 0 nor 1; carries it.
class IGS_API igs128InvalidPeriodicVFlag
    : public igsErrorClass<igs128InvalidPeriodicVFlag, "igs128InvalidPeriodicVFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// Carries the index of the u knot.
class IGS_API igs128UnsetKnotU : public igsErrorClass<igs128UnsetKnotU, "igs128UnsetKnotU", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the index of the v knot.
class IGS_API igs128UnsetKnotV : public igsErrorClass<igs128UnsetKnotV, "igs128UnsetKnotV", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A u knot is below the largest one before it; carries index, knot and that one.
class IGS_API igs128KnotUOutOfSequence
    : public igsErrorClass<igs128KnotUOutOfSequence, "igs128KnotUOutOfSequence", igsObjectError, int, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Raises the knot to it; 0 when it is kelTolCoincBreakPoints or more below.
  int fix() override;
};

/// A v knot is below the largest one before it; carries index, knot and that one.
class IGS_API igs128KnotVOutOfSequence
    : public igsErrorClass<igs128KnotVOutOfSequence, "igs128KnotVOutOfSequence", igsObjectError, int, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Raises the knot to it; 0 when it is kelTolCoincBreakPoints or more below.
  int fix() override;
};

/// U(0) is outside the range of the u knots; carries it and the range.
class IGS_API igs128MinParamUOutOfRange : public igsErrorClass<igs128MinParamUOutOfRange, "igs128MinParamUOutOfRange",
                                                               igsObjectError, double, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it the start of the range; 0 when U(1) is below that.
  int fix() override;
};

/// U(1) is outside the range of the u knots; carries it and the range.
class IGS_API igs128MaxParamUOutOfRange : public igsErrorClass<igs128MaxParamUOutOfRange, "igs128MaxParamUOutOfRange",
                                                               igsObjectError, double, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it the end of the range; 0 when U(0) is above that.
  int fix() override;
};

/// V(0) is outside the range of the v knots; carries it and the range.
class IGS_API igs128MinParamVOutOfRange : public igsErrorClass<igs128MinParamVOutOfRange, "igs128MinParamVOutOfRange",
                                                               igsObjectError, double, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it the start of the range; 0 when V(1) is below that.
  int fix() override;
};

/// V(1) is outside the range of the v knots; carries it and the range.
class IGS_API igs128MaxParamVOutOfRange : public igsErrorClass<igs128MaxParamVOutOfRange, "igs128MaxParamVOutOfRange",
                                                               igsObjectError, double, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it the end of the range; 0 when V(0) is above that.
  int fix() override;
};

/// The range of the u knots is empty; carries its start.
class IGS_API igs128NoUParamRange
    : public igsErrorClass<igs128NoUParamRange, "igs128NoUParamRange", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The range of the v knots is empty; carries its start.
class IGS_API igs128NoVParamRange
    : public igsErrorClass<igs128NoVParamRange, "igs128NoVParamRange", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Two different neighbours within the range of the u knots are closer than kelTolCoincBreakPoints.
class IGS_API igs128UKnotsTooClose
    : public igsErrorClass<igs128UKnotsTooClose, "igs128UKnotsTooClose", igsObjectError> {
 public:
  /// Makes such knots equal (igsKnotVector::snap_knots).
  int fix() override;
};

/// Two different neighbours within the range of the v knots are closer than kelTolCoincBreakPoints.
class IGS_API igs128VKnotsTooClose
    : public igsErrorClass<igs128VKnotsTooClose, "igs128VKnotsTooClose", igsObjectError> {
 public:
  /// Makes such knots equal (igsKnotVector::snap_knots).
  int fix() override;
};

/// Carries the indices of the point.
class IGS_API igs128UnsetControlPoint
    : public igsErrorClass<igs128UnsetControlPoint, "igs128UnsetControlPoint", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The size of a weight is below kelTolMinValue; carries its indices.
class IGS_API igs128ZeroWeight : public igsErrorClass<igs128ZeroWeight, "igs128ZeroWeight", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the indices of the weight.
class IGS_API igs128UnsetWeight
    : public igsErrorClass<igs128UnsetWeight, "igs128UnsetWeight", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the indices of the weight, and the weight.
class IGS_API igs128NegativeWeight
    : public igsErrorClass<igs128NegativeWeight, "igs128NegativeWeight", igsObjectError, int, int, double> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PROP3 says polynomial, and the weights differ by more than kelTolCoincWeights. (The name has always been spelt so.)
class IGS_API igs128WeightsAndRatFlagDisaggree
    : public igsErrorClass<igs128WeightsAndRatFlagDisaggree, "igs128WeightsAndRatFlagDisaggree", igsObjectError> {
 public:
  /// Sets PROP3 to 0.
  int fix() override;
};

/// One of U(0), U(1), V(0), V(1) is unset.
class IGS_API igs128UnsetTrimmingParams
    : public igsErrorClass<igs128UnsetTrimmingParams, "igs128UnsetTrimmingParams", igsObjectError> {};

/// U(1) is not above U(0); carries U(0) and U(1).
class IGS_API igs128TrimParamsUOutOfSequence
    : public igsErrorClass<igs128TrimParamsUOutOfSequence, "igs128TrimParamsUOutOfSequence", igsObjectError, double,
                           double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes them the range of the u knots; 0 when that is out of sequence, too.
  int fix() override;
};

/// V(1) is not above V(0); carries V(0) and V(1).
class IGS_API igs128TrimParamsVOutOfSequence
    : public igsErrorClass<igs128TrimParamsVOutOfSequence, "igs128TrimParamsVOutOfSequence", igsObjectError, double,
                           double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes them the range of the v knots; 0 when that is out of sequence, too.
  int fix() override;
};
