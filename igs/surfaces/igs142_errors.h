#pragma once

#include "igs/errors/igsErrorClass.h"

/// CRTN is outside 0 to 3; carries it.
class IGS_API igs142InvalidCurveCreation
    : public igsErrorClass<igs142InvalidCurveCreation, "igs142InvalidCurveCreation", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PREF is outside 0 to 3; carries it.
class IGS_API igs142InvalidPrefRepresentation
    : public igsErrorClass<igs142InvalidPrefRepresentation, "igs142InvalidPrefRepresentation", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// There is no surface.
class IGS_API igs142NullSurfacePtr
    : public igsErrorClass<igs142NullSurfacePtr, "igs142NullSurfacePtr", igsObjectError> {};

/// What should be the surface is none.
class IGS_API igs142InvalidSurfaceType
    : public igsErrorClass<igs142InvalidSurfaceType, "igs142InvalidSurfaceType", igsObjectError> {};

/// The surface fails its own check.
class IGS_API igs142InvalidSurfaceData
    : public igsErrorClass<igs142InvalidSurfaceData, "igs142InvalidSurfaceData", igsReferenceDataError> {};

/// What should be the curve in the parameter space of the surface is no curve.
class IGS_API igs142InvalidCurve2dType
    : public igsErrorClass<igs142InvalidCurve2dType, "igs142InvalidCurve2dType", igsObjectError> {};

/// The curve in the parameter space of the surface fails its own check.
class IGS_API igs142InvalidCurve2dData
    : public igsErrorClass<igs142InvalidCurve2dData, "igs142InvalidCurve2dData", igsReferenceDataError> {};

/// There is a curve in the parameter space of a plane (type 108), which has no parameters.
class IGS_API igs142Trim2DNonParametricSurface
    : public igsErrorClass<igs142Trim2DNonParametricSurface, "igs142Trim2DNonParametricSurface", igsObjectError> {};

/// What should be the curve in model space is no curve.
class IGS_API igs142InvalidCurve3dType
    : public igsErrorClass<igs142InvalidCurve3dType, "igs142InvalidCurve3dType", igsObjectError> {};

/// The curve in model space fails its own check.
class IGS_API igs142InvalidCurve3dData
    : public igsErrorClass<igs142InvalidCurve3dData, "igs142InvalidCurve3dData", igsReferenceDataError> {};

/// There is neither a curve in parameter space nor one in model space.
class IGS_API igs142NoTrimCurves : public igsErrorClass<igs142NoTrimCurves, "igs142NoTrimCurves", igsObjectError> {};
