#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsSpanOf.h"
#include "igs/shape/private/igsSplineBasis.h"
#include "igs/surfaces/igs114.h"
#include "igs/surfaces/igs128.h"

namespace {
/// A control point times its weight, with the weight.
struct WeightedPoint {
  double x = 0, y = 0, z = 0, w = 0;

  void add(const WeightedPoint& other, double factor) {
    x += other.x * factor;
    y += other.y * factor;
    z += other.z * factor;
    w += other.w * factor;
  }
  igsVec3 vector() const { return {x, y, z}; }
};

/// The net of a surface, u runs fastest.
struct ControlNet {
  std::vector<WeightedPoint> points;
  bool is_rational = false;
};

/// Where u or v goes once or twice, one partial derivative each.
struct WeightedPartials {
  WeightedPoint point, u, v, uu, uv, vv;

  igsSurfacePoint polynomial() const {
    return {point.vector(), u.vector(), v.vector(), uu.vector(), uv.vector(), vv.vector()};
  }
  /// By the rule for quotients.
  igsSurfacePoint rational() const {
    const double inverse = 1 / point.w;
    igsSurfacePoint at;
    at.point = point.vector() * inverse;
    at.u = (u.vector() - at.point * u.w) * inverse;
    at.v = (v.vector() - at.point * v.w) * inverse;
    at.uu = (uu.vector() - at.u * (2 * u.w) - at.point * uu.w) * inverse;
    at.uv = (uv.vector() - at.v * u.w - at.u * v.w - at.point * uv.w) * inverse;
    at.vv = (vv.vector() - at.v * (2 * v.w) - at.point * vv.w) * inverse;
    return at;
  }
};

igsSurfaceDirection direction_along(const igsSplineBasis& basis) {
  return {.range = basis.range(), .breaks = basis.breaks()};
}

class SplineSurface final : public igsShapeSurface {
 public:
  SplineSurface(igsSplineBasis u, igsSplineBasis v, ControlNet net, std::size_t count_u)
      : igsShapeSurface(direction_along(u), direction_along(v)),
        m_basis_u(std::move(u)),
        m_basis_v(std::move(v)),
        m_net(std::move(net)),
        m_count_u(count_u) {
    find_seams_and_poles();
  }

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide side_u, igsSide side_v) const override {
    igsSplineBasis::Values along_u, along_v;
    m_basis_u.evaluate(u, side_u, along_u);
    m_basis_v.evaluate(v, side_v, along_v);
    WeightedPartials sum;
    const WeightedPoint* row = m_net.points.data() + along_v.first_point * m_count_u + along_u.first_point;
    for (int j = 0; j <= m_basis_v.degree(); ++j, row += m_count_u) {
      WeightedPoint point, first, second;
      for (int i = 0; i <= m_basis_u.degree(); ++i) {
        point.add(row[i], along_u.value[i]);
        first.add(row[i], along_u.first[i]);
        second.add(row[i], along_u.second[i]);
      }
      sum.point.add(point, along_v.value[j]);
      sum.u.add(first, along_v.value[j]);
      sum.uu.add(second, along_v.value[j]);
      sum.v.add(point, along_v.first[j]);
      sum.uv.add(first, along_v.first[j]);
      sum.vv.add(point, along_v.second[j]);
    }
    return m_net.is_rational ? sum.rational() : sum.polynomial();
  }

  igsVec3 evaluate_point(double u, double v, igsSide side_u, igsSide side_v) const override {
    igsSplineBasis::Values along_u, along_v;
    m_basis_u.evaluate_values(u, side_u, along_u);
    m_basis_v.evaluate_values(v, side_v, along_v);
    WeightedPoint sum;
    const WeightedPoint* row = m_net.points.data() + along_v.first_point * m_count_u + along_u.first_point;
    for (int j = 0; j <= m_basis_v.degree(); ++j, row += m_count_u) {
      WeightedPoint point;
      for (int i = 0; i <= m_basis_u.degree(); ++i) point.add(row[i], along_u.value[i]);
      sum.add(point, along_v.value[j]);
    }
    return m_net.is_rational ? sum.vector() * (1 / sum.w) : sum.vector();
  }

 private:
  igsSplineBasis m_basis_u, m_basis_v;
  ControlNet m_net;
  std::size_t m_count_u;
};

/// 0 where there is a weight that is not above 0.
double greatest_weight(const igs128& surface) {
  double greatest = 0, weight = 0;
  for (int j = 0; j < surface.number_of_control_points_v(); ++j) {
    for (int i = 0; i < surface.number_of_control_points_u(); ++i) {
      if (surface.weight(i, j, weight) == 0 || !(weight > 0) || !std::isfinite(weight)) return 0;
      greatest = std::max(greatest, weight);
    }
  }
  return greatest;
}

/// Empty where a point or a weight cannot be used.
ControlNet net_of(const igs128& surface) {
  const double greatest = greatest_weight(surface);
  ControlNet net;
  giPoint3 point;
  double weight = 0;
  for (int j = 0; greatest > 0 && j < surface.number_of_control_points_v(); ++j) {
    for (int i = 0; i < surface.number_of_control_points_u(); ++i) {
      const bool is_there = surface.control_point(i, j, point) != 0 && surface.weight(i, j, weight) != 0;
      if (!is_there || point.is_undefined() || !igsVec3{point.x(), point.y(), point.z()}.is_finite()) return {};
      const double w = weight / greatest;
      net.is_rational = net.is_rational || w != 1;
      net.points.push_back({point.x() * w, point.y() * w, point.z() * w, w});
    }
  }
  return net;
}

