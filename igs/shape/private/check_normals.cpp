#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "igs/objects/igsCast.h"
#include "igs/shape/private/igsShapeChecking.h"
#include "igs/shape/private/igsVecOf.h"
#include "igs/surfaces/igs128.h"

namespace {
constexpr double no_sine = 1e-10;
constexpr int num_normals = 3;          // within a span, in each direction
constexpr int num_halvings = 12;        // between two samples
constexpr int highest_order = 16;       // whose spans are looked at one by one
constexpr std::size_t most_spans = 64;  // of a surface

/// All directions between two, which are less than half a turn apart.
class Fan {
 public:
  /// `middle`: from which no direction of the fan may be a right angle or more away.
  explicit Fan(const igsVec2& middle) : m_right(middle), m_left(middle), m_middle(middle) {}

  /// False when the fan would become too wide. A vector without a length has no direction.
  bool add(const igsVec2& vector) {
    if (vector == igsVec2()) return true;
    if (!(m_middle.dot(vector) > 0)) return false;
    if (m_right.cross(vector) < 0) m_right = vector;
    if (m_left.cross(vector) > 0) m_left = vector;
    return true;
  }
  /// True when every direction of `other` is to the left of every one of this, by less than half a turn.
  bool is_right_of(const Fan& other) const {
    return m_left.cross(other.m_right) > 0 && m_right.cross(other.m_left) > 0;
  }

 private:
  igsVec2 m_right, m_left, m_middle;
};

/// The control points of a B-spline surface, and those of them that a span depends on.
class SpanNet {
 public:
  explicit SpanNet(const igs128& surface)
      : m_order_u(surface.order_u()), m_order_v(surface.order_v()), m_count_v(surface.number_of_control_points_v()) {
    giPoint3 point;
    for (int i = 0; i < surface.number_of_control_points_u(); ++i) {
      for (int j = 0; surface.control_point(i, j, point) != 0; ++j) m_points.push_back(igs_vec_of(point));
    }
  }

  /// True only where the normal cannot vanish or turn over within the span whose last control point is (i, j): the
  /// partial derivatives are sums of differences of control points with factors above 0, and seen from a suitable side
  /// all those along v point to the left of those along u. Weights change nothing about it where they are products of
  /// one along u and one along v.
  bool keeps_its_side(int i, int j) const {
    const int u0 = i - m_order_u + 1, v0 = j - m_order_v + 1;
    const igsVec3 along_u = at(i, v0) - at(u0, v0) + (at(i, j) - at(u0, j));
    const igsVec3 along_v = at(u0, j) - at(u0, v0) + (at(i, j) - at(i, v0));
    const igsVec3 y = along_u.cross(along_v).cross(along_u) * (1 / along_u.dot(along_u));
    const auto seen = [&](const igsVec3& vector) { return igsVec2{vector.dot(along_u), vector.dot(y)}; };
    Fan u(seen(along_u)), v(seen(along_v));
    for (int k = u0; k <= i; ++k) {
      for (int l = v0; l <= j; ++l) {
        if (k > u0 && !u.add(seen(at(k, l) - at(k - 1, l)))) return false;
        if (l > v0 && !v.add(seen(at(k, l) - at(k, l - 1)))) return false;
      }
    }
    return u.is_right_of(v);
  }

 private:
  const igsVec3& at(int i, int j) const {
    return m_points[static_cast<std::size_t>(i) * static_cast<std::size_t>(m_count_v) + static_cast<std::size_t>(j)];
  }

