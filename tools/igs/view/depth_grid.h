#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "view/projection.h"

/// A triangle on the picture; its corners run clockwise on the screen.
struct ScreenTriangle {
  std::array<ScreenPoint, 3> corners;
  std::uint32_t fill = 0;  ///< 0xRRGGBB

  /// Twice the area; above 0 as the corners run.
  std::int64_t area() const;
  std::int64_t depth() const;  ///< of its centre, times three
};

/// What is nearest to the viewer, at samples half a pixel apart, further where the triangles are very many.
class DepthGrid {
 public:
  DepthGrid(const std::vector<ScreenTriangle>& triangles, const Frame& frame);

  /// Calls use(sample, z) for the samples inside a triangle.
  template <class Use>
  void for_each_sample(const ScreenTriangle& triangle, Use use) const;
  /// The nearest triangle at a sample; -1 where there is none.
  int top(std::size_t sample) const { return m_tops[sample]; }
  int depth(std::size_t sample) const { return m_depths[sample]; }
  /// The sample at a point, which is in the frame or next to it.
  std::size_t sample_at(const ScreenPoint& point) const;
  std::size_t num_samples() const { return m_tops.size(); }
  int step() const { return m_step; }
  /// Whether a point is in front of everything, or by at most `slack` behind it, here or right beside it.
  bool is_visible(const ScreenPoint& point, int slack) const;

 private:
  struct Plane;
  int first_from(std::int64_t position) const;

  Frame m_frame;
  int m_step;
  int m_columns, m_rows;
  std::vector<int> m_tops, m_depths;
};

/// The equation of the plane of a triangle, exact.
struct DepthGrid::Plane {
  explicit Plane(const ScreenTriangle& triangle);
  int depth(int x, int y) const;

  ScreenPoint origin;
  std::int64_t along_x, along_y, divisor;
};

inline int DepthGrid::Plane::depth(int x, int y) const {
  const std::int64_t rise = along_x * (x - origin.x) + along_y * (y - origin.y);
  return origin.z + static_cast<int>(static_cast<double>(rise) / static_cast<double>(divisor));
}

/// The part of a row at `y` that is inside a triangle, [0] up to but without [1], rounded up; empty where it is not
/// crossed. Triangles that share a side share no point.
std::array<std::int64_t, 2> span_of(const ScreenTriangle& triangle, int y);

template <class Use>
void DepthGrid::for_each_sample(const ScreenTriangle& triangle, Use use) const {
  const auto& [a, b, c] = triangle.corners;
  const Plane plane(triangle);
  const int last = std::max({a.y, b.y, c.y}) - m_frame.top;
  for (int row = first_from(std::min({a.y, b.y, c.y}) - m_frame.top); row < m_rows; ++row) {
    const int y = row * m_step;
    if (y >= last) break;
    const std::array<std::int64_t, 2> span = span_of(triangle, y + m_frame.top);
    for (int column = first_from(span[0] - m_frame.left); column < m_columns; ++column) {
      const int x = column * m_step;
      if (x >= span[1] - m_frame.left) break;
      use(static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) + static_cast<std::size_t>(column),
          plane.depth(x + m_frame.left, y + m_frame.top));
    }
  }
}
