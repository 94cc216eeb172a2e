#pragma once

#include <vector>

#include "igs/shape/igsShapeModel.h"

/// A piece of a loop as the loop runs through it.
struct igsChainLink {
  const igsShapePiece* piece = nullptr;
  bool is_reversed = false;  ///< the loop runs against the piece's curve
  bool is_turned = false;    ///< otherwise than the file says
  igsVec3 start, end;        ///< as the loop runs; of a piece in parameter space their images on the surface
  igsVec2 start_uv, end_uv;  ///< of a piece in parameter space alone
  /// In model units, from the end of the link before to the start of this one; of the first, from the end of the last.
  double gap = 0;
};

/// How the pieces of a loop may be put together.
enum class igsChaining {
  as_given,  ///< each in the direction that the file says
  fitting    ///< turned round where this makes the sum of the gaps smaller
};

/// The pieces of one kind of a loop, in their order, each in its direction. Empty where one of them has no curve of
/// finite range or an end that is not finite. `surface`: for pieces in parameter space; null for model space.
std::vector<igsChainLink> igs_chain(const std::vector<igsShapePiece>& pieces, const igsShapeSurface* surface,
                                    igsChaining chaining = igsChaining::fitting);
/// As given where that leaves no gap above `tolerance`, which takes less time; else fitting.
std::vector<igsChainLink> igs_chain_within(const std::vector<igsShapePiece>& pieces, const igsShapeSurface* surface,
                                           double tolerance);
/// The largest gap; 0 where there are no links.
double igs_largest_gap(const std::vector<igsChainLink>& chain);
