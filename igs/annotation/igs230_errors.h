#pragma once

#include "igs/annotation/igs230.h"
#include "igs/curves/igsCurveConversion.h"
#include "igs/fields/igsMemberErrors.h"

// Faults of a Sectioned Area (igs230). Those of an island carry its position, 0-based, at the time of the check.

using igs230NullBoundary = igsReferenceErrors<"igs230", "Boundary">::Null;
/// The boundary is no curve. Repaired by conversion.
using igs230WrongBoundaryType =
    igsNamedError<"igs230WrongBoundaryType", igsCurveFieldError<igs230, &igs230::boundary, &igs230::set_boundary>>;
using igs230InvalidBoundary = igsReferenceErrors<"igs230", "Boundary">::Invalid;
/// The pattern is negative; carries it. It becomes 1.
using igs230InvalidPattern =
    igsNamedError<"igs230InvalidPattern", igsStoredDefault<igs230, &igs230::set_pattern, 1>, int>;
using igs230InvalidPoint = igsUndefinedErrors<"igs230", "Point">::Invalid;
/// The distance is negative.
using igs230InvalidDistance = igsRealErrors<"igs230", "Distance">::Invalid;
using igs230InvalidAngle = igsUndefinedErrors<"igs230", "Angle">::Invalid;

// See igsMemberErrors.h.
using igs230IslandErrors = igsMemberErrors<"igs230", "Island", igs230, &igs230::remove_null_islands>;
using igs230NullIsland = igs230IslandErrors::Null;
using igs230WrongIslandType = igs230IslandErrors::WrongType;
using igs230InvalidIsland = igs230IslandErrors::Invalid;
