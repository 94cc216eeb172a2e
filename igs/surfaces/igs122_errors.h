#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs122.h"

// Faults of a Tabulated Cylinder (igs122).

/// The pointer to the directrix is null.
using igs122NullDirectrix = igsNamedError<"igs122NullDirectrix">;
/// The directrix is not a curve. Repaired by conversion.
using igs122WrongDirectrixType =
    igsNamedError<"igs122WrongDirectrixType", igsCurveFieldError<igs122, &igs122::directrix, &igs122::set_directrix>>;
/// The directrix fails its own check.
using igs122InvalidDirectrix = igsNamedError<"igs122InvalidDirectrix", igsReferenceDataError>;
/// The terminate point is undefined.
using igs122InvalidTerminatePoint = igsNamedError<"igs122InvalidTerminatePoint">;
/// The terminate point is at most kelTolZeroLength away from the start of the directrix; carries that tolerance.
using igs122CoincidentPoints = igsNamedError<"igs122CoincidentPoints", igsObjectError, double>;
