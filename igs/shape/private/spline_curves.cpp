#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "igs/curves/igs112.h"
#include "igs/curves/igs126.h"
#include "igs/objects/igsList.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsSpanOf.h"
#include "igs/shape/private/igsSplineBasis.h"

namespace {
// Up to it curves keep the Bezier points of their pieces, which are several times as many as the control points.
constexpr std::size_t highest_bezier_degree = 8;

using Cubic = std::array<igsVec3, 4>;

class CubicShape final : public igsShapeCurve {
 public:
  CubicShape(const igsRange& range, std::vector<double> ends, std::vector<Cubic> segments)
      : igsShapeCurve(range, std::move(ends)), m_segments(std::move(segments)) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide side) const override {
    const std::size_t i = igs_span_of(breaks(), t, side);
    const auto& [a, b, c, d] = m_segments[i];
    const double s = t - breaks()[i];
    return {((d * s + c) * s + b) * s + a, (d * (3 * s) + c * 2) * s + b, d * (6 * s) + c * 2};
  }

 private:
  std::vector<Cubic> m_segments;
};

Cubic cubic_of(const igsCubicSegment& segment) {
  Cubic cubic;
  for (std::size_t k = 0; k < cubic.size(); ++k) cubic[k] = {segment.x[k], segment.y[k], segment.z[k]};
  return cubic;
}

bool is_finite(const Cubic& cubic) {
  return cubic[0].is_finite() && cubic[1].is_finite() && cubic[2].is_finite() && cubic[3].is_finite();
}

/// The last coordinate is the weight, by which the others are multiplied; 1 in a polynomial spline, of which it is not
/// looked at.
using SplinePoint = std::array<double, 4>;

igsVec3 vec(const SplinePoint& point) { return {point[0], point[1], point[2]}; }

igsCurvePoint curve_point(const SplinePoint& point, const SplinePoint& first, const SplinePoint& second,
                          bool is_rational) {
  if (!is_rational) return {vec(point), vec(first), vec(second)};
  const double inverse = 1 / point[3];
  const igsVec3 at = vec(point) * inverse, slope = (vec(first) - at * first[3]) * inverse;
  return {at, slope, (vec(second) - slope * (2 * first[3]) - at * second[3]) * inverse};
}

/// A spline by its Bezier points, degree + 1 between two breaks each.
class BezierShape final : public igsShapeCurve {
 public:
  BezierShape(const igsSplineBasis& basis, std::vector<SplinePoint> points, bool is_rational)
      : igsShapeCurve(basis.range(), basis.breaks()),
        m_degree(static_cast<std::size_t>(basis.degree())),
        m_points(std::move(points)),
        m_is_rational(is_rational) {}

 protected:
  // De Casteljau's scheme, whose last rounds tell the derivatives.
  igsCurvePoint evaluate(double t, igsSide side) const override {
    const std::size_t piece = igs_span_of(breaks(), t, side), degree = m_degree;
    const double length = breaks()[piece + 1] - breaks()[piece], part = (t - breaks()[piece]) / length;
    SplinePoint rows[highest_bezier_degree + 1], first, second{};
    std::copy_n(m_points.data() + piece * (degree + 1), degree + 1, rows);
    std::size_t last = degree;
    for (; last > 2; --last) halve(rows, last, part);
    const double rate = static_cast<double>(degree) / length;
    if (last == 2) {
      const double rate_of_rate = rate * static_cast<double>(degree - 1) / length;
      for (std::size_t k = 0; k < 4; ++k) second[k] = (rows[2][k] - 2 * rows[1][k] + rows[0][k]) * rate_of_rate;
      halve(rows, 2, part);
    }
    for (std::size_t k = 0; k < 4; ++k) first[k] = (rows[1][k] - rows[0][k]) * rate;
    halve(rows, 1, part);
    return curve_point(rows[0], first, second, m_is_rational);
  }

