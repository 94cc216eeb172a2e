#include "view/projection.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double deepest = 2'000'000;   // of z; plane equations of triangles then stay below 2^53
constexpr double least_width = 1e-300;  // of a unit of the picture; what is divided by less may be infinite

int whole(double value) { return static_cast<int>(std::floor(value + 0.5)); }

}  // namespace

igsVec3 usual_direction(const igsBox& box) {
  const igsVec3 size = box.is_empty() ? igsVec3{} : box.high - box.low;
  const double flat = 1e-6 * std::max({size.x, size.y, size.z});
  if (size.z <= flat) return {0, 0, -1};
  if (size.y <= flat) return {0, 1, 0};
  if (size.x <= flat) return {-1, 0, 0};
  return {-1, 1, -1};
}

Projection::Projection(const Scene& scene, const igsVec3& direction, const Frame& frame) {
  const igsVec3 ahead = direction.unit();
  const bool is_along_z = ahead.cross({0, 0, 1}).length() < 1e-6;
  m_right = ahead.cross(is_along_z ? igsVec3{0, 1, 0} : igsVec3{0, 0, 1}).unit();
  m_up = m_right.cross(ahead);
  m_back = ahead * -1;
  igsBox box;
  for (const SceneItem& item : scene.items) {
    if (item.is_off) continue;
    for_each_point(item, [&](const igsVec3& point) { box.add(turned(point)); });
  }
  if (box.is_empty()) box.add(igsVec3{});
  const igsVec3 size = box.high - box.low;
  m_centre = (box.low + box.high) * 0.5;
  const double width = std::max(size.x / frame.width, size.y / frame.height);
  m_scale = width > least_width ? 1 / width : 1;
  m_depth_scale = size.z * m_scale > deepest ? deepest / size.z : m_scale;
  m_middle_x = frame.left + frame.width / 2;
  m_middle_y = frame.top + frame.height / 2;
  const double loose = std::min(2 * scene.tolerance.chord * m_depth_scale, 10.0 * units_per_pixel);
  m_slack = units_per_pixel + whole(std::isfinite(loose) ? loose : 0);
}

ScreenPoint Projection::at(const igsVec3& point) const {
  const igsVec3 shifted = turned(point) - m_centre;
  return {m_middle_x + whole(shifted.x * m_scale), m_middle_y - whole(shifted.y * m_scale),
          whole(shifted.z * m_depth_scale)};
}

igsVec3 Projection::turned(const igsVec3& vector) const {
  return {m_right.dot(vector), m_up.dot(vector), m_back.dot(vector)};
}
