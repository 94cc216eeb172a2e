#pragma once

#include <vector>

#include "igs/shape/igsShapeMesh.h"

/// Where a grid of points has its lines across one direction of a surface.
struct igsGridLines {
  std::vector<double> at;     ///< ascending, between the ends of the part, and without these
  std::vector<double> kinks;  ///< those where the normal jumps
};

/// Lines close enough for the surface between them to be within the tolerance, over the part from `low` to `high`.
igsGridLines igs_grid_lines(const igsShapeSurface& surface, bool along_v, const igsVec2& low, const igsVec2& high,
                            const igsShapeTolerance& tolerance);
