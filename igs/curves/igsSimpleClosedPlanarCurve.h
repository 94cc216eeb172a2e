#pragma once

#include "igs/curves/igsPlanarPoints.h"
#include "igs/objects/igsCurve.h"

class igsSimpleClosedPlanarCurve;

/// The repair of a dimensionality that is not 1: a curve whose points have a common z has become planar; any other is
/// replaced in its file by a polyline through the same points. 1.
IGS_API int igs_settle_dimensionality(igsSimpleClosedPlanarCurve& curve);

using igsSimpleClosedPlanarCurveErrors =
    igsPlanarPointsErrors<igsSimpleClosedPlanarCurve, "igsSimpleClosedPlanarCurve", igsObjectError,
                          igsRepairedBy<igsSimpleClosedPlanarCurve, &igs_settle_dimensionality>>;

/// A curve through planar points.
class IGS_API igsPlanarPointsCurve : public igsCurve, public igsPlanarPoints {
 protected:
  igsPlanarPointsCurve() = default;
};

/// Simple Closed Planar Curve (IGES 5.3, type 106, form 63): the straight pieces that join planar points in their
/// order. The last point is the first one again. Points that a file gives without a common z are kept as they are:
/// planar_point() is undefined then, point() gives them.
class IGS_API igsSimpleClosedPlanarCurve
    : public igsPlanarPointsEntity<igsSimpleClosedPlanarCurve, "igsSimpleClosedPlanarCurve", igsPlanarPointsCurve,
                                   igsSimpleClosedPlanarCurveErrors, true> {
 public:
  igsSimpleClosedPlanarCurve();
  void check_pd() const override;

 private:
  /// From the last point to the first.
  double gap() const;
};
