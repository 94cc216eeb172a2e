#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/surfaces/igs122.h"

// Faults of a Tabulated Cylinder (igs122).

/// The pointer to the directrix is null.
class IGS_API igs122NullDirectrix : public igsErrorClass<igs122NullDirectrix, "igs122NullDirectrix", igsObjectError> {};

/// The directrix is not a curve. Repaired by conversion.
class IGS_API igs122WrongDirectrixType
    : public igsErrorClass<igs122WrongDirectrixType, "igs122WrongDirectrixType",
                           igsCurveFieldError<igs122, &igs122::directrix, &igs122::set_directrix>> {};

/// The directrix fails its own check.
class IGS_API igs122InvalidDirectrix
    : public igsErrorClass<igs122InvalidDirectrix, "igs122InvalidDirectrix", igsReferenceDataError> {};

/// The terminate point is undefined.
class IGS_API igs122InvalidTerminatePoint
    : public igsErrorClass<igs122InvalidTerminatePoint, "igs122InvalidTerminatePoint", igsObjectError> {};

/// The terminate point is at most kelTolZeroLength away from the start of the directrix; carries that tolerance.
class IGS_API igs122CoincidentPoints
    : public igsErrorClass<igs122CoincidentPoints, "igs122CoincidentPoints", igsObjectError, double> {
 public:
  using igsErrorClass::igsErrorClass;
};
