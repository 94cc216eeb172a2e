#include "igs/shape/private/igsPlacedShapes.h"

#include <utility>

namespace {
class PlacedCurve final : public igsShapeCurve {
 public:
  PlacedCurve(igsShapeCurvePtr curve, const igsPlacement& placement)
      : igsShapeCurve(curve->range(), curve->breaks()), m_curve(std::move(curve)), m_placement(placement) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide side) const override {
    const igsCurvePoint at = m_curve->at(t, side);
    return {m_placement.point(at.point), m_placement.vector(at.first), m_placement.vector(at.second)};
  }
  igsVec3 evaluate_point(double t, igsSide side) const override { return m_placement.point(m_curve->point(t, side)); }

 private:
  igsShapeCurvePtr m_curve;
  igsPlacement m_placement;
};

class PlacedSurface final : public igsShapeSurface {
 public:
  PlacedSurface(igsShapeSurfacePtr surface, const igsPlacement& placement)
      : igsShapeSurface(surface->u(), surface->v()), m_surface(std::move(surface)), m_placement(placement) {}

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide side_u, igsSide side_v) const override {
    const igsSurfacePoint at = m_surface->at(u, v, side_u, side_v);
    const auto placed = [&](const igsVec3& vector) { return m_placement.vector(vector); };
    return {m_placement.point(at.point), placed(at.u), placed(at.v), placed(at.uu), placed(at.uv), placed(at.vv)};
  }
  igsVec3 evaluate_point(double u, double v, igsSide side_u, igsSide side_v) const override {
    return m_placement.point(m_surface->point(u, v, side_u, side_v));
  }

 private:
  igsShapeSurfacePtr m_surface;
  igsPlacement m_placement;
};
}  // namespace

igsShapeCurvePtr igs_placed(igsShapeCurvePtr curve, const igsPlacement& placement) {
  if (curve == nullptr || placement.is_identity()) return curve;
  return std::make_shared<PlacedCurve>(std::move(curve), placement);
}

igsShapeSurfacePtr igs_placed(igsShapeSurfacePtr surface, const igsPlacement& placement) {
  if (surface == nullptr || placement.is_identity()) return surface;
  return std::make_shared<PlacedSurface>(std::move(surface), placement);
}
