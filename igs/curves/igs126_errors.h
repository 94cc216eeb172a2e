#pragma once

#include "igs/curves/igs126.h"
#include "igs/curves/igsKnotErrors.h"

// Faults of a Rational B-Spline Curve (igs126). A repair of a curve that was removed meanwhile (an igsNull stands in
// its place) does nothing and answers 1. Indices are 0-based.

template <>
inline constexpr bool igs_done_when_removed<igs126> = true;

// See igsKnotErrors.
using igs126KnotErrors = igsKnotErrors<"igs126", "", igs126, &igs126::direction>;
using igs126BadSumIndex = igs126KnotErrors::BadSumIndex;
using igs126BadDegree = igs126KnotErrors::BadDegree;
using igs126SumIndexLessThanDegree = igs126KnotErrors::SumIndexLessThanDegree;
using igs126UnsetKnot = igs126KnotErrors::UnsetKnot;
using igs126KnotOutOfSequence = igs126KnotErrors::KnotOutOfSequence;
using igs126KnotsTooClose = igs126KnotErrors::KnotsTooClose;
using igs126MinParamOutOfRange = igs126KnotErrors::MinParamOutOfRange;
using igs126MaxParamOutOfRange = igs126KnotErrors::MaxParamOutOfRange;
using igs126TrimParamsOutOfSequence = igs126KnotErrors::TrimParamsOutOfSequence;

/// T(N) is not above T(0); carries T(0).
class IGS_API igs126NoParamRange
    : public igsErrorClass<igs126NoParamRange, "igs126NoParamRange", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Puts an igsNull in the place of the curve, prints a warning and answers 0.
  int fix() override;
};

/// Knots, weights or control points are missing.
using igs126NoConstruct = igsNamedError<"igs126NoConstruct">;
/// PROP1 is neither 0 nor 1; carries it.
using igs126InvalidPlanarFlag = igsNamedError<"igs126InvalidPlanarFlag", igsObjectError, int>;
/// PROP2, PROP3 or PROP4 is neither 0 nor 1; carries it. It becomes 0.
using igs126InvalidClosedFlag =
    igsNamedError<"igs126InvalidClosedFlag", igsStoredDefault<igs126, &igs126::set_closed_flag, 0>, int>;
using igs126InvalidRationalFlag =
    igsNamedError<"igs126InvalidRationalFlag", igsStoredDefault<igs126, &igs126::set_rational_flag, 0>, int>;
using igs126InvalidPeriodicFlag =
    igsNamedError<"igs126InvalidPeriodicFlag", igsStoredDefault<igs126, &igs126::set_periodic_flag, 0>, int>;
/// A control point is undefined; carries its index.
using igs126UnsetControlPoint = igsNamedError<"igs126UnsetControlPoint", igsObjectError, int>;
/// The size of a weight is below kelTolMinValue; carries its index.
using igs126ZeroWeight = igsNamedError<"igs126ZeroWeight", igsObjectError, int>;
/// A weight is unset; carries its index.
using igs126UnsetWeight = igsNamedError<"igs126UnsetWeight", igsObjectError, int>;
/// A weight is negative; carries its index and the weight.
using igs126NegativeWeight = igsNamedError<"igs126NegativeWeight", igsObjectError, int, double>;

/// PROP3 says rational and all weights are the same, or polynomial and they differ by more than kelTolCoincWeights;
/// carries it.
class IGS_API igs126WeightsAndRatFlagDisagree
    : public igsErrorClass<igs126WeightsAndRatFlagDisagree, "igs126WeightsAndRatFlagDisagree", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Makes PROP3 1 when the flag carried is 0, else 0.
  int fix() override;
};

/// V(0) or V(1) is unset.
using igs126UnsetTrimmingParams = igsNamedError<"igs126UnsetTrimmingParams">;
/// The curve is planar and its normal undefined.
using igs126InvalidUnitNormal = igsNamedError<"igs126InvalidUnitNormal">;
