#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "igs/shape/igsShapeNearest.h"

namespace {
constexpr double not_found = std::numeric_limits<double>::infinity();
/// A piece is halved until the curve turns by less than this in it, in radians, or so often.
constexpr double most_turn = 0.5;
constexpr int most_piece_halvings = 6;
constexpr int most_steps = 60;

/// What vanishes where the curve is nearest, half the derivative of the square of the distance, and its derivative.
struct Approach {
  double value, derivative;
};
Approach approach(const igsCurvePoint& at, const igsVec3& point) {
  const igsVec3 away = at.point - point;
  return {away.dot(at.first), at.first.dot(at.first) + away.dot(at.second)};
}
}  // namespace

igsNearestPointOnCurve::igsNearestPointOnCurve(const igsShapeCurve& curve) : m_curve(curve) {
  const std::vector<double>& breaks = curve.breaks();
  for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
    if (breaks[i] < breaks[i + 1]) add_pieces({breaks[i], breaks[i + 1]});
  }
}

// Halved by directions at five places. A curve bent so little is not much longer than its chords, which tells a ball.
void igsNearestPointOnCurve::add_pieces(const igsRange& span) {
  std::vector<std::pair<igsRange, int>> waiting{{span, 0}};
  while (!waiting.empty()) {
    const auto [range, depth] = waiting.back();
    waiting.pop_back();
    double turn = 0, lengths[2] = {0, 0};
    igsCurvePoint last = m_curve.at(range.low, igsSide::after);
    for (int i = 1; i <= 4; ++i) {
      const igsCurvePoint next = m_curve.at(range.at(i / 4.0), igsSide::before);
      turn += last.first.angle_to(next.first);
      lengths[i / 3] += (next.point - last.point).length();
      last = next;
    }
    const double middle = range.at(0.5);
    if (turn > most_turn && depth < most_piece_halvings) {
      waiting.push_back({{middle, range.high}, depth + 1});
      waiting.push_back({{range.low, middle}, depth + 1});
      continue;
    }
    const igsVec3 centre = m_curve.point(middle);
    m_pieces.push_back({range, centre, std::max(lengths[0], lengths[1]) * (turn > most_turn ? 2 : 1.1)});
  }
}

void igsNearestPointOnCurve::try_point(double t, igsSide side, const igsVec3& point, igsNearestOnCurve& best) const {
  const igsVec3 at = m_curve.point(t, side);
  const double distance = (at - point).length();
  if (distance < best.distance) best = {t, at, distance};
}

// Newton's method, between bounds that bisection takes over where a step leads out of them.
void igsNearestPointOnCurve::search(const igsRange& range, const igsVec3& point, igsNearestOnCurve& best) const {
  try_point(range.low, igsSide::after, point, best);
  try_point(range.high, igsSide::before, point, best);
  double low = range.low, high = range.high, t = range.at(0.5);
  for (int i = 0; i < most_steps && low < t && t < high; ++i) {
    const Approach a = approach(m_curve.at(t), point);
    if (a.value == 0) break;
    (a.value < 0 ? low : high) = t;
    const double next = t - a.value / a.derivative;
    const bool is_usable = a.derivative > 0 && low < next && next < high;
    if (is_usable && std::abs(next - t) <= 1e-15 * std::max(std::abs(t), range.length())) break;
    t = is_usable ? next : low + (high - low) / 2;
  }
  try_point(t, igsSide::after, point, best);
}

igsNearestOnCurve igsNearestPointOnCurve::operator()(const igsVec3& point) const {
  igsNearestOnCurve best{0, {}, not_found};
  if (m_pieces.empty()) return near(point, 0, not_found);
  const auto square = [&](const Piece& piece) { return (piece.centre - point).dot(piece.centre - point); };
  const auto nearest = std::min_element(m_pieces.begin(), m_pieces.end(),
                                        [&](const Piece& a, const Piece& b) { return square(a) < square(b); });
  search(nearest->range, point, best);
  for (auto piece = m_pieces.begin(); piece != m_pieces.end(); ++piece) {
    const double reach = best.distance + piece->radius;
    if (square(*piece) < reach * reach && piece != nearest) search(piece->range, point, best);
  }
  return best;
}

igsNearestOnCurve igsNearestPointOnCurve::near(const igsVec3& point, double parameter, double enough) const {
  igsNearestOnCurve best{0, {}, not_found};
  if (m_pieces.empty()) {  // a line without an end
    const double t = m_curve.range().clamp(parameter);
    const Approach a = approach(m_curve.at(t), point);
    try_point(m_curve.range().clamp(t - (a.derivative > 0 ? a.value / a.derivative : 0)), igsSide::after, point, best);
    return best;
  }
  const auto after = [](double t, const auto& piece) { return t < piece.range.low; };
  auto piece = std::upper_bound(m_pieces.begin() + 1, m_pieces.end(), parameter, after) - 1;
  search(piece->range, point, best);
  if (best.parameter == piece->range.low && piece != m_pieces.begin()) search((piece - 1)->range, point, best);
  if (best.parameter == piece->range.high && piece + 1 != m_pieces.end()) search((piece + 1)->range, point, best);
  return best.distance <= enough ? best : (*this)(point);
}
