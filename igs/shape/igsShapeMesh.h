#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <vector>

#include "igs/shape/export.h"
#include "igs/shape/igsShapeModel.h"
#include "igs/shape/igsShapePolyline.h"
#include "igs/shape/igsVec.h"

/// The triangles of a face, in model space, placed. Seen from where the normals point they run counterclockwise.
struct igsShapeMesh {
  std::vector<igsVec3> points;   ///< the corners of the triangles, each once
  std::vector<igsVec3> normals;  ///< one a point, of length 1, of the surface (turned round where the face is reversed)
  std::vector<igsVec2> parameters;            ///< one a point
  std::vector<std::array<int, 3>> triangles;  ///< 0-based, into the points
  /// The boundary, loop by loop, as positions of points, the last one followed by the first; all there is when the face
  /// could not be triangulated.
  std::vector<std::vector<int>> boundaries;
  bool is_complete = false;  ///< false: the face could not be triangulated
  double area = 0;           ///< of the surface within the boundary, in square model units; not that of the triangles
  double volume = 0;         ///< what the face adds to the volume of its shell, about the origin
};

/// The points of the edges of a model, each sampled once, so that faces meet without cracks.
class IGS_SHAPE_API igsShapeEdgePoints {
 public:
  igsShapeEdgePoints(const igsShapeModel& model, const igsShapeTolerance& tolerance);
  /// From the start of the edge's curve to its end, not placed; empty where it has none.
  const std::vector<igsPolylinePoint>& of(int edge) const { return m_points[static_cast<std::size_t>(edge)]; }

 private:
  std::vector<std::vector<igsPolylinePoint>> m_points;
};

/// Triangulates one face. `is_measured`: false leaves area and volume 0; to find them takes longer than the triangles.
IGS_SHAPE_API igsShapeMesh igs_mesh(const igsShapeFace& face, const igsShapeEdgePoints& edges,
                                    const igsShapeTolerance& tolerance, bool is_measured = true);
/// All faces of a model, in their order, by `threads` threads (0: as many as the machine has). An empty list where they
/// would have more than `most_in_all` triangles together.
IGS_SHAPE_API std::vector<igsShapeMesh> igs_meshes(const igsShapeModel& model, const igsShapeTolerance& tolerance,
                                                   int threads = 1, bool is_measured = true,
                                                   std::size_t most_in_all = std::numeric_limits<std::size_t>::max());
