#include "igs/shape/private/igsFaceTriangles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "igs/shape/private/igsFaceGrid.h"
#include "igs/shape/private/igsLine.h"
#include "igs/shape/private/igsTriangulation.h"

namespace {
std::uint64_t side_key(int from, int to) {
  const auto low = static_cast<std::uint32_t>(std::min(from, to)),
             high = static_cast<std::uint32_t>(std::max(from, to));
  return (std::uint64_t{low} << 32) | high;
}

igsVec2 low_of(const igsFaceDomain& domain) {
  igsVec2 low = domain.points.front().uv;
  for (const igsDomainPoint& point : domain.points) low = {std::min(low.x, point.uv.x), std::min(low.y, point.uv.y)};
  return low;
}
igsVec2 high_of(const igsFaceDomain& domain) {
  igsVec2 high = domain.points.front().uv;
  for (const igsDomainPoint& point : domain.points) {
    high = {std::max(high.x, point.uv.x), std::max(high.y, point.uv.y)};
  }
  return high;
}

/// By how much u and v are stretched, for triangles to have about their shape in space.
igsVec2 stretch_of(const igsShapeSurface& surface, const igsVec2& low, const igsVec2& high) {
  constexpr int count = 5;
  igsVec2 sum;
  for (int i = 0; i < count * count; ++i) {
    const int row = i / count, column = i % count;
    const double u = igsRange{low.x, high.x}.at((column + 0.5) / count);
    const double v = igsRange{low.y, high.y}.at((row + 0.5) / count);
    const igsSurfacePoint at = surface.at(u, v);
    sum = sum + igsVec2{at.u.length(), at.v.length()};
  }
  constexpr double least = 1e-6;
  const double u = std::isfinite(sum.x) ? sum.x * (high.x - low.x) : 0;
  const double v = std::isfinite(sum.y) ? sum.y * (high.y - low.y) : 0;
  const double most = std::max(u, v);
  if (!(most > 0)) return {1, 1};
  // Relative to the size of the part: neither side is drawn to nothing.
  return {std::max(u / most, least) / std::max(high.x - low.x, 1e-300),
          std::max(v / most, least) / std::max(high.y - low.y, 1e-300)};
}

class Triangulator {
 public:
  Triangulator(const igsShapeSurface& surface, const igsFaceDomain& domain, const igsShapeTolerance& tolerance,
               igsFaceTriangles& result)
      : m_surface(surface),
        m_domain(domain),
        m_tolerance(tolerance),
        m_low(low_of(domain)),
        m_high(high_of(domain)),
        m_stretch(stretch_of(surface, m_low, m_high)),
        m_triangulation(stretched(m_low), stretched(m_high)),
        m_result(result) {}

  bool run() {
    if (!add_border() || !m_is_sound) return false;
    add_grid();
    refine();
    collect();
    return m_is_sound;
  }

 private:
  igsVec2 stretched(const igsVec2& uv) const {
    return {(uv.x - m_low.x) * m_stretch.x, (uv.y - m_low.y) * m_stretch.y};
  }
  igsVec2 unstretched(const igsVec2& point) const {
    return {m_low.x + point.x / m_stretch.x, m_low.y + point.y / m_stretch.y};
  }

  igsFaceVertex& vertex(int number) { return m_result.vertices[static_cast<std::size_t>(number)]; }

  bool add_border() {
    std::vector<igsVec2> points;
    for (const igsDomainPoint& point : m_domain.points) points.push_back(stretched(point.uv));
    m_result.vertex_of = m_triangulation.add_points(points);
    for (std::size_t i = 0; i < m_domain.lines.size(); ++i) {
      const igsDomainLine& line = m_domain.lines[i];
      const int from = vertex_at(line.from), to = vertex_at(line.to);
      if (from == to) continue;
      if (!m_triangulation.add_constraint(from, to)) return false;
      m_lines.emplace(side_key(from, to), static_cast<int>(i));
    }
    m_result.vertices.resize(static_cast<std::size_t>(m_triangulation.num_vertices()));
    for (std::size_t i = points.size(); i-- > 0;) {  // the first of those that are one vertex counts
      set_vertex(m_result.vertex_of[i], m_domain.points[i].uv);
      vertex(m_result.vertex_of[i]).point = m_domain.points[i].point;
    }
    for (const int crossing : m_triangulation.crossings()) {
      set_vertex(crossing, unstretched(m_triangulation.point(crossing)));
    }
    m_result.num_crossings = m_triangulation.crossings().size();
    return true;
  }

