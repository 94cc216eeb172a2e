#include "view/depth_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int finest_step = units_per_pixel / 2;
constexpr double most_samples = 60'000'000;  // in all triangles together

/// So far apart that the samples of all triangles together are not too many.
int step_for(const std::vector<ScreenTriangle>& triangles) {
  double area = 0;
  for (const ScreenTriangle& triangle : triangles) area += static_cast<double>(triangle.area()) / 2;
  return std::max(finest_step, static_cast<int>(std::ceil(std::sqrt(area / most_samples))));
}

std::int64_t ceiling(std::int64_t numerator, std::int64_t divisor) {
  return numerator > 0 ? (numerator + divisor - 1) / divisor : numerator / divisor;
}

}  // namespace

std::int64_t ScreenTriangle::area() const {
  const auto& [a, b, c] = corners;
  return std::int64_t{b.x - a.x} * (c.y - a.y) - std::int64_t{b.y - a.y} * (c.x - a.x);
}

std::int64_t ScreenTriangle::depth() const { return std::int64_t{corners[0].z} + corners[1].z + corners[2].z; }

std::array<std::int64_t, 2> span_of(const ScreenTriangle& triangle, int y) {
  std::array<std::int64_t, 2> ends{0, 0};
  std::size_t found = 0;
  for (std::size_t i = 0; i < 3 && found < 2; ++i) {
    const ScreenPoint *upper = &triangle.corners.at(i), *lower = &triangle.corners.at((i + 1) % 3);
    if (lower->y < upper->y) std::swap(upper, lower);
    if (y < upper->y || y >= lower->y) continue;
    ends.at(found++) =
        upper->x + ceiling(std::int64_t{lower->x - upper->x} * (y - upper->y), std::int64_t{lower->y - upper->y});
  }
  if (ends[0] > ends[1]) std::swap(ends[0], ends[1]);
  return ends;
}

DepthGrid::Plane::Plane(const ScreenTriangle& triangle) : origin(triangle.corners[0]), divisor(triangle.area()) {
  const auto& [a, b, c] = triangle.corners;
  along_x = std::int64_t{b.z - a.z} * (c.y - a.y) - std::int64_t{c.z - a.z} * (b.y - a.y);
  along_y = std::int64_t{c.z - a.z} * (b.x - a.x) - std::int64_t{b.z - a.z} * (c.x - a.x);
}

DepthGrid::DepthGrid(const std::vector<ScreenTriangle>& triangles, const Frame& frame)
    : m_frame(frame),
      m_step(step_for(triangles)),
      m_columns(frame.width / m_step + 1),
      m_rows(frame.height / m_step + 1),
      m_tops(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), -1),
      m_depths(m_tops.size(), std::numeric_limits<int>::min()) {
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    for_each_sample(triangles[i], [&](std::size_t sample, int z) {
      if (z <= m_depths[sample]) return;
      m_depths[sample] = z;
      m_tops[sample] = static_cast<int>(i);
    });
  }
}

int DepthGrid::first_from(std::int64_t position) const {
  return position <= 0 ? 0 : static_cast<int>(ceiling(position, m_step));
}

std::size_t DepthGrid::sample_at(const ScreenPoint& point) const {
  const int column = std::clamp((point.x - m_frame.left + m_step / 2) / m_step, 0, m_columns - 1);
  const int row = std::clamp((point.y - m_frame.top + m_step / 2) / m_step, 0, m_rows - 1);
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) + static_cast<std::size_t>(column);
}

bool DepthGrid::is_visible(const ScreenPoint& point, int slack) const {
  for (const int down : {0, -m_step, m_step}) {
    for (const int right : {0, -m_step, m_step}) {
      const std::size_t sample = sample_at({point.x + right, point.y + down});
      if (m_tops[sample] < 0 || point.z + slack >= m_depths[sample]) return true;
    }
  }
  return false;
}
