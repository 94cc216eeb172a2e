#pragma once

#include "igs/fields/igsNamedError.h"
#include "igs/fields/igsStoredDefault.h"
#include "igs/structure/igs410_0.h"

// Faults of a view (igs410_0). Those of its number are found by the file, which knows the other views; they carry the
// number that the view is to get, and their repair gives it that number.

/// The view has no number.
class IGS_API igs410_0NoViewNumberDefined
    : public igsErrorClass<igs410_0NoViewNumberDefined, "igs410_0NoViewNumberDefined", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// The view's number is negative.
class IGS_API igs410_0InvalidViewNumber
    : public igsErrorClass<igs410_0InvalidViewNumber, "igs410_0InvalidViewNumber", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// A view with a lower DE number has the same view number.
class IGS_API igs410_0RepeatedView
    : public igsErrorClass<igs410_0RepeatedView, "igs410_0RepeatedView", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// The scale is not above 0, or undefined; carries it. Repaired to 1.
using igs410_0InvalidScale =
    igsNamedError<"igs410_0InvalidScale", igsStoredDefault<igs410_0, &igs410_0::set_scale, 1>, double>;

/// What should be a plane is none; carries its side (igs410_0::Plane).
using igs410_0WrongPlaneType = igsNamedError<"igs410_0WrongPlaneType", igsObjectError, int>;

/// A plane fails its own check; carries its side (igs410_0::Plane).
using igs410_0InvalidPlane = igsNamedError<"igs410_0InvalidPlane", igsReferenceDataError, int>;
