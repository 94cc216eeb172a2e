#include "igs/shape/private/igsFaceIntegral.h"

#include <algorithm>
#include <cmath>

namespace {
using ParameterPolygon = std::vector<igsVec2>;

/// A place in a triangle by the shares of its first two corners, with its weight: exact up to degree 5.
struct TrianglePlace {
  double a, b, weight;
};
constexpr double near_side = 0.470142064105115, near_corner = 0.101286507323456;
constexpr double weight_side = 0.132394152788506, weight_corner = 0.125939180544827;
constexpr TrianglePlace triangle_places[] = {
    {1.0 / 3, 1.0 / 3, 0.225},
    {near_side, near_side, weight_side},
    {near_side, 1 - 2 * near_side, weight_side},
    {1 - 2 * near_side, near_side, weight_side},
    {near_corner, near_corner, weight_corner},
    {near_corner, 1 - 2 * near_corner, weight_corner},
    {1 - 2 * near_corner, near_corner, weight_corner},
};
constexpr struct {
  double at, weight;
} line_places[] = {{0.046910077030668, 0.118463442528095},
                   {0.230765344947158, 0.239314335249683},
                   {0.5, 0.284444444444444},
                   {0.769234655052842, 0.239314335249683},
                   {0.953089922969332, 0.118463442528095}};

double in_one_period(double t, const igsSurfaceDirection& direction) {
  if (!direction.is_closed) return 0;
  const double period = direction.range.length();
  return period * std::floor((t - direction.range.low) / period);
}

class FaceSum {
 public:
  FaceSum(const igsShapeSurface& surface, const igsPlacement& placement, double about, std::size_t triangles)
      : m_surface(surface),
        m_placement(placement),
        m_about(about),
        m_parts_left(parts_always + parts_each * triangles) {}

  // Cut at the breaks of the surface, between which it is smooth.
  void add_triangle(const igsVec2& a, const igsVec2& b, const igsVec2& c) {
    if (m_parts_left == 0) return add_smooth(a, b, c);
    std::vector<ParameterPolygon> strips{{a, b, c}}, cells;
    for (const ParameterPolygon& strip : strips) cut(strip, false, cells);
    strips.clear();
    for (const ParameterPolygon& cell : cells) cut(cell, true, strips);
    m_parts_left -= std::min(m_parts_left, strips.size() - 1);
    for (const ParameterPolygon& part : strips) {
      for (std::size_t i = 2; i < part.size(); ++i) add_smooth(part[0], part[i - 1], part[i]);
    }
  }

  /// What lies between the straight side of a triangle, which is on its left, and the line of the border.
  void add_sliver(const igsVec2& from, const igsVec2& to, const std::array<igsVec2, 3>& between) {
    const igsVec2 along = to - from;
    igsVec2 off[3];
    double most = 0;
    for (int i = 0; i < 3; ++i) {
      off[i] = between[static_cast<std::size_t>(i)] - (from + along * (0.25 * (i + 1)));
      most = std::max({most, std::abs(off[i].x), std::abs(off[i].y)});
    }
    if (!(most > 1e-12 * along.length())) return;
    for (const auto& place : line_places) {
      const double t = place.at;
      // The polynomial that is 0 at the ends and `off` at the quarters, and its slope.
      const double l1 = shape_at(t, 0.5, 0.75), l2 = shape_at(t, 0.25, 0.75), l3 = shape_at(t, 0.25, 0.5);
      const double d1 = slope_at(t, 0.5, 0.75), d2 = slope_at(t, 0.25, 0.75), d3 = slope_at(t, 0.25, 0.5);
      const double n1 = shape_at(0.25, 0.5, 0.75), n2 = shape_at(0.5, 0.25, 0.75), n3 = shape_at(0.75, 0.25, 0.5);
      const igsVec2 aside = off[0] * (l1 / n1) + off[1] * (l2 / n2) + off[2] * (l3 / n3);
      const igsVec2 slope = off[0] * (d1 / n1) + off[1] * (d2 / n2) + off[2] * (d3 / n3);
      for (const double share : {0.211324865405187, 0.788675134594813}) {
        const double size = (along + slope * share).cross(aside);
        add(value_at(from + along * t + aside * share), -0.5 * place.weight * size);
      }
    }
  }

  igsFaceIntegral sum() const { return m_sum; }

 private:
  static double shape_at(double t, double p, double q) { return t * (1 - t) * (t - p) * (t - q); }
  static double slope_at(double t, double p, double q) {
    return (1 - 2 * t) * (t - p) * (t - q) + t * (1 - t) * (2 * t - p - q);
  }

  void add(const igsFaceIntegral& value, double weight) {
    m_sum.area += weight * value.area;
    m_sum.volume += weight * value.volume;
  }

  igsFaceIntegral value_at(const igsVec2& uv) const {
    const igsSurfacePoint at = m_surface.at(uv);
    const igsVec3 across = m_placement.vector(at.u).cross(m_placement.vector(at.v));
    return {across.length(), m_placement.point(at.point).dot(across) / 3};
  }

