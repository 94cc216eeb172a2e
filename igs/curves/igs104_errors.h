#pragma once

#include "igs/curves/igs104.h"
#include "igs/errors/igsRepairs.h"

/// A coefficient, an end point or the z level is undefined.
using igs104NoConstruct = igsNamedError<"igs104NoConstruct">;
/// Form 0, and the coefficients are those of no curve.
using igs104UnknownType = igsNamedError<"igs104UnknownType">;

/// The repair of the next three: sets the form that goes with the coefficients and returns 1; returns 0 when these are
/// those of no curve.
IGS_API int igs_adopt_conic_form(igs104& conic);

/// Form 1, and the coefficients are not those of an ellipse.
using igs104NotEllipse = igsNamedError<"igs104NotEllipse", igsRepairedBy<igs104, &igs_adopt_conic_form>>;
/// Form 2, and the coefficients are not those of a hyperbola.
using igs104NotHyperbola = igsNamedError<"igs104NotHyperbola", igsRepairedBy<igs104, &igs_adopt_conic_form>>;
/// Form 3, and the coefficients are not those of a parabola.
using igs104NotParabola = igsNamedError<"igs104NotParabola", igsRepairedBy<igs104, &igs_adopt_conic_form>>;
