#include "igs/shape/igsShapePolyline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "igs/shape/private/igsLine.h"

namespace {
/// Of a polyline: how often a span may be halved, and the part of the chord tolerance below which turns do not matter.
constexpr int most_splits_of_span = 24;
constexpr double least_turn_size = 1e-3;

struct Node {
  double t;
  igsVec3 point, direction;  // of length 1, or zero where the curve stands still
};

/// A part of a span, with the node in its middle.
struct Stretch {
  Node low, middle, high;
  int depth;
};

class PolylineMaker {
 public:
  PolylineMaker(const igsShapeCurve& curve, const igsShapeTolerance& tolerance)
      : m_curve(curve), m_tolerance(tolerance), m_spans_left(curve.breaks().size() - 1) {}

  bool add_span(double low, double high) {
    const Node start = node(low, igsSide::after), end = node(high, igsSide::before);
    add(start);
    m_stack.push_back({start, node(low + (high - low) / 2, igsSide::after), end, 0});
    --m_spans_left;
    while (!m_stack.empty() && m_is_finite) take_stretch();
    return m_is_finite;
  }
  std::vector<igsPolylinePoint> points() && { return std::move(m_points); }

 private:
  Node node(double t, igsSide side) {
    const igsCurvePoint at = m_curve.at(t, side);
    m_is_finite = m_is_finite && at.point.is_finite();
    return {t, at.point, at.first.unit()};
  }
  void add(const Node& node) {
    if (!m_points.empty() && m_points.back().parameter == node.t && m_points.back().point == node.point) return;
    m_points.push_back({node.t, node.point});
  }
  void take_stretch() {
    const Stretch stretch = m_stack.back();
    m_stack.pop_back();
    const auto& [low, middle, high, depth] = stretch;
    const Node first = node(low.t + (middle.t - low.t) / 2, igsSide::after);
    const Node last = node(middle.t + (high.t - middle.t) / 2, igsSide::after);
    const bool may_split = depth < most_splits_of_span && low.t < first.t && last.t < high.t &&
                           m_points.size() + m_stack.size() + m_spans_left + 2 < m_tolerance.most;
    if (!may_split || fits(stretch, first, last)) return add(high);
    m_stack.push_back({middle, last, high, depth + 1});
    m_stack.push_back({low, first, middle, depth + 1});
  }
  bool fits(const Stretch& stretch, const Node& first, const Node& last) const {
    const auto& [low, middle, high, depth] = stretch;
    double size = 0;
    for (const Node* const node : {&first, &middle, &last}) {
      if (igs_distance_from_line(node->point, low.point, high.point) > m_tolerance.chord) return false;
      size = std::max(size, (node->point - low.point).length());
    }
    if (std::max(size, (high.point - low.point).length()) < least_turn_size * m_tolerance.chord) return true;
    return low.direction.angle_to(first.direction) + first.direction.angle_to(middle.direction) +
               middle.direction.angle_to(last.direction) + last.direction.angle_to(high.direction) <=
           m_tolerance.angle;
  }

