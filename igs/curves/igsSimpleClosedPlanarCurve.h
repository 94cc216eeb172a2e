#pragma once

#include "igs/curves/igsPlanarPoints.h"
#include "igs/objects/igsCurve.h"

class igsSimpleClosedPlanarCurve;
using igsSimpleClosedPlanarCurveErrors =
    igsPlanarPointsErrors<igsSimpleClosedPlanarCurve, "igsSimpleClosedPlanarCurve">;

/// A curve through planar points.
class IGS_API igsPlanarPointsCurve : public igsCurve, public igsPlanarPoints {
 protected:
  igsPlanarPointsCurve() = default;
};

/// Simple Closed Planar Curve (IGES 5.3, type 106, form 63): the straight pieces that join planar points in their
/// order. The last point is the first one again.
class IGS_API igsSimpleClosedPlanarCurve
    : public igsPlanarPointsEntity<igsSimpleClosedPlanarCurve, "igsSimpleClosedPlanarCurve", igsPlanarPointsCurve,
                                   igsSimpleClosedPlanarCurveErrors> {
 public:
  igsSimpleClosedPlanarCurve();
  void check_pd() const override;
};
