#pragma once

#include "igs/shape/igsPlacement.h"
#include "igs/shape/private/igsFaceTriangles.h"

/// What is summed up over a face, placed.
struct igsFaceIntegral {
  double area = 0;
  double volume = 0;  ///< of the cone from the origin; above 0 where the normals point away from that
};

/// Over the surface itself, and up to the curves of the border, not to the triangles' sides.
igsFaceIntegral igs_integrate(const igsShapeSurface& surface, const igsPlacement& placement,
                              const igsFaceDomain& domain, const igsFaceTriangles& triangles);
