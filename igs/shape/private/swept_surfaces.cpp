#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <utility>
#include <vector>

#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/objects/igsCurve.h"
#include "igs/shape/igsPlacement.h"
#include "igs/shape/private/igsArcLength.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsVecOf.h"
#include "igs/surfaces/igs118.h"
#include "igs/surfaces/igs120.h"
#include "igs/surfaces/igs122.h"

namespace {
constexpr double whole_turn = 2 * std::numbers::pi;
constexpr double same_turn = 1e-5;       // how far files round a full turn, in radians
constexpr double same_fraction = 1e-12;  // of a range: break points that are one

igsCurvePoint at_rate(const igsCurvePoint& at, double first, double second) {
  return {at.point, at.first * first, at.second * (first * first) + at.first * second};
}

/// A curve that a ruled surface runs along, over 0 to 1.
class Rail {
 public:
  explicit Rail(const igsVec3& point) : m_point(point) {}
  /// `by_length`: equal steps are equal lengths, not equal differences of the parameter.
  Rail(igsShapeCurvePtr curve, bool by_length, bool is_reversed)
      : m_curve(std::move(curve)), m_is_reversed(is_reversed) {
    if (by_length) m_length.emplace(*m_curve, m_curve->breaks());
    if (m_length && (m_length->is_even() || !(m_length->length() > 0))) m_length.reset();
  }

  igsCurvePoint at(double fraction, igsSide side) const {
    if (m_curve == nullptr) return {m_point, {}, {}};
    if (!m_is_reversed) return forward(fraction, side);
    const igsCurvePoint at = forward(1 - fraction, side == igsSide::after ? igsSide::before : igsSide::after);
    return {at.point, at.first * -1, at.second};
  }
  void add_breaks(std::vector<double>& breaks) const {
    if (m_curve == nullptr) return;
    const igsRange range = m_curve->range();
    for (const double t : m_curve->breaks()) {
      const double fraction = m_length ? m_length->fraction_at(t) : (t - range.low) / range.length();
      if (std::isfinite(fraction)) breaks.push_back(m_is_reversed ? 1 - fraction : fraction);
    }
  }

 private:
  igsCurvePoint forward(double fraction, igsSide side) const {
    if (!m_length) {
      const igsRange range = m_curve->range();
      return at_rate(m_curve->at(range.at(fraction), side), range.length(), 0);
    }
    const igsCurvePoint at = m_curve->at(m_length->parameter_at(fraction, side), side);
    const double speed = at.first.length();
    const double first = speed > 0 ? m_length->length() / speed : 0;
    return at_rate(at, first, speed > 0 ? -first * first * at.first.dot(at.second) / (speed * speed) : 0);
  }

  igsVec3 m_point;
  igsShapeCurvePtr m_curve;
  bool m_is_reversed = false;
  std::optional<igsArcLength> m_length;
};

/// From 0 to 1, those of both rails.
std::vector<double> breaks_of_rails(const Rail& first, const Rail& second) {
  std::vector<double> all, apart{0};
  first.add_breaks(all);
  second.add_breaks(all);
  std::sort(all.begin(), all.end());
  for (const double fraction : all) {
    if (fraction > apart.back() + same_fraction && fraction < 1 - same_fraction) apart.push_back(fraction);
  }
  apart.push_back(1);
  return apart;
}

class RuledShape final : public igsShapeSurface {
 public:
  RuledShape(Rail first, Rail second)
      : igsShapeSurface({.range = {0, 1}, .breaks = breaks_of_rails(first, second)}, {.range = {0, 1}, .breaks = {}}),
        m_first(std::move(first)),
        m_second(std::move(second)) {
    find_seams_and_poles();
  }

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide side, igsSide) const override {
    const igsCurvePoint a = m_first.at(u, side), b = m_second.at(u, side);
    const double w = 1 - v;
    return {a.point * w + b.point * v,   a.first * w + b.first * v, b.point - a.point,
            a.second * w + b.second * v, b.first - a.first,         {}};
  }

 private:
  Rail m_first, m_second;
};

std::vector<double> relative_breaks(const igsShapeCurve& curve) {
  std::vector<double> breaks = curve.breaks();
  for (double& t : breaks) t = (t - curve.range().low) / curve.range().length();
  return breaks;
}

class TabulatedShape final : public igsShapeSurface {
 public:
  TabulatedShape(igsShapeCurvePtr directrix, const igsVec3& generatrix)
      : igsShapeSurface({.range = {0, 1}, .breaks = relative_breaks(*directrix)}, {.range = {0, 1}, .breaks = {}}),
        m_directrix(std::move(directrix)),
        m_generatrix(generatrix) {
    find_seams_and_poles();
  }

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide side, igsSide) const override {
    const igsRange range = m_directrix->range();
    const igsCurvePoint at = at_rate(m_directrix->at(range.at(u), side), range.length(), 0);
    return {at.point + m_generatrix * v, at.first, m_generatrix, at.second, {}, {}};
  }

 private:
  igsShapeCurvePtr m_directrix;
  igsVec3 m_generatrix;
};

struct Axis {
  igsVec3 origin, along;
};

