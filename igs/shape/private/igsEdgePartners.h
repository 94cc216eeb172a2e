#pragma once

#include <vector>

#include "igs/shape/igsPlacement.h"
#include "igs/shape/igsShapeCurve.h"
#include "igs/shape/igsVec.h"

/// A curve of finite range where a face has it.
struct igsPlacedEdge {
  igsShapeCurvePtr curve;
  const igsPlacement* placement = nullptr;
  igsBox box;  ///< the smallest, placed
};

/// For each edge whether another of them runs along it, in either direction and wherever it begins, within the
/// tolerance. Of many that could, some are looked at.
std::vector<bool> igs_have_partners(const std::vector<igsPlacedEdge>& edges, double tolerance);
