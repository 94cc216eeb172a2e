#pragma once

#include <array>
#include <vector>

#include "igs/shape/private/igsBorder.h"

struct igsDomainPoint {
  igsVec2 uv;
  igsVec3 point;  ///< in model space, not placed
};

/// A line of the border, between two points.
struct igsDomainLine {
  int from = 0, to = 0;            ///< 0-based, in the points
  std::array<igsVec2, 3> between;  ///< at the quarters of the way
};

/// The part of a surface's parameters that a face has. An odd number of lines parts its inside from the outside.
/// Closed directions are cut open: points at a cut are there twice, a period apart.
struct igsFaceDomain {
  std::vector<igsDomainPoint> points;
  std::vector<igsDomainLine> lines;
  std::vector<std::vector<int>> boundaries;  ///< of each loop its points
};

/// What loops leave of a surface. False where they bound nothing: then there are no lines.
bool igs_find_domain(const igsShapeFace& face, std::vector<igsBorderLoop> loops, const igsShapeTolerance& tolerance,
                     igsFaceDomain& domain);
