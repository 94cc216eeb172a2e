#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of a Rational B-Spline Curve (igs126). A repair of a curve that was removed meanwhile (an igsNull stands in
// its place) does nothing and answers 1. Indices are 0-based.

/// Fewer than two control points, or a size that the record cannot hold; carries K. The size ends the read of the
/// curve.
class IGS_API igs126BadSumIndex : public igsErrorClass<igs126BadSumIndex, "igs126BadSumIndex", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A degree below 1; carries it.
class IGS_API igs126BadDegree : public igsErrorClass<igs126BadDegree, "igs126BadDegree", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Fewer control points than the degree needs: carries K and M.
class IGS_API igs126SumIndexLessThanDegree
    : public igsErrorClass<igs126SumIndexLessThanDegree, "igs126SumIndexLessThanDegree", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Knots, weights or control points are missing.
class IGS_API igs126NoConstruct : public igsErrorClass<igs126NoConstruct, "igs126NoConstruct", igsObjectError> {};

/// PROP1 is neither 0 nor 1; carries it.
class IGS_API igs126InvalidPlanarFlag
    : public igsErrorClass<igs126InvalidPlanarFlag, "igs126InvalidPlanarFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PROP2 is neither 0 nor 1; carries it.
class IGS_API igs126InvalidClosedFlag
    : public igsErrorClass<igs126InvalidClosedFlag, "igs126InvalidClosedFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// PROP3 is neither 0 nor 1; carries it.
class IGS_API igs126InvalidRationalFlag
    : public igsErrorClass<igs126InvalidRationalFlag, "igs126InvalidRationalFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// PROP4 is neither 0 nor 1; carries it.
class IGS_API igs126InvalidPeriodicFlag
    : public igsErrorClass<igs126InvalidPeriodicFlag, "igs126InvalidPeriodicFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// Carries the index of the knot.
class IGS_API igs126UnsetKnot : public igsErrorClass<igs126UnsetKnot, "igs126UnsetKnot", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A knot is below the largest one before it: carries index, knot and that one.
class IGS_API igs126KnotOutOfSequence
    : public igsErrorClass<igs126KnotOutOfSequence, "igs126KnotOutOfSequence", igsObjectError, int, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Raises the knot to it; 0 when it is kelTolCoincBreakPoints or more below.
  int fix() override;
};

/// V(0) is outside [T(0), T(N)]; carries the three.
class IGS_API igs126MinParamOutOfRange : public igsErrorClass<igs126MinParamOutOfRange, "igs126MinParamOutOfRange",
                                                              igsObjectError, double, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it T(0); 0 when V(1) is below that.
  int fix() override;
};

/// V(1) is outside [T(0), T(N)]; carries V(1), T(0) and T(N).
class IGS_API igs126MaxParamOutOfRange : public igsErrorClass<igs126MaxParamOutOfRange, "igs126MaxParamOutOfRange",
                                                              igsObjectError, double, double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it T(N); 0 when V(0) is above that.
  int fix() override;
};

/// T(N) is not above T(0); carries T(0).
class IGS_API igs126NoParamRange
    : public igsErrorClass<igs126NoParamRange, "igs126NoParamRange", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Puts an igsNull in the place of the curve, prints a warning and answers 0.
  int fix() override;
};

/// Two different neighbours among the knots from T(0) to T(N) are closer than kelTolCoincBreakPoints.
class IGS_API igs126KnotsTooClose : public igsErrorClass<igs126KnotsTooClose, "igs126KnotsTooClose", igsObjectError> {
 public:
  /// Makes such knots equal (igsKnotVector::snap_knots).
  int fix() override;
};

/// Carries the index of the point.
class IGS_API igs126UnsetControlPoint
    : public igsErrorClass<igs126UnsetControlPoint, "igs126UnsetControlPoint", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The size of a weight is below kelTolMinValue; carries its index.
class IGS_API igs126ZeroWeight : public igsErrorClass<igs126ZeroWeight, "igs126ZeroWeight", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the index of the weight.
class IGS_API igs126UnsetWeight : public igsErrorClass<igs126UnsetWeight, "igs126UnsetWeight", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the index of the weight, and the weight.
class IGS_API igs126NegativeWeight
    : public igsErrorClass<igs126NegativeWeight, "igs126NegativeWeight", igsObjectError, int, double> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PROP3 says rational and all weights are the same, or polynomial and they differ by more than kelTolCoincWeights;
/// carries it.
class IGS_API igs126WeightsAndRatFlagDisagree
    : public igsErrorClass<igs126WeightsAndRatFlagDisagree, "igs126WeightsAndRatFlagDisagree", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes it 1 when it is 0, else 0.
  int fix() override;
};

/// V(0) or V(1) is unset.
class IGS_API igs126UnsetTrimmingParams
    : public igsErrorClass<igs126UnsetTrimmingParams, "igs126UnsetTrimmingParams", igsObjectError> {};

/// V(1) is not above V(0); carries V(0) and V(1).
class IGS_API igs126TrimParamsOutOfSequence
    : public igsErrorClass<igs126TrimParamsOutOfSequence, "igs126TrimParamsOutOfSequence", igsObjectError, double,
                           double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes them T(0) and T(N); 0 when these are out of sequence, too.
  int fix() override;
};

/// The curve is planar and its normal undefined.
class IGS_API igs126InvalidUnitNormal
    : public igsErrorClass<igs126InvalidUnitNormal, "igs126InvalidUnitNormal", igsObjectError> {};
