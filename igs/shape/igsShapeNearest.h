#pragma once

#include <cstddef>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsShapeSurface.h"
#include "igs/shape/igsVec.h"

/// The point of a curve that is nearest to another.
struct igsNearestOnCurve {
  double parameter = 0;  ///< in the curve's range
  igsVec3 point;         ///< of the curve
  double distance = 0;   ///< in model units; infinite where nothing was found
};

/// The point of a surface that is nearest to another.
struct igsNearestOnSurface {
  igsVec2 uv;           ///< its parameters
  igsVec3 point;        ///< of the surface
  double distance = 0;  ///< in model units; infinite where nothing was found
};

/// Finds nearest points of one curve: by Newton's method, from samples that are taken once. Keeps a reference to the
/// curve. For one thread at a time.
class IGS_SHAPE_API igsNearestPointOnCurve {
 public:
  explicit igsNearestPointOnCurve(const igsShapeCurve& curve);
  /// The nearest of all points of the curve.
  igsNearestOnCurve operator()(const igsVec3& point) const;
  /// As above, where the parameter is about known; looks everywhere when what is found there is farther than `enough`.
  igsNearestOnCurve near(const igsVec3& point, double parameter, double enough) const;

 private:
  /// Of the curve, bent little, with a ball that it lies in.
  struct Piece {
    igsRange range;
    igsVec3 centre;
    double radius;
  };
  void add_pieces(const igsRange& span);
  void try_point(double t, igsSide side, const igsVec3& point, igsNearestOnCurve& best) const;
  void search(const igsRange& range, const igsVec3& point, igsNearestOnCurve& best) const;

  const igsShapeCurve& m_curve;
  std::vector<Piece> m_pieces;  ///< ascending; none where the range is infinite
};

/// Finds nearest points of one surface, likewise, samples being taken when they are first needed. Parameters lie in the
/// surface's ranges.
class IGS_SHAPE_API igsNearestPointOnSurface {
 public:
  explicit igsNearestPointOnSurface(const igsShapeSurface& surface);
  /// The nearest of all points of the surface.
  igsNearestOnSurface operator()(const igsVec3& point) const;
  /// As above; or any point that is no farther than `enough`, which takes less time.
  igsNearestOnSurface within(const igsVec3& point, double enough) const;
  /// As above, where the parameters are about known. In a closed direction what is found may lie beyond the range, in
  /// the period of `uv` or the next, so that a curve that crosses a seam can be followed.
  igsNearestOnSurface near(const igsVec3& point, const igsVec2& uv, double enough) const;

 private:
  struct Sample {
    igsVec2 uv;
    igsVec3 point;
  };
  void take_samples() const;

  const igsShapeSurface& m_surface;
  double m_size = 0;                      ///< of the surface, about
  mutable std::vector<Sample> m_samples;  ///< u runs fastest
  mutable std::size_t m_count_u = 0;      ///< samples along u
  mutable double m_spacing = 0;           ///< the greatest distance between neighbours
  mutable std::vector<double> m_squares;  ///< squares of the distances from the point at hand, one a sample
};