  int vertex_at(int point) const { return m_result.vertex_of[static_cast<std::size_t>(point)]; }

  // Farther out, the squares of distances may be infinite, and sides would be split in vain.
  static constexpr double farthest = 1e100;

  void set_vertex(int number, const igsVec2& uv) {
    const igsSurfacePoint at = m_surface.at(uv);
    vertex(number) = {uv, at.point, igs_normal_near(m_surface, uv, at)};
    m_is_sound = m_is_sound && at.point.length() < farthest;
  }

  bool is_full() const { return m_result.vertices.size() > m_tolerance.most / 2; }

  bool add_inner(const igsVec2& uv, int near) {
    const int number = m_triangulation.add_inner_point(stretched(uv), near);
    if (number < 0) return false;
    m_result.vertices.resize(static_cast<std::size_t>(m_triangulation.num_vertices()));
    set_vertex(number, uv);
    return true;
  }

  void add_grid() {
    if (!(m_high.x > m_low.x) || !(m_high.y > m_low.y)) return;
    const igsGridLines u = igs_grid_lines(m_surface, false, m_low, m_high, m_tolerance);
    const igsGridLines v = igs_grid_lines(m_surface, true, m_low, m_high, m_tolerance);
    m_kinks_u = u.kinks;
    m_kinks_v = v.kinks;
    const igsVec2 step{(m_high.x - m_low.x) / static_cast<double>(u.at.size() + 1),
                       (m_high.y - m_low.y) / static_cast<double>(v.at.size() + 1)};
    if (static_cast<double>(u.at.size()) * static_cast<double>(v.at.size()) >
        static_cast<double>(m_tolerance.most) / 4) {
      return;
    }
    for (std::size_t i = 0; i < u.at.size(); ++i) {
      for (std::size_t k = 0; k < v.at.size(); ++k) {  // to and fro: the next point is near
        const igsVec2 uv{u.at[i], v.at[i % 2 == 0 ? k : v.at.size() - 1 - k]};
        const int triangle = m_triangulation.triangle_at(stretched(uv));
        if (m_triangulation.is_inside(triangle) && is_clear(uv, step, triangle)) add_inner(uv, triangle);
      }
    }
  }

  /// Whether a grid point is far enough from the border.
  bool is_clear(const igsVec2& uv, const igsVec2& step, int triangle) {
    constexpr double least = 0.3;
    const auto in_steps = [&](int corner) {
      const igsVec2 way = vertex(m_triangulation.triangle(triangle)[static_cast<std::size_t>(corner)]).uv - uv;
      return igsVec2{way.x / step.x, way.y / step.y};
    };
    for (int side = 0; side < 3; ++side) {
      if (!m_triangulation.is_constraint(triangle, side)) continue;
      if (igs_distance_from_line({}, in_steps((side + 1) % 3), in_steps((side + 2) % 3)) < least) return false;
    }
    return true;
  }

  struct Split {
    igsVec2 uv;
    int triangle;
  };

  void refine() {
    constexpr int most_rounds = 16;
    for (int round = 0; round < most_rounds && m_is_sound && !is_full(); ++round) {
      const std::vector<int> changed = m_triangulation.take_changed();
      std::vector<Split> splits;
      for (const int triangle : changed) look_at(triangle, splits);
      if (splits.empty()) return;
      for (const Split& split : splits) {
        if (is_full()) return;
        add_inner(split.uv, split.triangle);
      }
    }
  }