  int m_order_u, m_order_v, m_count_v;
  std::vector<igsVec3> m_points;
};

bool has_separable_weights(const igs128& surface) {
  constexpr double same = 1e-9;
  double corner = 0, along_u = 0, along_v = 0, weight = 0;
  if (surface.weight(0, 0, corner) == 0) return false;
  for (int i = 0; surface.weight(i, 0, along_u) != 0; ++i) {
    for (int j = 0; surface.weight(i, j, weight) != 0; ++j) {
      surface.weight(0, j, along_v);
      if (!(std::abs(weight * corner - along_u * along_v) <= same * along_u * along_v)) return false;
    }
  }
  return true;
}

/// A part of a surface in which all derivatives exist.
struct Span {
  igsRange u, v;
};

std::vector<Span> all_spans(const igsShapeSurface& surface) {
  std::vector<Span> spans;
  const std::vector<double>&u = surface.u().breaks, &v = surface.v().breaks;
  for (std::size_t i = 0; i + 1 < u.size(); ++i) {
    for (std::size_t j = 0; j + 1 < v.size(); ++j) spans.push_back({{u[i], u[i + 1]}, {v[j], v[j + 1]}});
  }
  return spans;
}

/// The parts of the spans of one direction that lie in a range, each with the number of its last control point.
std::vector<std::pair<int, igsRange>> used_spans(const igsKnotVector& vector, const igsRange& range) {
  std::vector<std::pair<int, igsRange>> spans;
  double low = 0, high = 0;
  const int order = vector.order();
  for (int i = order - 1; i + order < vector.number_of_knots(); ++i) {
    if (vector.knot(i, low) == 0 || vector.knot(i + 1, high) == 0) break;
    const igsRange span{range.clamp(low), range.clamp(high)};
    if (span.low < span.high) spans.emplace_back(i, span);
  }
  return spans;
}

/// The spans whose control points do not exclude a fault.
std::vector<Span> suspect_spans(const igs128& surface, const igsShapeSurface& shape) {
  if (surface.order_u() > highest_order || surface.order_v() > highest_order || !has_separable_weights(surface)) {
    return all_spans(shape);
  }
  std::vector<Span> suspects;
  const SpanNet net(surface);
  const auto along_v = used_spans(surface.direction_v(), shape.v().range);
  for (const auto& [i, u] : used_spans(surface.direction_u(), shape.u().range)) {
    for (const auto& [j, v] : along_v) {
      if (!net.keeps_its_side(i, j)) suspects.push_back({u, v});
    }
  }
  return suspects;
}

/// Looks for places without a normal, and for folds, within spans.
class Normals {
 public:
  Normals(igsShapeChecking& checking, const igsObject& entity, const igsShapeSurface& surface)
      : m_checking(checking), m_entity(entity), m_surface(surface) {}

  void look_at(const Span& span) {
    std::array<std::array<igsVec3, num_normals>, num_normals> normals;
    const auto uv = [&](int i, int j) {
      return igsVec2{span.u.at((i + 0.5) / num_normals), span.v.at((j + 0.5) / num_normals)};
    };
    for (int i = 0; i < num_normals; ++i) {
      for (int j = 0; j < num_normals; ++j) {
        const auto k = static_cast<std::size_t>(i), l = static_cast<std::size_t>(j);
        normals[k][l] = normal(uv(i, j));
        if (i > 0 && normals[k][l].dot(normals[k - 1][l]) < 0) find_fold(uv(i - 1, j), uv(i, j));
        if (j > 0 && normals[k][l].dot(normals[k][l - 1]) < 0) find_fold(uv(i, j - 1), uv(i, j));
      }
    }
  }

 private:
  /// Not of length 1.
  igsVec3 normal(const igsVec2& uv) {
    const igsSurfacePoint at = m_surface.at(uv);
    const igsVec3 normal = at.u.cross(at.v);
    if (normal.length() <= no_sine * at.u.length() * at.v.length() && !m_has_vanished) {
      m_has_vanished = true;
      m_checking.tag<igsShapeVanishingNormal>(m_entity, uv.x, uv.y);
    }
    return normal;
  }

  // Between two places whose normals point to opposite sides. One that turns gently has turned by less than a right
  // angle in one half and in the other.
  void find_fold(igsVec2 from, igsVec2 to) {
    igsVec3 before = m_surface.at(from).u.cross(m_surface.at(from).v),
            after = m_surface.at(to).u.cross(m_surface.at(to).v);
    for (int i = 0; i < num_halvings && !m_has_fold; ++i) {
      const igsVec2 middle = (from + to) * 0.5;
      const igsSurfacePoint at = m_surface.at(middle);
      const igsVec3 between = at.u.cross(at.v);
      if (before.dot(between) < 0) {
        to = middle;
        after = between;
      } else if (between.dot(after) < 0) {
        from = middle;
        before = between;
      } else {
        return;
      }
    }
    if (m_has_fold) return;
    m_has_fold = true;
    m_checking.tag<igsShapeTurningNormal>(m_entity, from.x, from.y);
  }

  igsShapeChecking& m_checking;
  const igsObject& m_entity;
  const igsShapeSurface& m_surface;
  bool m_has_vanished = false, m_has_fold = false;
};
}  // namespace

void igs_check_normals(igsShapeChecking& checking, const igsObject& surface) {
  const igsShapeSurfacePtr shape = checking.shapes.surface(&surface);
  if (shape == nullptr) return;
  const auto* const spline = igs_cast<igs128>(&surface);
  const std::vector<Span> spans = spline != nullptr ? suspect_spans(*spline, *shape) : all_spans(*shape);
  Normals normals(checking, surface, *shape);
  const std::size_t step = spans.size() / most_spans + 1;
  for (std::size_t i = 0; i < spans.size(); i += step) normals.look_at(spans[i]);
}