  const igsShapeCurve& m_curve;
  const igsShapeTolerance& m_tolerance;
  std::size_t m_spans_left;
  bool m_is_finite = true;
  std::vector<Stretch> m_stack;
  std::vector<igsPolylinePoint> m_points;
};

// The rule of Gauss with 7 nodes and that of Kronrod with 15, which has them among its own.
constexpr std::size_t num_nodes = 8;
constexpr double nodes[num_nodes] = {0.991455371120812639206854697526329, 0.949107912342758524526189684047851,
                                     0.864864423359769072789712788640926, 0.741531185599394439863864773280788,
                                     0.586087235467691130294144691258258, 0.405845151377397166906606412076961,
                                     0.207784955007898467600689403773245, 0};
constexpr double kronrod[num_nodes] = {0.022935322010529224963732008058970, 0.063092092629978553290700663189204,
                                       0.104790010322250183839876322541518, 0.140653259715525918745189590510238,
                                       0.169004726639267902826583426598550, 0.190350578064785409913256402421014,
                                       0.204432940075298892414161999234649, 0.209482141084727828012999174891714};
constexpr double gauss[num_nodes] = {0, 0.129484966168869693270611432679082, 0, 0.279705391489276667901467771423780,
                                     0, 0.381830050505118944950369775488975, 0, 0.417959183673469387755102040816327};

struct Integral {
  double fine, coarse;
};

Integral speed_over(const igsShapeCurve& curve, const igsRange& range) {
  const double middle = range.low + range.length() / 2, half = range.length() / 2;
  Integral sum{0, 0};
  for (std::size_t i = 0; i < num_nodes; ++i) {
    double speed = curve.at(middle + half * nodes[i]).first.length();
    if (nodes[i] > 0) speed += curve.at(middle - half * nodes[i]).first.length();
    sum.fine += kronrod[i] * speed;
    sum.coarse += gauss[i] * speed;
  }
  return {sum.fine * half, sum.coarse * half};
}

// The fine rule is far better than the difference of both tells.
double length_of_span(const igsShapeCurve& curve, const igsRange& span) {
  struct Part {
    igsRange range;
    int depth;
  };
  constexpr int most_depth = 40;
  std::array<Part, most_depth + 2> stack;
  std::size_t size = 0;
  int parts_left = 4000;
  double length = 0;
  stack[size++] = {span, 0};
  while (size > 0) {
    const auto [range, depth] = stack[--size];
    const auto [fine, coarse] = speed_over(curve, range);
    if (!std::isfinite(fine)) return std::numeric_limits<double>::quiet_NaN();
    const double difference = std::abs(fine - coarse);
    const bool is_good = difference <= 1e-8 * fine || difference <= 1e-12 * (length + fine);
    if (is_good || depth == most_depth || --parts_left < 0) {
      length += fine;
      continue;
    }
    const double middle = range.at(0.5);
    stack[size++] = {{middle, range.high}, depth + 1};
    stack[size++] = {{range.low, middle}, depth + 1};
  }
  return length;
}

double component(const igsVec3& vector, int axis) { return axis == 0 ? vector.x : axis == 1 ? vector.y : vector.z; }

/// Where a function that a point of the curve gives changes its sign between two parameters, by bisection.
template <class Function>
double sign_change(const igsShapeCurve& curve, double low, double high, Function function) {
  const bool rises = function(curve.at(low)) < function(curve.at(high, igsSide::before));
  for (int i = 0; i < 60; ++i) {
    const double middle = low + (high - low) / 2;
    if (!(low < middle && middle < high)) break;
    ((function(curve.at(middle)) < 0) == rises ? low : high) = middle;
  }
  return low + (high - low) / 2;
}

bool change_sign(double a, double b) { return (a < 0 && b > 0) || (a > 0 && b < 0); }

/// Adds the extremes of a coordinate inside a piece, at whose ends the curve is `at` and `next`. A slope that turns
/// round in the piece may vanish twice.
void add_extremes(const igsShapeCurve& curve, int axis, const igsRange& piece, const igsCurvePoint& at,
                  const igsCurvePoint& next, igsBox& box) {
  const auto slope = [&](const igsCurvePoint& point) { return component(point.first, axis); };
  const auto bend = [&](const igsCurvePoint& point) { return component(point.second, axis); };
  const auto add_between = [&](double low, double high) { box.add(curve.point(sign_change(curve, low, high, slope))); };
  if (change_sign(slope(at), slope(next))) {
    add_between(piece.low, piece.high);
  } else if (change_sign(bend(at), bend(next)) && change_sign(slope(at), bend(at))) {
    const double turn = sign_change(curve, piece.low, piece.high, bend);
    if (!change_sign(slope(at), slope(curve.at(turn)))) return;
    add_between(piece.low, turn);
    add_between(turn, piece.high);
  }
}

void add_span(const igsShapeCurve& curve, const igsRange& span, igsBox& box) {
  constexpr int num_pieces = 8;
  double low = span.low;
  igsCurvePoint at = curve.at(low, igsSide::after);
  box.add(at.point);
  for (int i = 1; i <= num_pieces; ++i) {
    const double high = span.at(i * (1.0 / num_pieces));
    const igsCurvePoint next = curve.at(high, igsSide::before);
    box.add(next.point);
    for (int axis = 0; axis < 3; ++axis) add_extremes(curve, axis, {low, high}, at, next, box);
    at = next;
    low = high;
  }
}
}  // namespace

std::vector<igsPolylinePoint> igs_polyline(const igsShapeCurve& curve, const igsShapeTolerance& tolerance) {
  const std::vector<double>& breaks = curve.breaks();
  if (breaks.size() < 2) return {};
  PolylineMaker maker(curve, tolerance);
  for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
    if (breaks[i] < breaks[i + 1] && !maker.add_span(breaks[i], breaks[i + 1])) return {};
  }
  return std::move(maker).points();
}

double igs_length(const igsShapeCurve& curve) { return igs_length(curve, curve.range()); }

double igs_length(const igsShapeCurve& curve, const igsRange& part) {
  const std::vector<double>& breaks = curve.breaks();
  if (breaks.empty()) return part.is_finite() ? length_of_span(curve, part) : std::numeric_limits<double>::infinity();
  double length = 0;
  auto next = std::upper_bound(breaks.begin(), breaks.end(), part.low);
  for (double low = part.low; low < part.high; ++next) {
    const double high = next == breaks.end() ? part.high : std::min(*next, part.high);
    length += length_of_span(curve, {low, high});
    if (next == breaks.end()) break;
    low = high;
  }
  return length;
}

igsBox igs_box(const igsShapeCurve& curve) {
  igsBox box;
  const std::vector<double>& breaks = curve.breaks();
  for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
    if (breaks[i] < breaks[i + 1]) add_span(curve, {breaks[i], breaks[i + 1]}, box);
  }
  return box;
}
