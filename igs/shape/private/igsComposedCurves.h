#pragma once

#include <vector>

#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsShapeSurface.h"
#include "igs/shape/igsShapes.h"

/// A curve as a part of another, which may run against it.
struct igsCurvePart {
  igsShapeCurvePtr curve;
  bool is_reversed = false;
};

/// The curves one behind the other; each takes as much of the parameter, from 0, as it has itself. Null where there is
/// none, one is null or of infinite range, or `shapes` allows no more pieces.
igsShapeCurvePtr igs_chained(const std::vector<igsCurvePart>& parts, igsShapes& shapes);

/// The image of a curve in the parameter space of a surface, by the parameter of that curve. Null where one is null,
/// the curve's range is infinite, or `shapes` allows no more pieces.
igsShapeCurvePtr igs_curve_on_surface(const igsShapeSurfacePtr& surface, const igsShapeCurvePtr& parameter_curve,
                                      igsShapes& shapes);
