#pragma once

#include <functional>
#include <vector>

#include "igs/shape/private/igsBorder.h"

/// A place on a surface that a curve has there.
struct igsTrackPoint {
  double parameter = 0;  ///< of the curve
  igsVec2 uv;
  igsVec3 point, normal;
  /// The pole where it is: 0 for none, 1 where u says nothing, 2 where v says nothing.
  int pole = 0;
  bool is_projected = false;  ///< whole periods may be added to u and v
};

/// Where a curve is on a surface at a parameter; `near`: a place that it has just passed, null for none.
using igsLocate = std::function<igsTrackPoint(double parameter, igsSide side, const igsTrackPoint* near)>;

/// What brings a place nearest to another: whole periods of the closed directions.
igsVec2 igs_periods_between(const igsShapeSurface& surface, const igsVec2& from, const igsVec2& to);

/// Follows a curve on a surface from its first break to its last. The last point goes nowhere. Empty where a place is
/// not finite.
std::vector<igsBorderPoint> igs_follow(const std::vector<double>& breaks, const igsShapeSurface& surface,
                                       const igsShapeTolerance& tolerance, const igsLocate& locate);
/// As above, at the points of a polyline and nowhere else.
std::vector<igsBorderPoint> igs_follow(const std::vector<igsPolylinePoint>& polyline, const igsShapeSurface& surface,
                                       const igsShapeTolerance& tolerance, const igsLocate& locate);
