#include <cmath>
#include <memory>
#include <utility>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsSpanOf.h"
#include "igs/shape/private/igsVecOf.h"
#include "igs/solids/igs510.h"
#include "igs/surfaces/igs140.h"
#include "igs/surfaces/igs143.h"
#include "igs/surfaces/igs144.h"

namespace {
constexpr double smallest_angle = 1e-10;  // between partials that span a plane

/// The middle of a range; of one without ends, 0 or what is nearest to it.
double middle_of(const igsRange& range) { return range.is_finite() ? range.at(0.5) : range.clamp(0); }

double moved_inwards(const igsRange& range, double t) {
  const double step = 1e-7 * (range.is_finite() ? range.length() : 1);
  return t < middle_of(range) ? t + step : t - step;
}

/// A normal of length 1 with its partials; zero where the surface has none.
struct Normal {
  igsVec3 normal, u, v;

  explicit Normal(const igsSurfacePoint& at) {
    const igsVec3 square = at.u.cross(at.v);
    const double size = square.length();
    if (!(size > smallest_angle * at.u.length() * at.v.length())) return;
    normal = square * (1 / size);
    const auto partial = [&](const igsVec3& change) { return (change - normal * normal.dot(change)) * (1 / size); };
    u = partial(at.uu.cross(at.v) + at.u.cross(at.uv));
    v = partial(at.uv.cross(at.v) + at.u.cross(at.vv));
  }
};

/// As the base has it; offsets of poles need not be poles.
igsSurfaceDirection offset_direction(igsSurfaceDirection direction) {
  direction.has_pole_low = direction.has_pole_high = false;
  return direction;
}

class OffsetSurface final : public igsShapeSurface {
 public:
  OffsetSurface(igsShapeSurfacePtr base, double distance)
      : igsShapeSurface(offset_direction(base->u()), offset_direction(base->v())),
        m_base(std::move(base)),
        m_distance(distance) {
    find_seams_and_poles();
  }

 protected:
  // The second partials are differences of the first ones.
  igsSurfacePoint evaluate(double at_u, double at_v, igsSide side_u, igsSide side_v) const override {
    igsSurfacePoint at = first_partials(at_u, at_v, side_u, side_v);
    const double du = step(u(), at_u, side_u), dv = step(v(), at_v, side_v);
    const igsSurfacePoint by_u = first_partials(at_u + du, at_v, side_u, side_v);
    const igsSurfacePoint by_v = first_partials(at_u, at_v + dv, side_u, side_v);
    at.uu = (by_u.u - at.u) * (1 / du);
    at.uv = (by_u.v - at.v) * (1 / du);
    at.vv = (by_v.v - at.v) * (1 / dv);
    return at;
  }

 private:
  /// Where there is no normal, at a pole, that beside it counts.
  igsSurfacePoint first_partials(double at_u, double at_v, igsSide side_u, igsSide side_v) const {
    const igsSurfacePoint at = m_base->at(at_u, at_v, side_u, side_v);
    Normal normal(at);
    if (normal.normal == igsVec3()) {
      normal = Normal(m_base->at(moved_inwards(u().range, at_u), moved_inwards(v().range, at_v), side_u, side_v));
    }
    return {
        at.point + normal.normal * m_distance, at.u + normal.u * m_distance, at.v + normal.v * m_distance, {}, {}, {}};
  }
  /// A short way from `t` that stays in its piece.
  static double step(const igsSurfaceDirection& direction, double t, igsSide side) {
    if (direction.breaks.empty()) return 1e-7;
    const std::size_t i = igs_span_of(direction.breaks, t, side);
    const igsRange piece{direction.breaks[i], direction.breaks[i + 1]};
    return (t < piece.at(0.5) ? 1e-7 : -1e-7) * piece.length();
  }

  igsShapeSurfacePtr m_base;
  double m_distance;
};

std::size_t pieces_of(const igsShapeSurface& surface) { return surface.u().breaks.size() + surface.v().breaks.size(); }

/// Under a matrix of the face it will be a surface of its own.
igsShapeSurfacePtr surface_of_face(const igsObject& face, const igsObjectPtr& pointer, igsShapes& shapes) {
  igsShapeSurfacePtr surface = shapes.surface(pointer.object());
  if (surface == nullptr) return nullptr;
  const bool is_moved = face.directory_entry().matrix().object() != nullptr;
  return shapes.may_add(is_moved ? pieces_of(*surface) : 0) ? surface : nullptr;
}
}  // namespace

// The indicator tells on which side of the middle of the surface a positive distance lies. The parameters are those of
// the surface. An offset of an offset is refused: a chain of them would take three times as long at each step.
igsShapeSurfacePtr igs_make_shape(const igs140& surface, igsShapes& shapes) {
  if (igs_cast<igs140>(surface.surface().object()) != nullptr) return nullptr;
  igsShapeSurfacePtr base = shapes.surface(surface.surface().object());
  const igsVec3 indicator = igs_vec_of(surface.indicator());
  if (base == nullptr || !indicator.is_finite()) return nullptr;
  if (igs_is_undefined_real(surface.distance()) || !std::isfinite(surface.distance())) return nullptr;
  if (!shapes.may_add(pieces_of(*base))) return nullptr;
  const igsVec3 normal = base->at(middle_of(base->u().range), middle_of(base->v().range)).normal();
  const double side = normal.dot(indicator);
  if (!(side != 0)) return nullptr;
  return std::make_shared<OffsetSurface>(std::move(base), side > 0 ? surface.distance() : -surface.distance());
}

igsShapeSurfacePtr igs_make_shape(const igs143& face, igsShapes& shapes) {
  return surface_of_face(face, face.basis_surface(), shapes);
}
igsShapeSurfacePtr igs_make_shape(const igs144& face, igsShapes& shapes) {
  return surface_of_face(face, face.surface(), shapes);
}
igsShapeSurfacePtr igs_make_shape(const igs510& face, igsShapes& shapes) {
  return surface_of_face(face, face.surface(), shapes);
}
