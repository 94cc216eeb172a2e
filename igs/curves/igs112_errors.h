#pragma once

#include "igs/curves/igs112.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsStoredDefault.h"

// Faults of a Parametric Spline Curve (igs112). Indices are 0-based.

/// Fewer than one segment, which ends the read of the curve, as does a number that the record cannot hold; carries it.
class IGS_API igs112BadNumSegments
    : public igsErrorClass<igs112BadNumSegments, "igs112BadNumSegments", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// CTYPE is none of 1 to 6; carries it. It becomes 3, cubic.
class IGS_API igs112InvalidSplineType
    : public igsErrorClass<igs112InvalidSplineType, "igs112InvalidSplineType",
                           igsStoredDefault<igs112, &igs112::set_spline_type, 3>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// H is none of 0 to 2, nor the 3 that some systems write; carries it. It becomes 0.
class IGS_API igs112InvalidContinuity
    : public igsErrorClass<igs112InvalidContinuity, "igs112InvalidContinuity",
                           igsStoredDefault<igs112, &igs112::set_continuity, 0>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// NDIM is neither 2 nor 3; carries it. It becomes 3.
class IGS_API igs112InvalidDimension : public igsErrorClass<igs112InvalidDimension, "igs112InvalidDimension",
                                                            igsStoredDefault<igs112, &igs112::set_dimension, 3>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the index of the break point.
class IGS_API igs112UnsetBreakPoint
    : public igsErrorClass<igs112UnsetBreakPoint, "igs112UnsetBreakPoint", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A break point is below the largest one before it; carries its index, its value and that one.
class IGS_API igs112BreakPointOutOfSequence
    : public igsErrorClass<igs112BreakPointOutOfSequence, "igs112BreakPointOutOfSequence", igsObjectError, int, double,
                           double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Raises it to that one; 0 when it is not less than kelTolCoincBreakPoints below.
  int fix() override;
};

/// Two neighbours among the break points are the same or closer than kelTolCoincBreakPoints.
class IGS_API igs112BreakPointsTooClose
    : public igsErrorClass<igs112BreakPointsTooClose, "igs112BreakPointsTooClose", igsObjectError> {};

/// A coefficient is missing; carries the index of its segment.
class IGS_API igs112UnsetCoefficient
    : public igsErrorClass<igs112UnsetCoefficient, "igs112UnsetCoefficient", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// NDIM is 2, but z varies by more than kelTolMinValue in a coefficient; carries the index of the first such segment.
/// NDIM becomes 3.
class IGS_API igs112NotPlanar : public igsErrorClass<igs112NotPlanar, "igs112NotPlanar",
                                                     igsStoredDefault<igs112, &igs112::set_dimension, 3>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