  igsVec3 evaluate_point(double t, igsSide side) const override {
    const std::size_t piece = igs_span_of(breaks(), t, side);
    const double part = (t - breaks()[piece]) / (breaks()[piece + 1] - breaks()[piece]);
    SplinePoint rows[highest_bezier_degree + 1];
    std::copy_n(m_points.data() + piece * (m_degree + 1), m_degree + 1, rows);
    for (std::size_t last = m_degree; last > 0; --last) halve(rows, last, part);
    return m_is_rational ? vec(rows[0]) * (1 / rows[0][3]) : vec(rows[0]);
  }

 private:
  static void halve(SplinePoint* rows, std::size_t last, double part) {
    for (std::size_t i = 0; i < last; ++i) {
      for (std::size_t k = 0; k < 4; ++k) rows[i][k] = rows[i][k] * (1 - part) + rows[i + 1][k] * part;
    }
  }

  std::size_t m_degree;
  std::vector<SplinePoint> m_points;
  bool m_is_rational;
};

/// A spline by its control points.
class SplineShape final : public igsShapeCurve {
 public:
  SplineShape(igsSplineBasis basis, std::vector<SplinePoint> points, bool is_rational)
      : igsShapeCurve(basis.range(), basis.breaks()),
        m_basis(std::move(basis)),
        m_points(std::move(points)),
        m_is_rational(is_rational) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide side) const override {
    igsSplineBasis::Values shares;
    m_basis.evaluate(t, side, shares);
    SplinePoint point{}, first{}, second{};
    const SplinePoint* const points = m_points.data() + shares.first_point;
    for (int i = 0; i <= m_basis.degree(); ++i) {
      for (std::size_t k = 0; k < 4; ++k) {
        point[k] += points[i][k] * shares.value[i];
        first[k] += points[i][k] * shares.first[i];
        second[k] += points[i][k] * shares.second[i];
      }
    }
    return curve_point(point, first, second, m_is_rational);
  }

 private:
  igsSplineBasis m_basis;
  std::vector<SplinePoint> m_points;
  bool m_is_rational;
};

/// Calls `take` with each Bezier point of a spline over a part of the span that begins at knots[degree], in their
/// order. `points` and `knots` are those that the span depends on.
template <class Take>
void visit_bezier_points(const igsRange& part, const SplinePoint* points, const double* knots, std::size_t degree,
                         Take take) {
  SplinePoint rows[highest_bezier_degree + 1];
  for (std::size_t behind = 0; behind <= degree; ++behind) {
    std::copy_n(points, degree + 1, rows);
    for (std::size_t round = 1; round <= degree; ++round) {
      const double t = round <= behind ? part.high : part.low;
      for (std::size_t i = degree; i >= round; --i) {
        const double share = (t - knots[i]) / (knots[degree + 1 + i - round] - knots[i]);
        for (std::size_t k = 0; k < 4; ++k) rows[i][k] = rows[i - 1][k] * (1 - share) + rows[i][k] * share;
      }
    }
    take(rows[degree]);
  }
}

/// As above, over parts of the pieces between the breaks of the spline.
template <class Take>
void visit_pieces(const igsSplineBasis& basis, const igsList<double>& knots, const std::vector<SplinePoint>& points,
                  int parts, Take take) {
  const auto degree = static_cast<std::size_t>(basis.degree());
  for (std::size_t i = 0; i + 1 < basis.breaks().size(); ++i) {
    const igsRange piece{basis.breaks()[i], basis.breaks()[i + 1]};
    const auto span =
        std::upper_bound(knots.begin() + basis.degree() + 1, knots.end() - basis.degree() - 1, piece.at(0.5));
    const auto first = static_cast<std::size_t>(span - knots.begin()) - degree - 1;
    for (int k = 0; k < parts; ++k) {
      const igsRange part{piece.at(static_cast<double>(k) / parts), piece.at(static_cast<double>(k + 1) / parts)};
      visit_bezier_points(part, points.data() + first, knots.data() + first, degree, take);
    }
  }
}

