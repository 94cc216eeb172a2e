#pragma once

#include "igs/curves/igs112.h"
#include "igs/curves/igsKnotErrors.h"

// Faults of a Parametric Spline Curve (igs112). Indices are 0-based.

/// CTYPE is none of 1 to 6; carries it. It becomes 3, cubic.
using igs112InvalidSplineType =
    igsNamedError<"igs112InvalidSplineType", igsStoredDefault<igs112, &igs112::set_spline_type, 3>, int>;
/// H is none of 0 to 2, nor the 3 that some systems write; carries it. It becomes 0.
using igs112InvalidContinuity =
    igsNamedError<"igs112InvalidContinuity", igsStoredDefault<igs112, &igs112::set_continuity, 0>, int>;
/// NDIM is neither 2 nor 3; carries it. It becomes 3.
using igs112InvalidDimension =
    igsNamedError<"igs112InvalidDimension", igsStoredDefault<igs112, &igs112::set_dimension, 3>, int>;

// See igsSequenceErrors.
using igs112BreakPointErrors = igsBreakPointErrors<"igs112", "", igs112, &igs112::raise_break_point>;
using igs112UnsetBreakPoint = igs112BreakPointErrors::UnsetKnot;
using igs112BreakPointOutOfSequence = igs112BreakPointErrors::KnotOutOfSequence;
using igs112BreakPointsTooClose = igs112BreakPointErrors::KnotsTooClose;
/// A coefficient is missing; carries the index of its segment.
using igs112UnsetCoefficient = igsNamedError<"igs112UnsetCoefficient", igsObjectError, int>;
/// NDIM is 2, but z varies by more than kelTolMinValue in a coefficient; carries the index of the first such segment.
/// NDIM becomes 3.
using igs112NotPlanar = igsNamedError<"igs112NotPlanar", igsStoredDefault<igs112, &igs112::set_dimension, 3>, int>;
