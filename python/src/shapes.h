#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

#include "igs/shape/igsShapeMesh.h"
#include "igs/shape/igsShapeModel.h"
#include "igs/shape/igsShapes.h"

/// What the entities of a file look like, worked out when it is first asked for; of the file as it is at that moment.
class FileShapes {
 public:
  explicit FileShapes(const igsFile& file) : m_file(file), m_shapes(file) {}

  igsShapes& shapes() { return m_shapes; }
  const igsShapeModel& model();
  /// The positions of the faces that an entity is, or has: a face, a shell or a solid. Empty for any other.
  const std::vector<std::size_t>& faces_of(const igsObject& entity);
  /// The points of the model's edges; those of the tolerance asked last are kept.
  const igsShapeEdgePoints& edge_points(const igsShapeTolerance& tolerance);

 private:
  void list_faces();

  const igsFile& m_file;
  igsShapes m_shapes;
  std::unique_ptr<igsShapeModel> m_model;
  std::unordered_map<const igsObject*, std::vector<std::size_t>> m_faces;
  std::unique_ptr<igsShapeEdgePoints> m_edge_points;
  igsShapeTolerance m_tolerance;
};