/// Makes the greatest weight 1, which changes nothing, and multiplies the points by their weights. False where the
/// weights cannot be used.
bool weigh(std::vector<SplinePoint>& points) {
  double low = 0, high = 0;
  for (const SplinePoint& point : points) {
    if (!std::isfinite(point[3]) || igs_is_undefined_real(point[3])) return false;
    low = std::min(low, point[3]);
    high = std::max(high, point[3]);
  }
  const double greatest = high >= -low ? high : low;
  for (auto& [x, y, z, weight] : points) {
    weight /= greatest;
    x *= weight;
    y *= weight;
    z *= weight;
  }
  return greatest != 0;
}

/// True where no denominator can vanish: their Bezier coefficients over parts of the pieces are positive.
bool stay_positive(const std::vector<SplinePoint>& points, const igsSplineBasis& basis, const igsList<double>& knots) {
  if (std::all_of(points.begin(), points.end(), [](const SplinePoint& point) { return point[3] > 0; })) return true;
  bool are_positive = static_cast<std::size_t>(basis.degree()) <= highest_bezier_degree;
  const auto test = [&](const SplinePoint& point) { are_positive = are_positive && point[3] > 1e-9; };
  if (are_positive) visit_pieces(basis, knots, points, 8, test);
  return are_positive;
}

igsShapeCurvePtr spline_of(igsSplineBasis basis, const igsList<double>& knots, std::vector<SplinePoint> points) {
  const bool is_rational =
      std::any_of(points.begin(), points.end(), [](const SplinePoint& point) { return point[3] != 1; });
  if (static_cast<std::size_t>(basis.degree()) > highest_bezier_degree) {
    return std::make_shared<SplineShape>(std::move(basis), std::move(points), is_rational);
  }
  std::vector<SplinePoint> bezier;
  bezier.reserve((basis.breaks().size() - 1) * (static_cast<std::size_t>(basis.degree()) + 1));
  visit_pieces(basis, knots, points, 1, [&](const SplinePoint& point) { bezier.push_back(point); });
  return std::make_shared<BezierShape>(basis, std::move(bezier), is_rational);
}
}  // namespace

// The parameter is that of the break points.
igsShapeCurvePtr igs_make_shape(const igs112& spline, igsShapes&) {
  std::vector<double> ends;
  std::vector<Cubic> segments;
  for (int i = 0; i <= spline.number_of_segments(); ++i) {
    double end = igs_undefined_real;
    if (spline.break_point(i, end) == 0 || !std::isfinite(end) || igs_is_undefined_real(end)) return nullptr;
    if (!ends.empty() && end < ends.back()) return nullptr;
    igsCubicSegment segment;
    if (!ends.empty() && end == ends.back()) {
      ends.pop_back();
      segments.pop_back();
    }
    ends.push_back(end);
    if (spline.segment(i, segment) == 0) continue;
    if (segment.has_unset() || !is_finite(cubic_of(segment))) return nullptr;
    segments.push_back(cubic_of(segment));
  }
  if (ends.size() < 2 || !(ends.front() < ends.back())) return nullptr;
  const igsRange range{ends.front(), ends.back()};
  return std::make_shared<CubicShape>(range, std::move(ends), std::move(segments));
}

// The parameter is that of the knots, between the limits of the file.
igsShapeCurvePtr igs_make_shape(const igs126& entity, igsShapes&) {
  const int count = entity.number_of_control_points();
  std::optional<igsSplineBasis> basis = igsSplineBasis::make(entity.direction(), count);
  if (!basis || basis->degree() == 0) return nullptr;
  std::vector<SplinePoint> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    giPoint3 point;
    double weight = igs_undefined_real;
    if (entity.control_point(i, point) == 0 || point.is_undefined() || entity.weight(i, weight) == 0) return nullptr;
    points.push_back({point.x(), point.y(), point.z(), weight});
    if (!vec(points.back()).is_finite()) return nullptr;
  }
  const igsList<double>& knots = entity.direction().knots();
  if (!weigh(points) || !stay_positive(points, *basis, knots)) return nullptr;
  return spline_of(*std::move(basis), knots, std::move(points));
}
