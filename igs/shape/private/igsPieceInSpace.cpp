#include "igs/shape/private/igsPieceInSpace.h"

std::vector<igsPieceInSpace> igs_pieces_in_space(const igsShapeFace& face, const igsShapeLoop& loop) {
  std::vector<igsPieceInSpace> pieces;
  const igsShapeSurface* const surface = loop.model.empty() ? face.surface.get() : nullptr;
  if (loop.model.empty() && surface == nullptr) return pieces;
  for (const igsShapePiece& piece : loop.model.empty() ? loop.parameter : loop.model) {
    if (piece.curve == nullptr || !piece.curve->range().is_finite()) continue;
    pieces.push_back({&piece, piece.curve.get(), &face.placement, surface});
  }
  return pieces;
}
