#pragma once

#include "igs/curves/igsKnotErrors.h"
#include "igs/surfaces/igs114.h"

// Faults of a Parametric Spline Surface (igs114). Indices are 0-based.

/// CTYPE is none of 1 to 6; carries it. It becomes 3, cubic.
using igs114InvalidSplineType =
    igsNamedError<"igs114InvalidSplineType", igsStoredDefault<igs114, &igs114::set_spline_type, 3>, int>;
/// PTYPE is neither 0 nor 1; carries it. It becomes 1, unspecified.
using igs114InvalidPatchType =
    igsNamedError<"igs114InvalidPatchType", igsStoredDefault<igs114, &igs114::set_patch_type, 1>, int>;

// See igsSequenceErrors.
using igs114UBreakPointErrors = igsBreakPointErrors<"igs114", "U", igs114, &igs114::raise_break_point_u>;
using igs114UnsetUBreakPoint = igs114UBreakPointErrors::UnsetKnot;
using igs114UBreakPointOutOfSequence = igs114UBreakPointErrors::KnotOutOfSequence;
using igs114UBreakPointsTooClose = igs114UBreakPointErrors::KnotsTooClose;
using igs114VBreakPointErrors = igsBreakPointErrors<"igs114", "V", igs114, &igs114::raise_break_point_v>;
using igs114UnsetVBreakPoint = igs114VBreakPointErrors::UnsetKnot;
using igs114VBreakPointOutOfSequence = igs114VBreakPointErrors::KnotOutOfSequence;
using igs114VBreakPointsTooClose = igs114VBreakPointErrors::KnotsTooClose;
/// A coefficient is missing; carries the indices of its patch, along u and along v.
using igs114UnsetCoefficient = igsNamedError<"igs114UnsetCoefficient", igsObjectError, int, int>;
