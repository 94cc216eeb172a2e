#include "igs/shape/private/igsMarkPen.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {
constexpr double reach_of_marks = 1e100;
constexpr double most_steps_of_arc = 360;

bool is_within_reach(const igsVec3& point) {
  return std::abs(point.x) < reach_of_marks && std::abs(point.y) < reach_of_marks && std::abs(point.z) < reach_of_marks;
}
}  // namespace

bool igsMarkPen::place(std::vector<igsVec3>& points) const {
  if (!std::all_of(points.begin(), points.end(), is_within_reach)) return false;
  for (igsVec3& point : points) point = m_placement.point(point);
  return std::all_of(points.begin(), points.end(), is_within_reach);
}

void igsMarkPen::point(const igsVec3& point) const {
  std::vector<igsVec3> points{point};
  if (place(points)) m_drawing.points.push_back(points[0]);
}

void igsMarkPen::line(std::vector<igsVec3> points) const {
  if (points.size() > 1 && place(points)) m_drawing.lines.push_back(std::move(points));
}

void igsMarkPen::area(std::vector<igsVec3> corners) const {
  if (corners.size() > 2 && place(corners)) m_drawing.areas.push_back(std::move(corners));
}

void igsMarkPen::text(igsShapeText text) const {
  std::vector<igsVec3> corners{text.start, text.start + text.along, text.start + text.up};
  if (!place(corners)) return;
  text.start = corners[0];
  text.along = corners[1] - corners[0];
  text.up = corners[2] - corners[0];
  m_drawing.texts.push_back(std::move(text));
}

std::vector<igsVec3> igs_arc_points(const igsVec3& centre, const igsVec3& first, const igsVec3& second, double sweep,
                                    const igsShapeTolerance& tolerance) {
  const double radius = std::max(first.length(), second.length());
  const double of_chord = 2 * std::acos(std::clamp(1 - tolerance.chord / radius, -1.0, 1.0));
  const double least = std::max(1.0, std::abs(sweep) / (std::numbers::pi / 4));
  const double wanted = std::abs(sweep) / std::min(tolerance.angle, of_chord);
  const int steps = std::isfinite(wanted) ? static_cast<int>(std::ceil(std::clamp(wanted, least, most_steps_of_arc)))
                                          : static_cast<int>(most_steps_of_arc);
  std::vector<igsVec3> points;
  for (int i = 0; i <= steps; ++i) {
    const double angle = sweep * i / steps;
    points.push_back(centre + first * std::cos(angle) + second * std::sin(angle));
  }
  return points;
}
