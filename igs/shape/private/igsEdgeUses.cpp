#include "igs/shape/private/igsEdgeUses.h"

#include <algorithm>
#include <cstddef>

std::vector<igsEdgeUse> igs_edge_uses(const igsShapeModel& model, const igsShapeShell& shell) {
  std::vector<igsEdgeUse> uses;
  for (std::size_t i = shell.first_face; i < shell.end_face; ++i) {
    const igsShapeFace& face = model.faces()[i];
    for (const igsShapeLoop& loop : face.loops) {
      for (const igsShapePiece& piece : loop.model) {
        if (piece.edge >= 0) uses.push_back({&face, &piece});
      }
    }
  }
  std::stable_sort(uses.begin(), uses.end(),
                   [](const igsEdgeUse& a, const igsEdgeUse& b) { return a.piece->edge < b.piece->edge; });
  return uses;
}
