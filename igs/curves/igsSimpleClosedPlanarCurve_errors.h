#pragma once

#include "igs/curves/igsSimpleClosedPlanarCurve.h"
#include "igs/errors/igsErrorClass.h"

// See igsPlanarPointsErrors; the repair of the first is igs_settle_dimensionality.

using igsSimpleClosedPlanarCurveInvalidDimensionality = igsSimpleClosedPlanarCurveErrors::InvalidDimensionality;
using igsSimpleClosedPlanarCurveInvalidZLevel = igsSimpleClosedPlanarCurveErrors::InvalidZLevel;
using igsSimpleClosedPlanarCurveBadNumPoints = igsSimpleClosedPlanarCurveErrors::BadNumPoints;
using igsSimpleClosedPlanarCurveInvalidPoint = igsSimpleClosedPlanarCurveErrors::InvalidPoint;
/// There are fewer than 3 points; carries their number.
using igsSimpleClosedPlanarCurveTooFewPoints =
    igsNamedError<"igsSimpleClosedPlanarCurveTooFewPoints", igsObjectError, int>;

/// The last point is farther than kelTolClosureCurve3d from the first; carries their distance.
class IGS_API igsSimpleClosedPlanarCurveNotClosed
    : public igsErrorClass<igsSimpleClosedPlanarCurveNotClosed, "igsSimpleClosedPlanarCurveNotClosed", igsObjectError,
                           double> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Replaces the curve in its file by a polyline through the same points: no piece is added. 0 when there is no such
  /// curve any more.
  int fix() override;
};
