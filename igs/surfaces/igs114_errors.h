#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsStoredDefault.h"
#include "igs/surfaces/igs114.h"

// Faults of a Parametric Spline Surface (igs114). Indices are 0-based.

/// Fewer than one patch along u, which ends the read of the surface, as does a number that the record cannot hold;
/// carries it.
class IGS_API igs114BadNumUPatches
    : public igsErrorClass<igs114BadNumUPatches, "igs114BadNumUPatches", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Fewer than one patch along v, which ends the read of the surface, as does a number that the record cannot hold;
/// carries it.
class IGS_API igs114BadNumVPatches
    : public igsErrorClass<igs114BadNumVPatches, "igs114BadNumVPatches", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// CTYPE is none of 1 to 6; carries it. It becomes 3, cubic.
class IGS_API igs114InvalidSplineType
    : public igsErrorClass<igs114InvalidSplineType, "igs114InvalidSplineType",
                           igsStoredDefault<igs114, &igs114::set_spline_type, 3>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PTYPE is neither 0 nor 1; carries it. It becomes 1, unspecified.
class IGS_API igs114InvalidPatchType : public igsErrorClass<igs114InvalidPatchType, "igs114InvalidPatchType",
                                                            igsStoredDefault<igs114, &igs114::set_patch_type, 1>, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Carries the index of the break point.
class IGS_API igs114UnsetUBreakPoint
    : public igsErrorClass<igs114UnsetUBreakPoint, "igs114UnsetUBreakPoint", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A break point is below the largest one before it; carries its index, its value and that one.
class IGS_API igs114UBreakPointOutOfSequence
    : public igsErrorClass<igs114UBreakPointOutOfSequence, "igs114UBreakPointOutOfSequence", igsObjectError, int,
                           double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Raises it to that one; 0 when it is not less than kelTolCoincBreakPoints below.
  int fix() override;
};

/// Two neighbours among the break points are the same or closer than kelTolCoincBreakPoints.
class IGS_API igs114UBreakPointsTooClose
    : public igsErrorClass<igs114UBreakPointsTooClose, "igs114UBreakPointsTooClose", igsObjectError> {};

/// Carries the index of the break point.
class IGS_API igs114UnsetVBreakPoint
    : public igsErrorClass<igs114UnsetVBreakPoint, "igs114UnsetVBreakPoint", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A break point is below the largest one before it; carries its index, its value and that one.
class IGS_API igs114VBreakPointOutOfSequence
    : public igsErrorClass<igs114VBreakPointOutOfSequence, "igs114VBreakPointOutOfSequence", igsObjectError, int,
                           double, double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Raises it to that one; 0 when it is not less than kelTolCoincBreakPoints below.
  int fix() override;
};

/// Two neighbours among the break points are the same or closer than kelTolCoincBreakPoints.
class IGS_API igs114VBreakPointsTooClose
    : public igsErrorClass<igs114VBreakPointsTooClose, "igs114VBreakPointsTooClose", igsObjectError> {};

/// A coefficient is missing; carries the indices of its patch, along u and along v.
class IGS_API igs114UnsetCoefficient
    : public igsErrorClass<igs114UnsetCoefficient, "igs114UnsetCoefficient", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
