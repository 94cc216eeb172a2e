#pragma once

#include <vector>

#include "igs/shape/igsShapeModel.h"

/// That a face has an edge of the model.
struct igsEdgeUse {
  const igsShapeFace* face;
  const igsShapePiece* piece;  ///< its edge is not -1
};

/// How the faces of a shell use edges: those of one edge follow each other, in the order of the faces, and edges
/// ascend.
std::vector<igsEdgeUse> igs_edge_uses(const igsShapeModel& model, const igsShapeShell& shell);

/// Calls `visit` with the uses of each edge: the first, and the end behind the last.
template <class Visit>
void igs_visit_edges(const std::vector<igsEdgeUse>& uses, Visit visit) {
  for (auto first = uses.begin(), end = first; first != uses.end(); first = end) {
    while (end != uses.end() && end->piece->edge == first->piece->edge) ++end;
    visit(first, end);
  }
}
