#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "igs/shape/private/igsFaceDomain.h"

/// A corner of triangles.
struct igsFaceVertex {
  igsVec2 uv;
  igsVec3 point, normal;  ///< not placed
};

/// Triangles of a face over the parameters of its surface, where they run counterclockwise.
struct igsFaceTriangles {
  std::vector<igsFaceVertex> vertices;  ///< some may belong to no triangle
  std::vector<std::array<int, 3>> triangles;
  std::vector<int> vertex_of;  ///< of each point of the domain
  /// Sides of triangles, from a vertex to the next counterclockwise, that are lines of the domain, with the line.
  struct Side {
    int from, to, line;
  };
  std::vector<Side> sides;
  std::size_t num_crossings = 0;  ///< of lines of the domain
};

/// False where the lines of the domain cross too often.
bool igs_triangulate(const igsShapeSurface& surface, const igsFaceDomain& domain, const igsShapeTolerance& tolerance,
                     igsFaceTriangles& triangles);
