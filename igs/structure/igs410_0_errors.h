#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/structure/igs410_0.h"

// Faults of a view (igs410_0). Those of its number are found by the file, which knows the other views; they carry the
// number that the view is to get, and their repair gives it that number.

using igs410_0GivenNumber = igsRepairedBy<igs410_0, &igs410_0::set_view_number>;
/// The view has no number.
using igs410_0NoViewNumberDefined = igsNamedError<"igs410_0NoViewNumberDefined", igs410_0GivenNumber, int>;
/// The view's number is negative.
using igs410_0InvalidViewNumber = igsNamedError<"igs410_0InvalidViewNumber", igs410_0GivenNumber, int>;
/// A view with a lower DE number has the same view number.
using igs410_0RepeatedView = igsNamedError<"igs410_0RepeatedView", igs410_0GivenNumber, int>;
/// The scale is not above 0, or undefined; carries it. Repaired to 1.
using igs410_0InvalidScale =
    igsNamedError<"igs410_0InvalidScale", igsStoredDefault<igs410_0, &igs410_0::set_scale, 1>, double>;
/// What should be a plane is none; carries its side (igs410_0::Plane).
using igs410_0WrongPlaneType = igsNamedError<"igs410_0WrongPlaneType", igsObjectError, int>;
/// A plane fails its own check; carries its side (igs410_0::Plane).
using igs410_0InvalidPlane = igsNamedError<"igs410_0InvalidPlane", igsReferenceDataError, int>;
