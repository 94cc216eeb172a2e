#pragma once

#include "igs/curves/igsKnotErrors.h"
#include "igs/surfaces/igs128.h"

// Faults of a Rational B-Spline Surface (igs128). Indices are 0-based, those of a control point or weight in the order
// U, V.

// See igsKnotErrors.
using igs128UErrors = igsKnotErrors<"igs128", "U", igs128, &igs128::direction_u>;
using igs128BadUSumIndex = igs128UErrors::BadSumIndex;
using igs128BadUDegree = igs128UErrors::BadDegree;
using igs128USumIndexLessThanUDegree = igs128UErrors::SumIndexLessThanDegree;
using igs128UnsetKnotU = igs128UErrors::UnsetKnot;
using igs128KnotUOutOfSequence = igs128UErrors::KnotOutOfSequence;
using igs128UKnotsTooClose = igs128UErrors::KnotsTooClose;
using igs128MinParamUOutOfRange = igs128UErrors::MinParamOutOfRange;
using igs128MaxParamUOutOfRange = igs128UErrors::MaxParamOutOfRange;
using igs128NoUParamRange = igs128UErrors::NoParamRange;
using igs128TrimParamsUOutOfSequence = igs128UErrors::TrimParamsOutOfSequence;

using igs128VErrors = igsKnotErrors<"igs128", "V", igs128, &igs128::direction_v>;
using igs128BadVSumIndex = igs128VErrors::BadSumIndex;
using igs128BadVDegree = igs128VErrors::BadDegree;
using igs128VSumIndexLessThanVDegree = igs128VErrors::SumIndexLessThanDegree;
using igs128UnsetKnotV = igs128VErrors::UnsetKnot;
using igs128KnotVOutOfSequence = igs128VErrors::KnotOutOfSequence;
using igs128VKnotsTooClose = igs128VErrors::KnotsTooClose;
using igs128MinParamVOutOfRange = igs128VErrors::MinParamOutOfRange;
using igs128MaxParamVOutOfRange = igs128VErrors::MaxParamOutOfRange;
using igs128NoVParamRange = igs128VErrors::NoParamRange;
using igs128TrimParamsVOutOfSequence = igs128VErrors::TrimParamsOutOfSequence;
/// Knots, weights or control points are missing.
using igs128NoConstruct = igsNamedError<"igs128NoConstruct">;
/// One of PROP1 to PROP5 is neither 0 nor 1; carries it. It becomes 0.
using igs128InvalidClosedUFlag =
    igsNamedError<"igs128InvalidClosedUFlag", igsStoredDefault<igs128, &igs128::set_closed_flag_u, 0>, int>;
using igs128InvalidClosedVFlag =
    igsNamedError<"igs128InvalidClosedVFlag", igsStoredDefault<igs128, &igs128::set_closed_flag_v, 0>, int>;
using igs128InvalidRationalFlag =
    igsNamedError<"igs128InvalidRationalFlag", igsStoredDefault<igs128, &igs128::set_rational_flag, 0>, int>;
using igs128InvalidPeriodicUFlag =
    igsNamedError<"igs128InvalidPeriodicUFlag", igsStoredDefault<igs128, &igs128::set_periodic_flag_u, 0>, int>;
using igs128InvalidPeriodicVFlag =
    igsNamedError<"igs128InvalidPeriodicVFlag", igsStoredDefault<igs128, &igs128::set_periodic_flag_v, 0>, int>;
/// A control point is undefined; carries its indices.
using igs128UnsetControlPoint = igsNamedError<"igs128UnsetControlPoint", igsObjectError, int, int>;
/// The size of a weight is below kelTolMinValue; carries its indices.
using igs128ZeroWeight = igsNamedError<"igs128ZeroWeight", igsObjectError, int, int>;
/// A weight is unset; carries its indices.
using igs128UnsetWeight = igsNamedError<"igs128UnsetWeight", igsObjectError, int, int>;
/// A weight is negative; carries its indices and the weight.
using igs128NegativeWeight = igsNamedError<"igs128NegativeWeight", igsObjectError, int, int, double>;
/// PROP3 says polynomial, and the weights differ by more than kelTolCoincWeights. It becomes 0. (Spelt so for the hosts
/// that know the name.)
using igs128WeightsAndRatFlagDisaggree =
    igsNamedError<"igs128WeightsAndRatFlagDisaggree", igsStoredDefault<igs128, &igs128::set_rational_flag, 0>>;
/// One of U(0), U(1), V(0), V(1) is unset.
using igs128UnsetTrimmingParams = igsNamedError<"igs128UnsetTrimmingParams">;
