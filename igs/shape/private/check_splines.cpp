#include <cstddef>
#include <optional>
#include <vector>

#include "igs/curves/igs112.h"
#include "igs/curves/igs126.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/private/igsShapeChecking.h"
#include "igs/shape/private/igsShownEntities.h"
#include "igs/surfaces/igs114.h"
#include "igs/surfaces/igs128.h"

namespace {
constexpr double short_span = 1e-8;  // of the range of the knots

/// A parameter within the range at which two pieces meet.
struct Joint {
  double parameter;
  bool may_gape;
  bool may_kink;
};

/// The spans of a B-spline; the spans with numbers from order - 1 to end - 1 make its range, span i from knot i on.
struct Spans {
  explicit Spans(const igsKnotVector& vector) : knots(vector.knots()) {
    const auto size = static_cast<int>(knots.size());
    if (vector.order() < 1 || size < 2 * vector.order()) return;
    order = vector.order();
    end = size - order;
  }
  double knot(int i) const { return knots[static_cast<std::size_t>(i)]; }
  double low() const { return knot(order - 1); }
  double high() const { return knot(end); }
  /// Calls `visit` with each knot between the ends of the range and how often it stands there.
  template <class Visit>
  void visit_inner(Visit visit) const {
    for (int i = order, next = i; i < end; i = next) {
      while (next < end && knot(next) == knot(i)) ++next;
      if (next == i) return;  // not a number
      if (knot(i) > low() && knot(i) < high()) visit(knot(i), next - i);
    }
  }

  const igsList<double>& knots;
  int order = 0, end = 0;  ///< both 0 where there are no spans
};

void check_knots(igsShapeChecking& checking, const igsObject& spline, int direction, const igsKnotVector& vector) {
  const Spans spans(vector);
  if (spans.end == 0) return;
  const int degree = spans.order - 1;
  if (degree > checking.options.degree) {
    checking.tag<igsShapeHighDegree>(spline, direction, degree, checking.options.degree);
  }
  double knot = 0;
  int most = degree;
  spans.visit_inner([&](double value, int multiplicity) {
    if (multiplicity <= most) return;
    most = multiplicity;
    knot = value;
  });
  if (most > degree) checking.tag<igsShapeKnotMultiplicity>(spline, direction, knot, most, degree);
  const double range = spans.high() - spans.low();
  double least = short_span * range;
  int shortest = -1;
  for (int i = spans.order - 1; i < spans.end; ++i) {
    const double length = spans.knot(i + 1) - spans.knot(i);
    if (!(length > 0) || !(length < least)) continue;
    least = length;
    shortest = i;
  }
  if (shortest >= 0) checking.tag<igsShapeShortSpan>(spline, direction, shortest, least, range);
}

/// Corners are what splines of degree 1 are for.
std::vector<Joint> joints_of(const igsKnotVector& vector) {
  std::vector<Joint> joints;
  const Spans spans(vector);
  const int degree = spans.order - 1;
  if (degree < 1) return joints;
  spans.visit_inner([&](double value, int multiplicity) {
    if (multiplicity >= degree) joints.push_back({value, multiplicity > degree, degree > 1});
  });
  std::erase_if(joints, [](const Joint& joint) { return !joint.may_gape && !joint.may_kink; });
  return joints;
}

/// The widest gap and the sharpest kink of a spline in one direction.
struct Joined {
  double gap = 0, gap_at = 0;
  double kink = 0, kink_at = 0;

