#pragma once

#include <vector>

#include "view/scene.h"

/// A coordinate beyond this is taken for a mistake: squares of it must fit in single precision, with which pictures
/// are drawn.
inline constexpr double greatest_coordinate = 1e18;
/// True for a point that can be drawn.
bool is_drawable(const igsVec3& point);

/// Whether a curve (igsShapeWire) or annotation (igsShapeMark) is not shown at first: it is blanked, or beside a model
/// of faces, or over it, on a sheet.
template <class Shown>
bool is_off(const Shown& shown, const igsShapeModel& model) {
  return shown.is_blanked || (shown.is_on_sheet && !model.faces().empty());
}

/// About where the things stand that are shown at first, or all of them where none is; of a few points of each.
igsBox rough_box(const igsShapeModel& model);

/// The triangles of all faces, at most so many as the options allow: where there would be more, the
/// tolerance of the scene becomes coarser, and at last small faces are left without any. `size`: the model's.
std::vector<igsShapeMesh> meshes_within_limits(const igsShapeModel& model, const SceneOptions& options, double size,
                                               Scene& scene);
