#pragma once

#include <vector>

#include "igs/shape/igsShapeModel.h"

/// What a point of a curve in the parameter space of a surface is on that, without the second derivative.
inline igsCurvePoint igs_image_of(const igsShapeSurface& surface, const igsCurvePoint& at) {
  const igsSurfacePoint on = surface.at(at.point.x, at.point.y);
  return {on.point, on.u * at.first.x + on.v * at.first.y, {}};
}

/// A curve in model space, placed, or what a curve in the parameter space of a surface is there. Refers to its parts.
struct igsPieceInSpace {
  const igsShapePiece* piece;  ///< null for a curve that is no piece of a loop
  const igsShapeCurve* curve;  ///< of finite range
  const igsPlacement* placement;
  const igsShapeSurface* surface = nullptr;  ///< null for a curve in model space

  /// Without the second derivative.
  igsCurvePoint at(double t) const {
    const igsCurvePoint at = surface == nullptr ? curve->at(t) : igs_image_of(*surface, curve->at(t));
    return {placement->point(at.point), placement->vector(at.first), {}};
  }
  igsVec3 point(double t) const {
    const igsVec3 point = curve->point(t);
    return placement->point(surface == nullptr ? point : surface->point({point.x, point.y}));
  }
};

/// The pieces of a loop in model space where it has any, otherwise those in parameter space; without those that make no
/// curve.
std::vector<igsPieceInSpace> igs_pieces_in_space(const igsShapeFace& face, const igsShapeLoop& loop);