  void cut(const ParameterPolygon& polygon, bool along_v, std::vector<ParameterPolygon>& parts) const {
    constexpr std::ptrdiff_t most_cuts = 24;
    const igsSurfaceDirection& direction = along_v ? m_surface.v() : m_surface.u();
    const auto coordinate = [&](const igsVec2& uv) { return along_v ? uv.y : uv.x; };
    double low = coordinate(polygon.front()), high = low;
    for (const igsVec2& uv : polygon) {
      low = std::min(low, coordinate(uv));
      high = std::max(high, coordinate(uv));
    }
    const double shift = in_one_period(low, direction);
    const auto first = std::upper_bound(direction.breaks.begin(), direction.breaks.end(), low - shift);
    const auto last = std::lower_bound(first, direction.breaks.end(), high - shift);
    ParameterPolygon rest = polygon;
    const std::ptrdiff_t step = (last - first) / most_cuts + 1;
    for (auto it = first; it < last; it += std::min(step, last - it)) {
      ParameterPolygon below, above;
      divide(rest, along_v, *it + shift, below, above);
      parts.push_back(std::move(below));
      rest = std::move(above);
    }
    parts.push_back(std::move(rest));
  }

  static void divide(const ParameterPolygon& polygon, bool along_v, double at, ParameterPolygon& below,
                     ParameterPolygon& above) {
    const auto height = [&](const igsVec2& uv) { return (along_v ? uv.y : uv.x) - at; };
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      const igsVec2 &from = polygon[i], &to = polygon[(i + 1) % polygon.size()];
      const double from_height = height(from), to_height = height(to);
      if (from_height <= 0) below.push_back(from);
      if (from_height >= 0) above.push_back(from);
      if ((from_height < 0 && to_height > 0) || (from_height > 0 && to_height < 0)) {
        const igsVec2 met = from + (to - from) * (from_height / (from_height - to_height));
        below.push_back(met);
        above.push_back(met);
      }
    }
  }

  struct SmoothPart {
    igsVec2 a, b, c;
    int depth;
  };

  // Where the size of the partials varies much over a triangle, it is quartered.
  void add_smooth(const igsVec2& a, const igsVec2& b, const igsVec2& c) {
    constexpr int deepest = 4;
    constexpr double much = 0.3, negligible = 1e-5;  // of the mean, and of the whole face
    std::vector<SmoothPart>& waiting = m_waiting;
    waiting.push_back({a, b, c, 0});
    while (!waiting.empty()) {
      const SmoothPart part = waiting.back();
      waiting.pop_back();
      const double size = (part.b - part.a).cross(part.c - part.a) / 2;
      if (!(std::abs(size) > 0)) continue;
      igsFaceIntegral mean;
      double least = std::numeric_limits<double>::infinity(), most = 0;
      for (const TrianglePlace& place : triangle_places) {
        const igsVec2 uv = part.a * place.a + part.b * place.b + part.c * (1 - place.a - place.b);
        const igsFaceIntegral value = value_at(uv);
        least = std::min(least, value.area);
        most = std::max(most, value.area);
        mean.area += place.weight * value.area;
        mean.volume += place.weight * value.volume;
      }
      const double spread = most - least;
      const bool varies = spread > much * mean.area && spread * size > negligible * m_about;
      if (!varies || part.depth >= deepest || m_parts_left == 0) {
        add(mean, size);
        continue;
      }
      const igsVec2 ab = (part.a + part.b) * 0.5, bc = (part.b + part.c) * 0.5, ca = (part.c + part.a) * 0.5;
      const int depth = part.depth + 1;
      --m_parts_left;
      waiting.insert(waiting.end(),
                     {{part.a, ab, ca, depth}, {ab, part.b, bc, depth}, {ca, bc, part.c, depth}, {ab, bc, ca, depth}});
    }
  }

  static constexpr std::size_t parts_always = 5'000, parts_each = 4;

  const igsShapeSurface& m_surface;
  const igsPlacement& m_placement;
  double m_about;            // the area, as far as it is known beforehand
  std::size_t m_parts_left;  // that may yet be cut into more
  igsFaceIntegral m_sum;
  std::vector<SmoothPart> m_waiting;
};

double area_of_triangles(const igsPlacement& placement, const igsFaceTriangles& triangles) {
  double sum = 0;
  for (const std::array<int, 3>& corners : triangles.triangles) {
    const auto point = [&](int i) { return triangles.vertices[static_cast<std::size_t>(i)].point; };
    const igsVec3 from = point(corners[0]), first = point(corners[1]) - from, second = point(corners[2]) - from;
    sum += placement.vector(first).cross(placement.vector(second)).length() / 2;
  }
  return sum;
}
}  // namespace

igsFaceIntegral igs_integrate(const igsShapeSurface& surface, const igsPlacement& placement,
                              const igsFaceDomain& domain, const igsFaceTriangles& triangles) {
  FaceSum sum(surface, placement, area_of_triangles(placement, triangles), triangles.triangles.size());
  const auto uv_of = [&](int vertex) { return triangles.vertices[static_cast<std::size_t>(vertex)].uv; };
  for (const std::array<int, 3>& corners : triangles.triangles) {
    sum.add_triangle(uv_of(corners[0]), uv_of(corners[1]), uv_of(corners[2]));
  }
  for (const igsFaceTriangles::Side& side : triangles.sides) {
    const igsDomainLine& line = domain.lines[static_cast<std::size_t>(side.line)];
    std::array<igsVec2, 3> between = line.between;
    if (triangles.vertex_of[static_cast<std::size_t>(line.from)] != side.from) std::swap(between[0], between[2]);
    sum.add_sliver(uv_of(side.from), uv_of(side.to), between);
  }
  return sum.sum();
}
