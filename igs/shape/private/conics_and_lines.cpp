#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

#include "igs/curves/igs100.h"
#include "igs/curves/igs104.h"
#include "igs/curves/igs110.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsVecOf.h"

namespace {
constexpr double full_turn = 2 * std::numbers::pi;
// Nobody means so short an arc: rounding has moved the ends of a whole circle apart.
constexpr double least_turn = 1e-10;
constexpr double infinity = std::numeric_limits<double>::infinity();

class LineShape final : public igsShapeCurve {
 public:
  LineShape(const igsVec3& start, const igsVec3& end, const igsRange& range)
      : igsShapeCurve(range), m_start(start), m_end(end) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide) const override {
    const igsVec3 along = m_end - m_start;
    return {t == 1 ? m_end : m_start + along * t, along, {}};
  }

 private:
  igsVec3 m_start, m_end;
};

/// Where a planar curve lies: the origin of its coordinates and their axes, which may be of any length.
struct ConicFrame {
  igsVec3 origin, x, y;
};

/// The unit circle in a frame, by the angle from x to y: a circle or an ellipse. Ends at different distances from the
/// centre, as files round them, are both met.
class EllipseShape final : public igsShapeCurve {
 public:
  EllipseShape(const ConicFrame& frame, const igsRange& angles, double start_radius, double end_radius)
      : igsShapeCurve(angles),
        m_frame(frame),
        m_start_radius(start_radius),
        m_growth((end_radius - start_radius) / angles.length()) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide) const override {
    const double radius = m_start_radius + m_growth * (t - range().low);
    const double cosine = std::cos(t), sine = std::sin(t);
    const igsVec3 out = m_frame.x * cosine + m_frame.y * sine, along = m_frame.y * cosine - m_frame.x * sine;
    return {m_frame.origin + out * radius, along * radius + out * m_growth, along * (2 * m_growth) - out * radius};
  }

 private:
  ConicFrame m_frame;
  double m_start_radius, m_growth;
};

enum class OpenConic { parabola, hyperbola };

/// y = x^2 in a frame, by x, or one branch of y^2 - x^2 = 1, by the angle whose tangent is x. `sense` is -1 where the
/// curve runs against that. Ends beside the curve, as files round them, are met.
class OpenConicShape final : public igsShapeCurve {
 public:
  OpenConicShape(OpenConic kind, const ConicFrame& frame, const igsRange& range, int sense, const igsVec3& from,
                 const igsVec3& to)
      : igsShapeCurve(range), m_kind(kind), m_frame(frame), m_sense(sense) {
    m_drift_start = from - undrifted(range.low).point;
    m_drift_rate = (to - undrifted(range.high).point - m_drift_start) * (1 / range.length());
  }

 protected:
  igsCurvePoint evaluate(double t, igsSide) const override {
    const igsCurvePoint at = undrifted(t);
    return {at.point + m_drift_start + m_drift_rate * (t - range().low), at.first + m_drift_rate, at.second};
  }

 private:
  igsCurvePoint undrifted(double t) const {
    t *= m_sense;
    const igsVec3 &x = m_frame.x, &y = m_frame.y;
    const auto sense = static_cast<double>(m_sense);
    if (m_kind == OpenConic::parabola) {
      return {m_frame.origin + x * t + y * (t * t), (x + y * (2 * t)) * sense, y * 2};
    }
    const double tangent = std::tan(t), secant = 1 / std::cos(t);
    return {m_frame.origin + x * tangent + y * secant, (x * (secant * secant) + y * (secant * tangent)) * sense,
            x * (2 * secant * secant * tangent) + y * (secant * (2 * tangent * tangent + 1))};
  }

  OpenConic m_kind;
  ConicFrame m_frame;
  int m_sense;
  igsVec3 m_drift_start, m_drift_rate;
};

/// The plane and the ends of an arc.
struct Ends {
  double z;
  igsVec2 from, to;
};

