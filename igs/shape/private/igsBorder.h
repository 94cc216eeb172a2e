#pragma once

#include <array>
#include <vector>

#include "igs/shape/igsShapeMesh.h"

/// A point of a loop on a surface, and how the loop goes on.
struct igsBorderPoint {
  igsVec2 uv;                      ///< in closed directions the loop runs on from period to period
  igsVec3 point;                   ///< of the curve, in model space, not placed
  std::array<igsVec2, 3> between;  ///< a quarter, half and three quarters of the way to the next point
};

/// A loop on a surface, closed.
struct igsBorderLoop {
  std::vector<igsBorderPoint> points;  ///< the first is not there again as the last
  igsVec2 winding;                     ///< whole periods: where the loop comes back to its first point, seen from there
};

/// The normal of a surface; beside a place where the partials do not tell it, as at a pole.
igsVec3 igs_normal_near(const igsShapeSurface& surface, const igsVec2& uv, const igsSurfacePoint& at);
/// The straight way in parameter space between two points.
std::array<igsVec2, 3> igs_straight_between(const igsVec2& from, const igsVec2& to);
/// A straight line in parameter space, its points close enough for the tolerance; without the last one, `to`.
std::vector<igsBorderPoint> igs_straight_border(const igsShapeSurface& surface, const igsVec2& from, const igsVec2& to,
                                                const igsShapeTolerance& tolerance);
/// Twice the area in parameter space; above 0 where the loop runs counterclockwise.
double igs_twice_area(const igsBorderLoop& loop);
/// The loops of a face that has a surface: in its parameter space, from the curves given there or by projection. False
/// where the curves of a loop cannot be used; loops without any count as none. `edges`: the points that shared edges
/// have; null where they need not be the neighbours'.
bool igs_find_borders(const igsShapeFace& face, const igsShapeEdgePoints* edges, const igsShapeTolerance& tolerance,
                      std::vector<igsBorderLoop>& loops);