class RevolvedShape final : public igsShapeSurface {
 public:
  RevolvedShape(igsShapeCurvePtr generatrix, const Axis& axis, const igsSurfaceDirection& angles)
      : igsShapeSurface({.range = generatrix->range(), .breaks = generatrix->breaks()}, angles),
        m_generatrix(std::move(generatrix)),
        m_axis(axis) {
    find_seams_and_poles();
  }

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide side, igsSide) const override {
    const double c = std::cos(v), s = std::sin(v);
    const igsVec3& z = m_axis.along;
    struct Turned {
      igsVec3 vector, first, second;
    };
    const auto turn = [&](const igsVec3& vector) {
      const igsVec3 up = z * z.dot(vector), out = vector - up, across = z.cross(vector);
      const igsVec3 square = out * c + across * s;
      return Turned{up + square, across * c - out * s, square * -1};
    };
    const igsCurvePoint at = m_generatrix->at(u, side);
    const Turned point = turn(at.point - m_axis.origin), along = turn(at.first), bend = turn(at.second);
    return {m_axis.origin + point.vector, along.vector, point.first, bend.vector, along.first, point.second};
  }

 private:
  igsShapeCurvePtr m_generatrix;
  Axis m_axis;
};

/// Null unless it is a curve of finite range.
igsShapeCurvePtr finite_curve(const igsObjectPtr& pointer, igsShapes& shapes) {
  igsShapeCurvePtr curve = shapes.curve(igs_cast<igsCurve>(pointer.object()));
  const bool is_usable = curve != nullptr && curve->range().is_finite() && curve->range().length() > 0;
  return is_usable && shapes.may_add(curve->breaks().size()) ? curve : nullptr;
}

std::optional<Rail> rail_of(const igsObjectPtr& pointer, igsShapes& shapes, bool by_length, bool is_reversed) {
  if (const auto* const entity = igs_cast<igs116>(pointer.object())) {
    const igsVec3 placed = igsPlacement::of(*entity).point(igs_vec_of(entity->point()));
    return placed.is_finite() ? std::optional<Rail>(placed) : std::nullopt;
  }
  igsShapeCurvePtr curve = finite_curve(pointer, shapes);
  return curve == nullptr ? std::nullopt : std::optional<Rail>(std::in_place, std::move(curve), by_length, is_reversed);
}

/// From the start of the line to its end.
std::optional<Axis> axis_of(const igsObjectPtr& pointer, igsShapes& shapes) {
  const igsShapeCurvePtr line = shapes.curve(igs_cast<igs110>(pointer.object()));
  if (line == nullptr) return std::nullopt;
  const igsVec3 origin = line->point(0), along = (line->point(1) - origin).unit();
  return along == igsVec3() ? std::nullopt : std::optional<Axis>({origin, along});
}

/// From the start angle, by a full turn at most; of no length where there are no usable angles.
igsSurfaceDirection angles_of(const igs120& surface) {
  const double start = surface.start_angle();
  double turn = surface.terminate_angle() - start;
  if (igs_is_undefined_real(start) || igs_is_undefined_real(surface.terminate_angle()) || !std::isfinite(turn)) {
    return {.range = {0, 0}, .breaks = {}};
  }
  if (turn < 0) turn += whole_turn * std::ceil(-turn / whole_turn);
  const bool is_closed = turn > whole_turn - same_turn;
  return {.range = {start, start + (is_closed ? whole_turn : turn)}, .breaks = {}, .is_closed = is_closed};
}
}  // namespace

// u goes along the curves, v from the first to the second, both from 0 to 1.
igsShapeSurfacePtr igs_make_shape(const igs118& surface, igsShapes& shapes) {
  const bool by_length = surface.directory_entry().form_number() == 0;
  std::optional<Rail> first = rail_of(surface.first_curve(), shapes, by_length, false);
  std::optional<Rail> second = rail_of(surface.second_curve(), shapes, by_length, surface.direction_flag() == 1);
  if (!first || !second) return nullptr;
  return std::make_shared<RuledShape>(*std::move(first), *std::move(second));
}

// u is the parameter of the generatrix, v the angle.
igsShapeSurfacePtr igs_make_shape(const igs120& surface, igsShapes& shapes) {
  igsShapeCurvePtr generatrix = shapes.curve(igs_cast<igsCurve>(surface.generator().object()));
  const std::optional<Axis> axis = axis_of(surface.axis(), shapes);
  const igsSurfaceDirection angles = angles_of(surface);
  if (generatrix == nullptr || !axis || !(angles.range.length() > 0)) return nullptr;
  if (!shapes.may_add(generatrix->breaks().size())) return nullptr;
  return std::make_shared<RevolvedShape>(std::move(generatrix), *axis, angles);
}

// u goes along the directrix, v along the generatrix, both from 0 to 1.
igsShapeSurfacePtr igs_make_shape(const igs122& surface, igsShapes& shapes) {
  igsShapeCurvePtr directrix = finite_curve(surface.directrix(), shapes);
  if (directrix == nullptr) return nullptr;
  const igsVec3 generatrix = igs_vec_of(surface.terminate_point()) - directrix->start();
  if (!generatrix.is_finite()) return nullptr;
  return std::make_shared<TabulatedShape>(std::move(directrix), generatrix);
}
