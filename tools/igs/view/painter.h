#pragma once

#include <cstddef>
#include <vector>

#include "view/depth_grid.h"
#include "view/svg_path.h"

/// What is painted with one colour at one time.
struct Patch {
  std::uint32_t fill = 0;
  SvgPath outline;  ///< of triangles that are painted one after the other, without the sides between them
};

/// The triangles that are seen, in an order in which what is nearer is painted later. Those of one colour are painted
/// together where the order allows it. At most `most` triangles: the greatest ones.
std::vector<Patch> painted(const std::vector<ScreenTriangle>& triangles, const DepthGrid& grid, std::size_t most);
