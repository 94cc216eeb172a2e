#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include "igs/curves/igs130.h"
#include "igs/shape/private/igsArcLength.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsSpanOf.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
enum OffsetType : int { constant_distance = 1, linear_distance = 2, function_distance = 3 };
constexpr int taper_by_length = 1;

// As powers of two of evaluations of the base curve: that its derivative is taken by differences, and that the arc
// length is integrated for each.
constexpr int difference_levels = 2, length_levels = 3;

/// How far the curve is from its base.
struct OffsetDistance {
  // Linear, a constant with rate 0.
  double start = 0, start_at = 0, rate = 0;
  // Or a coordinate of a curve.
  igsShapeCurvePtr function;
  int coordinate = 1;
  // By arc length where there is one.
  std::shared_ptr<const igsArcLength> length;
};

class OffsetShape final : public igsShapeCurve {
 public:
  OffsetShape(const igsRange& range, std::vector<double> breaks, igsShapeCurvePtr base, const igsVec3& normal,
              OffsetDistance distance)
      : igsShapeCurve(range, std::move(breaks)),
        m_base(std::move(base)),
        m_normal(normal),
        m_distance(std::move(distance)) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide side) const override {
    if (t == range().low) side = igsSide::after;
    if (t == range().high) side = igsSide::before;
    igsCurvePoint at = beside(t, side);
    at.second = second(t, side);
    return at;
  }

 private:
  struct Value {
    double value, derivative;
  };
  Value distance(double t, double speed, igsSide side) const {
    const OffsetDistance& d = m_distance;
    const double s = d.length != nullptr ? d.length->length() * d.length->fraction_at(t) : t,
                 rate = d.length != nullptr ? speed : 1;
    if (d.function == nullptr) return {d.start + d.rate * (s - d.start_at), d.rate * rate};
    const igsCurvePoint at = d.function->at(s, side);
    const auto coordinate = [&](const igsVec3& v) { return d.coordinate == 1 ? v.x : d.coordinate == 2 ? v.y : v.z; };
    const igsRange& all = d.function->range();
    const bool is_inside = side == igsSide::after ? all.low <= s && s < all.high : all.low < s && s <= all.high;
    return {coordinate(at.point), is_inside ? coordinate(at.first) * rate : 0};
  }

  // All but the second derivative.
  igsCurvePoint beside(double t, igsSide side) const {
    const igsCurvePoint base = m_base->at(t, side);
    const double speed = base.first.length();
    const igsVec3 tangent = base.first.unit(), aside = m_normal.cross(tangent);
    igsVec3 turn;
    if (speed > 0) turn = m_normal.cross(base.second - tangent * tangent.dot(base.second)) * (1 / speed);
    const Value d = distance(t, speed, side);
    return {base.point + aside * d.value, base.first + aside * d.derivative + turn * d.value, {}};
  }

  // It needs a third derivative of the base, and is taken by differences, of a parabola through three of the first.
  igsVec3 second(double t, igsSide side) const {
    const std::size_t i = igs_span_of(breaks(), t, side);
    const igsRange span{breaks()[i], breaks()[i + 1]};
    const double step = span.length() * 1e-5;
    const double middle = std::clamp(t, span.low + step, std::max(span.low + step, span.high - step));
    const igsVec3 before = beside(middle - step, igsSide::after).first;
    const igsVec3 after = beside(middle + step, igsSide::before).first;
    const igsVec3 slope = (after - before) * (0.5 / step);
    if (middle == t) return slope;
    return slope + (after + before - beside(middle, side).first * 2) * ((t - middle) / (step * step));
  }

  igsShapeCurvePtr m_base;
  igsVec3 m_normal;
  OffsetDistance m_distance;
};

/// The breaks of a curve inside the range, and its ends.
std::vector<double> breaks_within(const igsRange& range, const igsShapeCurve& curve) {
  std::vector<double> breaks{range.low};
  std::copy_if(curve.breaks().begin(), curve.breaks().end(), std::back_inserter(breaks),
               [&](double value) { return value > range.low && value < range.high; });
  breaks.push_back(range.high);
  return breaks;
}

/// Adds the breaks of the distance, as far as they are known.
bool get_distance(const igs130& offset, const igsShapeCurve& base, std::vector<double>& breaks, igsShapes& shapes,
                  OffsetDistance& distance) {
  const int type = offset.offset_type();
  distance.start = offset.distance1();
  if (type == linear_distance) {
    distance.start_at = offset.parameter1();
    distance.rate = (offset.distance2() - offset.distance1()) / (offset.parameter2() - offset.parameter1());
  }
  if (type == function_distance) {
    distance.function = shapes.curve(offset.offset_function().object());
    distance.coordinate = offset.coordinate();
    if (distance.function == nullptr || distance.coordinate < 1 || distance.coordinate > 3) return false;
    distance.start = 0;
  }
  if (type != constant_distance && offset.taper_type() == taper_by_length) {
    distance.length = std::make_shared<igsArcLength>(base, breaks);
    if (!std::isfinite(distance.length->length())) return false;
    shapes.add_levels(length_levels);
  } else if (distance.function != nullptr) {
    if (!shapes.may_add(distance.function->breaks().size())) return false;
    const std::vector<double> own = breaks_within({breaks.front(), breaks.back()}, *distance.function);
    std::vector<double> all;
    std::set_union(breaks.begin(), breaks.end(), own.begin(), own.end(), std::back_inserter(all));
    breaks = std::move(all);
  }
  shapes.add_levels(difference_levels);
  return type >= constant_distance && type <= function_distance && std::isfinite(distance.start) &&
         !igs_is_undefined_real(distance.start) && std::isfinite(distance.start_at) && std::isfinite(distance.rate);
}
}  // namespace

// The parameter is that of the base curve. Limits that leave nothing of its range count as none. Distances by arc
// length count it from the start of the offset part.
igsShapeCurvePtr igs_make_shape(const igs130& offset, igsShapes& shapes) {
  const igsShapeCurvePtr base = shapes.curve(offset.base_curve().object());
  if (base == nullptr) return nullptr;
  const igsVec3 normal = igs_vec_of(offset.normal()).unit();
  const igsRange all = base->range();
  igsRange range{all.clamp(offset.start_parameter()), all.clamp(offset.end_parameter())};
  if (!(range.low < range.high)) range = all;
  if (!(normal.length() > 0) || !std::isfinite(range.length()) || !shapes.may_add(base->breaks().size()))
    return nullptr;
  std::vector<double> breaks = breaks_within(range, *base);
  OffsetDistance distance;
  if (!get_distance(offset, *base, breaks, shapes, distance)) return nullptr;
  return std::make_shared<OffsetShape>(range, std::move(breaks), base, normal, std::move(distance));
}