  void add_gap(double size, double parameter) {
    if (!(size > gap)) return;
    gap = size;
    gap_at = parameter;
  }
  void add_kink(double angle, double parameter) {
    if (!(angle > kink)) return;
    kink = angle;
    kink_at = parameter;
  }
  void tag(igsShapeChecking& checking, const igsObject& spline, int direction) const {
    checking.tag_distance<igsShapeSplineGap>(spline, gap, direction, gap_at);
    const double most = checking.options.angle;
    if (kink > most) checking.tag<igsShapeKink>(spline, direction, kink, most, kink_at);
  }
};

/// False for a derivative that moves nothing over the range, whose direction is noise.
bool has_direction(const igsShapeChecking& checking, const igsVec3& derivative, const igsRange& range) {
  return derivative.length() * range.length() > checking.options.tolerance;
}

void check_curve_joints(igsShapeChecking& checking, const igsObject& spline, const std::vector<Joint>& joints) {
  if (joints.empty()) return;
  const igsShapeCurvePtr curve = checking.shapes.curve(&spline);
  if (curve == nullptr) return;
  const igsRange range = curve->range();
  Joined worst;
  for (const Joint& joint : joints) {
    if (!(joint.parameter > range.low && joint.parameter < range.high)) continue;
    const igsCurvePoint before = curve->at(joint.parameter, igsSide::before), after = curve->at(joint.parameter);
    const double gap = (after.point - before.point).length();
    if (joint.may_gape) worst.add_gap(gap, joint.parameter);
    if (!joint.may_kink || gap > checking.options.tolerance) continue;
    if (!has_direction(checking, before.first, range) || !has_direction(checking, after.first, range)) continue;
    worst.add_kink(before.first.angle_to(after.first), joint.parameter);
  }
  worst.tag(checking, spline, 0);
}

/// The breaks and the middles between them.
std::vector<double> samples_along(const igsSurfaceDirection& direction) {
  std::vector<double> samples;
  for (std::size_t i = 0; i + 1 < direction.breaks.size(); ++i) {
    samples.push_back(direction.breaks[i]);
    samples.push_back((direction.breaks[i] + direction.breaks[i + 1]) / 2);
  }
  samples.push_back(direction.range.high);
  return samples;
}

/// The normal, where it can be told from noise.
std::optional<igsVec3> normal_at(const igsShapeChecking& checking, const igsShapeSurface& surface,
                                 const igsSurfacePoint& at) {
  constexpr double least_sine = 1e-6;
  if (!has_direction(checking, at.u, surface.u().range) || !has_direction(checking, at.v, surface.v().range)) {
    return std::nullopt;
  }
  const igsVec3 normal = at.u.unit().cross(at.v.unit());
  return normal.length() > least_sine ? std::optional(normal) : std::nullopt;
}

void check_surface_joints(igsShapeChecking& checking, const igsObject& spline, int direction,
                          const std::vector<Joint>& joints) {
  if (joints.empty()) return;
  const igsShapeSurfacePtr surface = checking.shapes.surface(&spline);
  if (surface == nullptr) return;
  const igsRange range = direction == 0 ? surface->u().range : surface->v().range;
  const std::vector<double> samples = samples_along(direction == 0 ? surface->v() : surface->u());
  const auto at = [&](double along, double across, igsSide side) {
    return direction == 0 ? surface->at(along, across, side) : surface->at(across, along, igsSide::after, side);
  };
  Joined worst;
  for (const Joint& joint : joints) {
    if (!(joint.parameter > range.low && joint.parameter < range.high)) continue;
    for (const double across : samples) {
      const igsSurfacePoint before = at(joint.parameter, across, igsSide::before);
      const igsSurfacePoint after = at(joint.parameter, across, igsSide::after);
      const double gap = (after.point - before.point).length();
      if (joint.may_gape) worst.add_gap(gap, joint.parameter);
      if (!joint.may_kink || gap > checking.options.tolerance) continue;
      const auto first = normal_at(checking, *surface, before), second = normal_at(checking, *surface, after);
      if (first && second) worst.add_kink(first->angle_to(*second), joint.parameter);
    }
  }
  worst.tag(checking, spline, direction);
}

/// The position of the first of as many equal points in a row as a span of some length is made of; -1 where there are
/// none. `same(i)`: point i is the one before it. All points of a row may be one, where a surface has a pole.
template <class Same>
int coincident(const Spans& spans, bool may_be_one, Same same) {
  int run = 0, found = -1;
  bool all = true;
  for (int i = 1; i < spans.end; ++i) {
    run = same(i) ? run + 1 : 0;
    all = all && run > 0;
    if (found < 0 && i >= spans.order - 1 && run >= spans.order - 1 && spans.knot(i) < spans.knot(i + 1)) {
      found = i - spans.order + 1;
    }
  }
  return all && may_be_one ? -1 : found;
}

void check_poles(igsShapeChecking& checking, const igs126& curve) {
  const Spans spans(curve.direction());
  giPoint3 one, other;
  const auto same = [&](int i) {
    return curve.control_point(i - 1, one) != 0 && curve.control_point(i, other) != 0 && one == other;
  };
  const int found = coincident(spans, false, same);
  if (found >= 0) checking.tag<igsShapeCoincidentPoles>(curve, 0, found, 0);
}

void check_poles(igsShapeChecking& checking, const igs128& surface) {
  const Spans u(surface.direction_u()), v(surface.direction_v());
  giPoint3 one, other;
  const auto are_same = [&](int i, int j, int k, int l) {
    return surface.control_point(i, j, one) != 0 && surface.control_point(k, l, other) != 0 && one == other;
  };
  for (int j = 0; j < v.end; ++j) {
    const int found = coincident(u, true, [&](int i) { return are_same(i - 1, j, i, j); });
    if (found >= 0) return checking.tag<igsShapeCoincidentPoles>(surface, 0, found, j);
  }
  for (int i = 0; i < u.end; ++i) {
    const int found = coincident(v, true, [&](int j) { return are_same(i, j - 1, i, j); });
    if (found >= 0) return checking.tag<igsShapeCoincidentPoles>(surface, 1, i, found);
  }
}

/// Of a polyline over the samples; no longer looked at once it is `enough`.
template <class Point>
double length_of_side(const std::vector<double>& samples, double enough, Point point) {
  double length = 0;
  igsVec3 last = point(samples.front());
  for (std::size_t i = 1; i < samples.size() && length < enough; ++i) {
    const igsVec3 next = point(samples[i]);
    length += (next - last).length();
    last = next;
  }
  return length;
}

void check_sides(igsShapeChecking& checking, const igsObject& entity) {
  const igsShapeSurfacePtr surface = checking.shapes.surface(&entity);
  if (surface == nullptr || !surface->is_finite()) return;
  const double limit = checking.options.tolerance;
  for (int side = 0; side < 4; ++side) {
    const igsRange across = side < 2 ? surface->u().range : surface->v().range;
    const double at = side % 2 == 0 ? across.low : across.high;
    const auto point = [&](double t) { return surface->point(side < 2 ? igsVec2{at, t} : igsVec2{t, at}); };
    const double length = length_of_side(samples_along(side < 2 ? surface->v() : surface->u()), limit, point);
    if (length > checking.options.least && length < limit) {
      checking.tag<igsShapeShortSide>(entity, length, limit, side);
    }
  }
}

void check_spline(igsShapeChecking& checking, const igs126& curve, bool is_parametric) {
  check_knots(checking, curve, 0, curve.direction());
  if (is_parametric) return;
  check_curve_joints(checking, curve, joints_of(curve.direction()));
  check_poles(checking, curve);
}

void check_spline(igsShapeChecking& checking, const igs112& curve) {
  bool is_bent = false;
  igsCubicSegment segment;
  for (int i = 0; curve.segment(i, segment) != 0; ++i) {
    for (const igsPolynomial<4>* polynomial : {&segment.x, &segment.y, &segment.z}) {
      is_bent = is_bent || (*polynomial)[2] != 0 || (*polynomial)[3] != 0;
    }
  }
  std::vector<Joint> joints;
  double parameter = 0;
  for (int i = 1; i < curve.number_of_segments() && curve.break_point(i, parameter) != 0; ++i) {
    joints.push_back({parameter, true, is_bent});
  }
  check_curve_joints(checking, curve, joints);
}

void check_spline(igsShapeChecking& checking, const igs128& surface) {
  check_knots(checking, surface, 0, surface.direction_u());
  check_knots(checking, surface, 1, surface.direction_v());
  check_surface_joints(checking, surface, 0, joints_of(surface.direction_u()));
  check_surface_joints(checking, surface, 1, joints_of(surface.direction_v()));
  check_poles(checking, surface);
  igs_check_normals(checking, surface);
}

void check_spline(igsShapeChecking& checking, const igs114& surface) {
  bool is_bent_u = false, is_bent_v = false;
  igsBicubicPatch patch;
  for (int i = 0; i < surface.number_of_patches_u(); ++i) {
    for (int j = 0; j < surface.number_of_patches_v() && surface.patch(i, j, patch) != 0; ++j) {
      for (const igsPolynomial<16>* polynomial : {&patch.x, &patch.y, &patch.z}) {
        for (std::size_t k = 2; k < 16; ++k) {
          if ((*polynomial)[k] == 0) continue;
          is_bent_u = is_bent_u || k % 4 > 1;
          is_bent_v = is_bent_v || k / 4 > 1;
        }
      }
    }
  }
  std::vector<Joint> u, v;
  double parameter = 0;
  for (int i = 1; i < surface.number_of_patches_u() && surface.break_point_u(i, parameter) != 0; ++i) {
    u.push_back({parameter, true, is_bent_u});
  }
  for (int j = 1; j < surface.number_of_patches_v() && surface.break_point_v(j, parameter) != 0; ++j) {
    v.push_back({parameter, true, is_bent_v});
  }
  check_surface_joints(checking, surface, 0, u);
  check_surface_joints(checking, surface, 1, v);
  igs_check_normals(checking, surface);
}
}  // namespace

void igs_check_splines(igsShapeChecking& checking) {
  for (const igsShownEntity& shown : igs_shown_entities(checking.model)) {
    if (const auto* const curve = igs_cast<igs126>(shown.entity)) {
      check_spline(checking, *curve, shown.is_parametric);
    } else if (const auto* const segments = igs_cast<igs112>(shown.entity)) {
      if (!shown.is_parametric) check_spline(checking, *segments);
    } else if (const auto* const surface = igs_cast<igs128>(shown.entity)) {
      check_spline(checking, *surface);
    } else if (const auto* const patches = igs_cast<igs114>(shown.entity)) {
      check_spline(checking, *patches);
    }
    if (igs_cast<igsParameterizedSurface>(shown.entity) != nullptr) check_sides(checking, *shown.entity);
  }
}
