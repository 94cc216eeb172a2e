#pragma once

#include <cstddef>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsVec.h"

/// How closely straight lines and triangles follow a shape.
struct igsShapeTolerance {
  double chord = 0.1;   ///< greatest distance from the shape, in model units; above 0
  double angle = 0.35;  ///< greatest angle between neighbours, in radians; above 0
  /// At most so many points for one curve, and so many triangles for one face.
  std::size_t most = 200'000;
};

/// A point of a polyline with the parameter of the curve where it lies.
struct igsPolylinePoint {
  double parameter = 0;  ///< in the curve's range
  igsVec3 point;         ///< of the curve
};

/// Points of a curve of finite range, from its start to its end, that straight lines may join within the tolerance. All
/// breaks are among them, even if they are more than `most`; where the curve jumps, both points. Turns that are smaller
/// than a thousandth of the chord tolerance may be sharper than the angle. Empty where the range is infinite or a point
/// is not finite.
IGS_SHAPE_API std::vector<igsPolylinePoint> igs_polyline(const igsShapeCurve& curve,
                                                         const igsShapeTolerance& tolerance);
/// The length of a curve of finite range, in model units, to about 1e-10 of it; not a number where a point is not
/// finite.
IGS_SHAPE_API double igs_length(const igsShapeCurve& curve);
/// The length of a part of a curve, which lies in its range and is finite; likewise.
IGS_SHAPE_API double igs_length(const igsShapeCurve& curve, const igsRange& part);
/// The smallest box along the axes, to about 1e-9 of its size; empty where the range is infinite.
IGS_SHAPE_API igsBox igs_box(const igsShapeCurve& curve);
