#include "igs/shape/private/igsEdgePartners.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>

#include "igs/shape/igsShapeNearest.h"
#include "igs/shape/private/igsPlacedShapes.h"

namespace {
constexpr int most_neighbours = 64, most_followed = 8;

/// By the low corners of their boxes, which do not depend on where a curve begins.
class EdgeCells {
 public:
  explicit EdgeCells(double tolerance) : m_reach(tolerance), m_size(4 * tolerance) {}

  void add(const igsVec3& corner, std::size_t edge) { m_cells[key(corner)].push_back(edge); }
  /// Those whose corners are as near as the tolerance, and others.
  template <class Visit>
  void visit_near(const igsVec3& corner, const Visit& visit) const {
    std::uint64_t seen[8];
    for (int i = 0; i < 8; ++i) {
      const auto moved = [&](double value, int bit) { return value + ((i & bit) != 0 ? m_reach : -m_reach); };
      seen[i] = key({moved(corner.x, 1), moved(corner.y, 2), moved(corner.z, 4)});
      if (std::find(seen, seen + i, seen[i]) != seen + i) continue;
      const auto cell = m_cells.find(seen[i]);
      if (cell == m_cells.end()) continue;
      for (const std::size_t edge : cell->second) {
        if (!visit(edge)) return;
      }
    }
  }

 private:
  std::uint64_t key(const igsVec3& corner) const {
    std::uint64_t all = 0;
    for (const double value : {corner.x, corner.y, corner.z}) {
      all = all * 0x9E3779B97F4A7C15U + std::hash<double>()(std::floor(value / m_size) + 0.0);
    }
    return all;
  }

  double m_reach, m_size;
  std::unordered_map<std::uint64_t, std::vector<std::size_t>> m_cells;
};

bool is_near(const igsBox& a, const igsBox& b, double tolerance) {
  const auto near = [&](double one, double other) { return std::abs(one - other) <= tolerance; };
  return near(a.low.x, b.low.x) && near(a.low.y, b.low.y) && near(a.low.z, b.low.z) && near(a.high.x, b.high.x) &&
         near(a.high.y, b.high.y) && near(a.high.z, b.high.z);
}

/// Edges with about the same box: it is enough to look at some points.
bool run_together(const igsShapeCurve& a, const igsNearestPointOnCurve& near_a, const igsShapeCurve& b,
                  double tolerance) {
  const igsNearestPointOnCurve near_b(b);
  for (const double part : {0.0, 0.5, 1.0}) {
    if (!(near_b(a.point(a.range().at(part))).distance <= tolerance)) return false;
  }
  return near_a(b.point(b.range().at(0.5))).distance <= tolerance;
}
}  // namespace

std::vector<bool> igs_have_partners(const std::vector<igsPlacedEdge>& edges, double tolerance) {
  std::vector<bool> has_partner(edges.size());
  if (!(tolerance > 0) || !std::isfinite(tolerance)) return has_partner;
  EdgeCells cells(tolerance);
  for (std::size_t i = 0; i < edges.size(); ++i) cells.add(edges[i].box.low, i);
  for (std::size_t i = 0; i < edges.size(); ++i) {
    if (has_partner[i] || edges[i].box.is_empty()) continue;
    const igsShapeCurvePtr curve = igs_placed(edges[i].curve, *edges[i].placement);
    std::optional<igsNearestPointOnCurve> near;
    int neighbours_left = most_neighbours, followed_left = most_followed;
    cells.visit_near(edges[i].box.low, [&](std::size_t other) {
      if (other == i || !is_near(edges[i].box, edges[other].box, tolerance)) return --neighbours_left > 0;
      if (!near) near.emplace(*curve);
      if (run_together(*curve, *near, *igs_placed(edges[other].curve, *edges[other].placement), tolerance)) {
        has_partner[i] = has_partner[other] = true;
      }
      return !has_partner[i] && --followed_left > 0;
    });
  }
  return has_partner;
}
