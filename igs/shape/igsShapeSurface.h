#pragma once

#include <memory>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsVec.h"

/// A point of a surface with the partial derivatives by u and v.
struct igsSurfacePoint {
  igsVec3 point;  ///< in model units
  igsVec3 u;      ///< first derivative by u
  igsVec3 v;      ///< first derivative by v
  igsVec3 uu;     ///< second derivative by u
  igsVec3 uv;     ///< derivative by both
  igsVec3 vv;     ///< second derivative by v

  /// Of length 1; zero where the partials do not span a plane.
  igsVec3 normal() const { return u.cross(v).unit(); }
};

/// One of the two directions of a surface's parameters.
struct igsSurfaceDirection {
  igsRange range;  ///< infinite where the surface has no end
  /// Where pieces meet, ascending, the ends of a finite range included: between two of them all derivatives exist.
  std::vector<double> breaks;
  /// True where the surface comes back to where it began: the points at both ends of the range are the same.
  bool is_closed = false;
  bool has_pole_low = false;   ///< all points at the low end of the range are one
  bool has_pole_high = false;  ///< all points at the high end of the range are one
};

/// The points of a surface over its parameters, which are those of IGES 5.3: angles are radians on surfaces of
/// revolution (igs120), degrees on analytic ones (igs192 to igs198). A shape keeps no reference to the entity that it
/// was made of, never changes, and may be asked by several threads.
class IGS_SHAPE_API igsShapeSurface {
 public:
  virtual ~igsShapeSurface();
  igsShapeSurface(const igsShapeSurface&) = delete;
  igsShapeSurface& operator=(const igsShapeSurface&) = delete;

  /// The ranges of unbounded planes, cylinders and cones are infinite. Surfaces that have no parameters of their own
  /// (igs108, forms 0 of the analytic ones) are given the ones that their class would have with a reference direction.
  const igsSurfaceDirection& u() const { return m_u; }
  const igsSurfaceDirection& v() const { return m_v; }
  /// True where both ranges have both ends.
  bool is_finite() const { return m_u.range.is_finite() && m_v.range.is_finite(); }

  /// Looked at from `side` where u or v is a break. In a closed direction the surface goes on beyond its range, period
  /// by period; in others what lies outside counts as the end.
  igsSurfacePoint at(double u, double v, igsSide side_u = igsSide::after, igsSide side_v = igsSide::after) const;
  igsSurfacePoint at(const igsVec2& uv) const { return at(uv.x, uv.y); }
  /// The point alone, which takes less time.
  igsVec3 point(double u, double v, igsSide side_u = igsSide::after, igsSide side_v = igsSide::after) const;
  igsVec3 point(const igsVec2& uv) const { return point(uv.x, uv.y); }

 protected:
  /// Smooth between the breaks, which are the ends of the range where none are given.
  igsShapeSurface(igsSurfaceDirection u, igsSurfaceDirection v);

  /// u and v lie in their ranges.
  virtual igsSurfacePoint evaluate(double u, double v, igsSide side_u, igsSide side_v) const = 0;
  /// The point alone; for classes that have a faster way to it.
  virtual igsVec3 evaluate_point(double u, double v, igsSide side_u, igsSide side_v) const;
  /// Finds out by samples in which directions the surface is closed and where it has poles, within 5e-6 of its size; to
  /// be called at the end of a constructor, by classes that do not know it.
  void find_seams_and_poles();

 private:
  igsSurfaceDirection m_u, m_v;
};

using igsShapeSurfacePtr = std::shared_ptr<const igsShapeSurface>;