  void look_at(int number, std::vector<Split>& splits) {
    const std::array<int, 3> corners = m_triangulation.triangle(number);
    bool is_split = false;
    for (int side = 0; side < 3; ++side) {
      if (m_triangulation.is_constraint(number, side)) continue;
      const int from = corners[static_cast<std::size_t>((side + 1) % 3)];
      const int to = corners[static_cast<std::size_t>((side + 2) % 3)];
      if (!m_seen.insert(side_key(from, to)).second) continue;
      igsVec2 at;
      if (is_flat(vertex(from), vertex(to), at)) continue;
      splits.push_back({at, number});
      is_split = true;
    }
    if (is_split) return;
    const igsFaceVertex &a = vertex(corners[0]), &b = vertex(corners[1]), &c = vertex(corners[2]);
    const igsVec2 centre = (a.uv + b.uv + c.uv) * (1.0 / 3);
    const igsVec3 normal = (b.point - a.point).cross(c.point - a.point).unit();
    if (std::abs(normal.dot(m_surface.point(centre) - a.point)) > m_tolerance.chord) {
      splits.push_back({centre, number});
    }
  }

  /// Whether a side lies near the surface; where it does not, `at` is where to split it.
  bool is_flat(const igsFaceVertex& from, const igsFaceVertex& to, igsVec2& at) const {
    constexpr double negligible = 0.05;  // of the chord tolerance
    if ((to.point - from.point).length() <= negligible * m_tolerance.chord) return true;
    at = split_between(from.uv, to.uv);
    if (igs_distance_from_line(m_surface.point(at), from.point, to.point) > m_tolerance.chord) return false;
    return !is_turned(from.normal, to.normal) || is_kink_at_end(from.uv, to.uv);
  }

  bool is_turned(const igsVec3& a, const igsVec3& b) const { return a.angle_to(b) > m_tolerance.angle; }

  // A normal that turns at an end of the side alone is that of the other side of a kink.
  bool is_kink_at_end(const igsVec2& from, const igsVec2& to) const {
    if (m_kinks_u.empty() && m_kinks_v.empty()) return false;
    constexpr double inset = 0.02;
    const igsVec2 way = to - from;
    return !is_turned(m_surface.at(from + way * inset).normal(), m_surface.at(to - way * inset).normal());
  }

  igsVec2 split_between(const igsVec2& from, const igsVec2& to) const {
    constexpr double inset = 0.05;
    const auto share_of = [](const std::vector<double>& kinks, double low, double high) {
      for (const double kink : kinks) {
        const double share = (kink - low) / (high - low);
        if (share > inset && share < 1 - inset) return share;
      }
      return 0.0;
    };
    double share = share_of(m_kinks_u, from.x, to.x);
    if (share == 0) share = share_of(m_kinks_v, from.y, to.y);
    return from + (to - from) * (share == 0 ? 0.5 : share);
  }

  void collect() {
    for (int number = 0; number < m_triangulation.num_triangles(); ++number) {
      if (!m_triangulation.is_inside(number)) continue;
      const std::array<int, 3> corners = m_triangulation.triangle(number);
      m_result.triangles.push_back(corners);
      for (int side = 0; side < 3; ++side) {
        if (!m_triangulation.is_constraint(number, side)) continue;
        const int from = corners[static_cast<std::size_t>((side + 1) % 3)];
        const int to = corners[static_cast<std::size_t>((side + 2) % 3)];
        const auto found = m_lines.find(side_key(from, to));
        if (found != m_lines.end()) m_result.sides.push_back({from, to, found->second});
      }
    }
  }

  const igsShapeSurface& m_surface;
  const igsFaceDomain& m_domain;
  const igsShapeTolerance& m_tolerance;
  igsVec2 m_low, m_high, m_stretch;
  igsTriangulation m_triangulation;
  igsFaceTriangles& m_result;
  std::unordered_map<std::uint64_t, int> m_lines;  // of the domain, by the vertices at their ends
  std::unordered_set<std::uint64_t> m_seen;        // sides that were looked at
  std::vector<double> m_kinks_u, m_kinks_v;
  bool m_is_sound = true;
};
}  // namespace

bool igs_triangulate(const igsShapeSurface& surface, const igsFaceDomain& domain, const igsShapeTolerance& tolerance,
                     igsFaceTriangles& triangles) {
  return Triangulator(surface, domain, tolerance, triangles).run();
}