/// One coordinate of a bicubic patch with its partial derivatives, `s` and `t` from the patch's corner.
struct Bicubic {
  double value, s, t, ss, st, tt;

  Bicubic(const igsPolynomial<16>& c, double s_at, double t_at) {
    double row[4], row_s[4], row_ss[4];
    for (std::size_t b = 0; b < 4; ++b) {
      const double c0 = c[4 * b], c1 = c[4 * b + 1], c2 = c[4 * b + 2], c3 = c[4 * b + 3];
      row[b] = c0 + s_at * (c1 + s_at * (c2 + s_at * c3));
      row_s[b] = c1 + s_at * (2 * c2 + s_at * 3 * c3);
      row_ss[b] = 2 * c2 + 6 * s_at * c3;
    }
    const auto cubic = [&](const double(&r)[4]) { return r[0] + t_at * (r[1] + t_at * (r[2] + t_at * r[3])); };
    const auto slope = [&](const double(&r)[4]) { return r[1] + t_at * (2 * r[2] + t_at * 3 * r[3]); };
    value = cubic(row);
    s = cubic(row_s);
    ss = cubic(row_ss);
    t = slope(row);
    st = slope(row_s);
    tt = 2 * row[2] + 6 * t_at * row[3];
  }
};

/// The patches between break points; those of no width are left out.
class PatchSurface final : public igsShapeSurface {
 public:
  PatchSurface(igsSurfaceDirection u, igsSurfaceDirection v, std::vector<igsBicubicPatch> patches)
      : igsShapeSurface(std::move(u), std::move(v)), m_patches(std::move(patches)) {
    find_seams_and_poles();
  }

 protected:
  igsSurfacePoint evaluate(double u_at, double v_at, igsSide side_u, igsSide side_v) const override {
    const std::size_t i = igs_span_of(u().breaks, u_at, side_u), j = igs_span_of(v().breaks, v_at, side_v);
    const igsBicubicPatch& patch = m_patches[i * (v().breaks.size() - 1) + j];
    const double s = u_at - u().breaks[i], t = v_at - v().breaks[j];
    const Bicubic x(patch.x, s, t), y(patch.y, s, t), z(patch.z, s, t);
    return {{x.value, y.value, z.value}, {x.s, y.s, z.s},    {x.t, y.t, z.t},
            {x.ss, y.ss, z.ss},          {x.st, y.st, z.st}, {x.tt, y.tt, z.tt}};
  }

 private:
  std::vector<igsBicubicPatch> m_patches;  ///< v runs fastest
};

/// Break points that differ, with the number of the piece that begins at each.
struct BreakPoints {
  igsSurfaceDirection direction;
  std::vector<int> pieces;
};

/// Without pieces where break points are unset, out of order or all one. `get` copies the one of a number.
template <class Get>
BreakPoints break_points(int num_pieces, Get get) {
  BreakPoints points;
  std::vector<double>& breaks = points.direction.breaks;
  for (int i = 0; i <= num_pieces; ++i) {
    double value = igs_undefined_real;
    if (get(i, value) == 0 || igs_is_undefined_real(value) || !std::isfinite(value)) return {};
    if (!breaks.empty() && value < breaks.back()) return {};
    if (!breaks.empty() && value == breaks.back()) {
      points.pieces.back() = i;
    } else {
      breaks.push_back(value);
      points.pieces.push_back(i);
    }
  }
  if (breaks.size() < 2 || !std::isfinite(breaks.back() - breaks.front())) return {};
  points.direction.range = {breaks.front(), breaks.back()};
  points.pieces.pop_back();
  return points;
}

bool is_usable(const igsPolynomial<16>& polynomial) {
  const auto& c = polynomial.coefficients();
  return std::all_of(c.begin(), c.end(), [](double x) { return std::isfinite(x) && !igs_is_undefined_real(x); });
}
}  // namespace

igsShapeSurfacePtr igs_make_shape(const igs128& surface, igsShapes&) {
  const int count_u = surface.number_of_control_points_u(), count_v = surface.number_of_control_points_v();
  std::optional<igsSplineBasis> u = igsSplineBasis::make(surface.direction_u(), count_u);
  std::optional<igsSplineBasis> v = igsSplineBasis::make(surface.direction_v(), count_v);
  if (!u || !v) return nullptr;
  ControlNet net = net_of(surface);
  if (net.points.empty()) return nullptr;
  return std::make_shared<SplineSurface>(*std::move(u), *std::move(v), std::move(net),
                                         static_cast<std::size_t>(count_u));
}

// u runs from TU(0) to TU(M), v from TV(0) to TV(N).
igsShapeSurfacePtr igs_make_shape(const igs114& surface, igsShapes&) {
  BreakPoints u = break_points(surface.number_of_patches_u(),
                               [&](int i, double& value) { return surface.break_point_u(i, value); });
  BreakPoints v = break_points(surface.number_of_patches_v(),
                               [&](int j, double& value) { return surface.break_point_v(j, value); });
  if (u.pieces.empty() || v.pieces.empty()) return nullptr;
  std::vector<igsBicubicPatch> patches;
  for (const int i : u.pieces) {
    for (const int j : v.pieces) {
      igsBicubicPatch patch;
      if (surface.patch(i, j, patch) == 0 || !is_usable(patch.x) || !is_usable(patch.y) || !is_usable(patch.z)) {
        return nullptr;
      }
      patches.push_back(patch);
    }
  }
  return std::make_shared<PatchSurface>(std::move(u.direction), std::move(v.direction), std::move(patches));
}
