#pragma once

#include "igs/shape/igsShapeMesh.h"

/// The smallest box of a face that was triangulated, to about the square of the tolerance over its size: the points
/// where the surface turns back are found by Newton's method near the outermost vertices. Of any other face the box of
/// the mesh's points. `boundary`: the smallest box of its boundary, placed.
igsBox igs_face_box(const igsShapeFace& face, const igsShapeMesh& mesh, const igsBox& boundary, double chord);
/// Of points all over the surface of a face, placed: where each direction is cut into as many parts. Empty where there
/// is no surface, or one without an end.
igsBox igs_rough_box_of_surface(const igsShapeFace& face, int num_parts);
