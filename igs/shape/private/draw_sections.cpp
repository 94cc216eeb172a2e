#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <vector>

#include "igs/annotation/igs230.h"
#include "igs/shape/private/igsMarkDrawing.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
constexpr double most_hatch_crossings = 1000;  // beside one for each piece of the outlines
constexpr double farthest_hatch_line = 1e12;   // from the area's point, in distances

/// In units of the distance of the hatch lines: along them, and across them from the first one on.
using HatchPoint = igsVec2;

struct HatchCrossing {
  std::int64_t line;
  double along;
  bool operator<(const HatchCrossing& other) const { return std::tie(line, along) < std::tie(other.line, other.along); }
};

class Hatching {
 public:
  explicit Hatching(const igs230& area)
      : m_point(igs_vec_of(area.point())),
        m_distance(area.distance()),
        m_along{std::cos(area.angle()), std::sin(area.angle()), 0} {}

  void add_outline(const igsShapeCurve& curve, const igsShapeTolerance& tolerance);
  void draw(const igsMarkPen& pen);

 private:
  double step() const;
  void cross(const std::vector<HatchPoint>& outline, double step);

  igsVec3 m_point;
  double m_distance;
  igsVec3 m_along;
  std::vector<std::vector<HatchPoint>> m_outlines;  ///< the last point is the first
  std::vector<HatchCrossing> m_crossings;
};

void Hatching::add_outline(const igsShapeCurve& curve, const igsShapeTolerance& tolerance) {
  std::vector<HatchPoint>& outline = m_outlines.emplace_back();
  for (const igsPolylinePoint& point : igs_polyline(curve, tolerance)) {
    const igsVec3 from = (point.point - m_point) * (1 / m_distance);
    outline.push_back({m_along.dot(from), m_along.x * from.y - m_along.y * from.x});
  }
  if (!outline.empty()) outline.push_back(outline.front());
}

// Every line, or, where they are too many, every second, third, ...
double Hatching::step() const {
  double crossings = 0;
  for (const std::vector<HatchPoint>& outline : m_outlines) {
    for (std::size_t i = 1; i < outline.size(); ++i) crossings += std::abs(outline[i].y - outline[i - 1].y);
  }
  return std::max(1.0, std::ceil(crossings / most_hatch_crossings));
}

void Hatching::cross(const std::vector<HatchPoint>& outline, double step) {
  for (std::size_t i = 1; i < outline.size(); ++i) {
    const auto [low, high] =
        std::minmax(outline[i - 1], outline[i], [](const HatchPoint& a, const HatchPoint& b) { return a.y < b.y; });
    const double first = std::ceil(low.y / step), end = std::ceil(high.y / step);
    if (!(std::abs(first) < farthest_hatch_line && std::abs(end) < farthest_hatch_line)) continue;
    for (auto line = static_cast<std::int64_t>(first); line < static_cast<std::int64_t>(end); ++line) {
      const double part = (static_cast<double>(line) * step - low.y) / (high.y - low.y);
      const double along = low.x + part * (high.x - low.x);
      if (std::isfinite(along)) m_crossings.push_back({line, along});
    }
  }
}

void Hatching::draw(const igsMarkPen& pen) {
  const double step = this->step();
  for (const std::vector<HatchPoint>& outline : m_outlines) cross(outline, step);
  std::sort(m_crossings.begin(), m_crossings.end());
  const igsVec3 across{-m_along.y, m_along.x, 0};
  const auto place = [&](const HatchCrossing& crossing) {
    return m_point + (m_along * crossing.along + across * (static_cast<double>(crossing.line) * step)) * m_distance;
  };
  // A line crosses closed outlines an even number of times.
  for (std::size_t i = 0; i + 1 < m_crossings.size(); i += 2) {
    pen.line({place(m_crossings[i]), place(m_crossings[i + 1])});
  }
}
}  // namespace

void igs_draw_hatching(const igs230& area, const std::vector<const igsObject*>& outlines, igsShapes& shapes,
                       const igsMarkPen& pen) {
  if (area.pattern() == 0 || !(area.distance() > 0)) return;
  Hatching hatching(area);
  for (const igsObject* outline : outlines) {
    const igsShapeCurvePtr curve = shapes.curve(outline);
    if (curve != nullptr) hatching.add_outline(*curve, pen.tolerance());
  }
  hatching.draw(pen);
}