/// False where they cannot be used.
bool get_ends(const igsTrimmedConic& arc, Ends& ends) {
  const giPoint2 &from = arc.start_point(), &to = arc.end_point();
  ends.z = igs_is_undefined_real(arc.z_level()) ? 0 : arc.z_level();
  ends.from = {from.x(), from.y()};
  ends.to = {to.x(), to.y()};
  return !from.is_undefined() && !to.is_undefined() && ends.from.is_finite() && ends.to.is_finite() &&
         std::isfinite(ends.z);
}

/// From 0 up to a full turn.
double angle_of(const igsVec2& vector) {
  const double angle = std::atan2(vector.y, vector.x);
  return angle < 0 ? angle + full_turn : angle;
}

/// Counterclockwise between points in the coordinates of the frame. The start angle lies in the first turn, the end
/// angle above it by a turn at most.
igsShapeCurvePtr arc_between(const ConicFrame& frame, const igsVec2& from, const igsVec2& to) {
  const double start_radius = from.length(), end_radius = to.length();
  if (!(start_radius > 0) || !(end_radius > 0) || !from.is_finite() || !to.is_finite()) return nullptr;
  const double start = angle_of(from);
  double end = angle_of(to);
  if (end <= start + least_turn) end += full_turn;
  return std::make_shared<EllipseShape>(frame, igsRange{start, end}, start_radius, end_radius);
}

igsShapeCurvePtr open_conic(OpenConic kind, const ConicFrame& frame, double start, double end, const Ends& ends) {
  const int sense = start <= end ? 1 : -1;
  const igsRange range{start * sense, end * sense};
  if (!range.is_finite() || !(range.length() > 0)) return nullptr;
  return std::make_shared<OpenConicShape>(kind, frame, range, sense, igsVec3{ends.from.x, ends.from.y, ends.z},
                                          igsVec3{ends.to.x, ends.to.y, ends.z});
}

/// A conic a x^2 + c y^2 + d x + e y + f = 0 by axes of its own, the unit vectors x and y.
struct Conic {
  igsVec2 x, y;
  double a, c, d, e, f;

  /// A point that is given by the axes.
  igsVec3 placed(double along_x, double along_y, double z) const {
    const igsVec2 point = x * along_x + y * along_y;
    return {point.x, point.y, z};
  }
  /// The other axis is x.
  Conic swapped() const { return {y, x, c, a, e, d, f}; }
  // Of a conic that has a centre.
  igsVec2 centre() const { return {-d / (2 * a), -e / (2 * c)}; }
  /// a x^2 + c y^2, from the centre.
  double level() const { return d * d / (4 * a) + e * e / (4 * c) - f; }
  igsVec2 from_centre(const igsVec2& p) const { return {p.dot(x) - centre().x, p.dot(y) - centre().y}; }
};

// Without a mixed term the axes stay those of the file, of which IGES 5.3, section 4.4 states the parameters.
Conic on_own_axes(const igsConicCoeffs& coeffs) {
  double k[6];
  coeffs.coeffs(k);
  const double turn = k[1] == 0 ? 0 : std::atan2(k[1], k[0] - k[2]) / 2;
  const double cosine = std::cos(turn), sine = std::sin(turn), mixed = k[1] * cosine * sine;
  return {{cosine, sine},
          {-sine, cosine},
          k[0] * cosine * cosine + mixed + k[2] * sine * sine,
          k[0] * sine * sine - mixed + k[2] * cosine * cosine,
          k[3] * cosine + k[4] * sine,
          k[4] * cosine - k[3] * sine,
          k[5]};
}

/// The conic's centre, and its axes of these lengths.
ConicFrame centred_frame(const Conic& conic, double x, double y, double z) {
  return {conic.placed(conic.centre().x, conic.centre().y, z), conic.placed(x, 0, 0), conic.placed(0, y, 0)};
}

