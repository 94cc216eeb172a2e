#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsRepairs.h"
#include "igs/surfaces/igs118.h"

// Faults of a Ruled Surface (igs118).

/// The pointer to the first curve is null.
using igs118NullFirstCurve = igsNamedError<"igs118NullFirstCurve">;
/// The first curve is not a curve or a point. Repaired by conversion.
using igs118WrongFirstCurveType =
    igsNamedError<"igs118WrongFirstCurveType",
                  igsCurveFieldError<igs118, &igs118::first_curve, &igs118::set_first_curve>>;
/// The first curve fails its own check.
using igs118InvalidFirstCurve = igsNamedError<"igs118InvalidFirstCurve", igsReferenceDataError>;
/// The pointer to the second curve is null.
using igs118NullSecondCurve = igsNamedError<"igs118NullSecondCurve">;
/// The second curve is not a curve or a point. Repaired by conversion.
using igs118WrongSecondCurveType =
    igsNamedError<"igs118WrongSecondCurveType",
                  igsCurveFieldError<igs118, &igs118::second_curve, &igs118::set_second_curve>>;
/// The second curve fails its own check.
using igs118InvalidSecondCurve = igsNamedError<"igs118InvalidSecondCurve", igsReferenceDataError>;
/// DIRFLG is neither 0 nor 1; carries it. It becomes 0.
using igs118InvalidDirectionFlag =
    igsNamedError<"igs118InvalidDirectionFlag", igsStoredDefault<igs118, &igs118::set_direction_flag, 0>, int>;
/// DEVFLG is neither 0 nor 1; carries it. It becomes 0.
using igs118InvalidDevelopableFlag =
    igsNamedError<"igs118InvalidDevelopableFlag", igsStoredDefault<igs118, &igs118::set_developable_flag, 0>, int>;
/// Both curves are points.
using igs118OnlyPoints = igsNamedError<"igs118OnlyPoints">;
