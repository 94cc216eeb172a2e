#pragma once

#include <cstddef>
#include <vector>

#include "igs/shape/igsShapeModel.h"

/// A boundary curve of a loose face; positions are 0-based.
struct igsFreeBoundary {
  std::size_t face = 0;  ///< in igsShapeModel::faces()
  std::size_t loop = 0;  ///< of the face
  /// In the model-space pieces of the loop, or in those in parameter space where it has no other.
  std::size_t piece = 0;
};

/// The boundary curves of the faces without a shell that run alone: no other one, of another face or of the same, stays
/// within the tolerance. They may be cut into pieces differently. In the order of the faces.
std::vector<igsFreeBoundary> igs_free_boundaries(const igsShapeModel& model, double tolerance);