igsShapeCurvePtr ellipse(const Conic& conic, const Ends& ends) {
  const double x = std::sqrt(conic.level() / conic.a), y = std::sqrt(conic.level() / conic.c);
  if (!(x > 0) || !(y > 0) || !std::isfinite(x) || !std::isfinite(y)) return nullptr;
  const igsVec2 from = conic.from_centre(ends.from), to = conic.from_centre(ends.to);
  return arc_between(centred_frame(conic, x, y, ends.z), {from.x / x, from.y / y}, {to.x / x, to.y / y});
}

igsShapeCurvePtr hyperbola(Conic conic, const Ends& ends) {
  if (conic.level() / conic.a > 0) conic = conic.swapped();
  const double x = std::sqrt(-conic.level() / conic.a), y = std::sqrt(conic.level() / conic.c);
  if (!(x > 0) || !(y > 0) || !std::isfinite(x) || !std::isfinite(y)) return nullptr;
  const igsVec2 from = conic.from_centre(ends.from), to = conic.from_centre(ends.to);
  if (from.y * to.y <= 0) return nullptr;  // on both branches
  const double branch = from.y > 0 ? 0 : std::numbers::pi;
  const ConicFrame frame = centred_frame(conic, x, y, ends.z);
  return open_conic(OpenConic::hyperbola, frame, branch + std::atan(from.x / x), branch + std::atan(to.x / x), ends);
}

igsShapeCurvePtr parabola(Conic conic, const Ends& ends) {
  if (std::abs(conic.a) < std::abs(conic.c)) conic = conic.swapped();
  const double x = -conic.d / (2 * conic.a), y = (conic.d * conic.d / (4 * conic.a) - conic.f) / conic.e;
  const double bend = -conic.a / conic.e;
  if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(bend) || bend == 0) return nullptr;
  const ConicFrame frame{conic.placed(x, y, ends.z), conic.placed(1, 0, 0), conic.placed(0, bend, 0)};
  return open_conic(OpenConic::parabola, frame, ends.from.dot(conic.x) - x, ends.to.dot(conic.x) - x, ends);
}

igsConicType told_type(const igs104& conic) {
  switch (conic.directory_entry().form_number()) {
    case 1:
      return igsConicEllipse;
    case 2:
      return igsConicHyperbola;
    case 3:
      return igsConicParabola;
    default:
      return conic.coeffs().conic_type();
  }
}

igsShapeCurvePtr conic_of_type(igsConicType type, const Conic& conic, const Ends& ends) {
  switch (type) {
    case igsConicEllipse:
      return ellipse(conic, ends);
    case igsConicHyperbola:
      return hyperbola(conic, ends);
    case igsConicParabola:
      return parabola(conic, ends);
    case igsConicUnknown:
      break;
  }
  return nullptr;
}
}  // namespace

// The parameter is 0 at the start point and 1 at the end point.
igsShapeCurvePtr igs_make_shape(const igs110& line, igsShapes&) {
  const igsVec3 start = igs_vec_of(line.start_point()), end = igs_vec_of(line.end_point());
  if (!start.is_finite() || !end.is_finite()) return nullptr;
  const igsRange range{line.has_start() ? 0 : -infinity, line.is_bounded() ? 1 : infinity};
  return std::make_shared<LineShape>(start, end, range);
}

igsShapeCurvePtr igs_make_shape(const igs100& arc, igsShapes&) {
  Ends ends;
  const igsVec2 centre{arc.centre().x(), arc.centre().y()};
  if (arc.centre().is_undefined() || !centre.is_finite() || !get_ends(arc, ends)) return nullptr;
  return arc_between({{centre.x, centre.y, ends.z}, {1, 0, 0}, {0, 1, 0}}, ends.from - centre, ends.to - centre);
}

// What the form tells comes first: the sign of a small coefficient may be that of its rounding.
igsShapeCurvePtr igs_make_shape(const igs104& arc, igsShapes&) {
  Ends ends;
  if (!arc.coeffs().valid() || !get_ends(arc, ends)) return nullptr;
  const Conic conic = on_own_axes(arc.coeffs());
  if (igsShapeCurvePtr shape = conic_of_type(told_type(arc), conic, ends)) return shape;
  return conic_of_type(arc.coeffs().conic_type(), conic, ends);
}
