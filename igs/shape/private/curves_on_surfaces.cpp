#include <memory>
#include <utility>

#include "igs/shape/private/igsComposedCurves.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/surfaces/igs142.h"

namespace {
constexpr int parameter_space_preferred = 1;

/// The side of a value on which a curve is that moves there with this first and second derivative.
igsSide side_of_motion(double first, double second, igsSide side) {
  const bool is_ahead = side == igsSide::after;
  if (first != 0) return (first > 0) == is_ahead ? igsSide::after : igsSide::before;
  return second < 0 ? igsSide::before : igsSide::after;
}

class CurveOnSurface final : public igsShapeCurve {
 public:
  CurveOnSurface(igsShapeSurfacePtr surface, igsShapeCurvePtr curve)
      : igsShapeCurve(curve->range(), curve->breaks()), m_surface(std::move(surface)), m_curve(std::move(curve)) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide side) const override {
    const igsCurvePoint uv = m_curve->at(t, side);
    const igsVec3 &d = uv.first, &dd = uv.second;
    const igsSurfacePoint at =
        m_surface->at(uv.point.x, uv.point.y, side_of_motion(d.x, dd.x, side), side_of_motion(d.y, dd.y, side));
    return {at.point, at.u * d.x + at.v * d.y,
            at.uu * (d.x * d.x) + at.uv * (2 * d.x * d.y) + at.vv * (d.y * d.y) + at.u * dd.x + at.v * dd.y};
  }

 private:
  igsShapeSurfacePtr m_surface;
  igsShapeCurvePtr m_curve;
};
}  // namespace

igsShapeCurvePtr igs_curve_on_surface(const igsShapeSurfacePtr& surface, const igsShapeCurvePtr& parameter_curve,
                                      igsShapes& shapes) {
  if (surface == nullptr || parameter_curve == nullptr || !parameter_curve->range().is_finite()) return nullptr;
  if (!shapes.may_add(parameter_curve->breaks().size())) return nullptr;
  return std::make_shared<CurveOnSurface>(surface, parameter_curve);
}

// The curve in model space, unless the sender prefers the other; what one of them does not give the other may.
igsShapeCurvePtr igs_make_shape(const igs142& entity, igsShapes& shapes) {
  const auto model = [&] { return shapes.curve(entity.curve_3d().object()); };
  const auto parameter = [&] {
    return igs_curve_on_surface(shapes.surface(entity.surface().object()), shapes.curve(entity.curve_2d().object()),
                                shapes);
  };
  const bool prefers_parameter = entity.preferred_representation() == parameter_space_preferred;
  igsShapeCurvePtr shape = prefers_parameter ? parameter() : model();
  if (shape == nullptr) shape = prefers_parameter ? model() : parameter();
  return shape;
}
