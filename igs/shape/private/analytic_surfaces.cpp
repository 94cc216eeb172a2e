#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <optional>

#include "igs/curves/igs116.h"
#include "igs/curves/igs123.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/igsPlacement.h"
#include "igs/shape/private/igsShapeMakers.h"
#include "igs/shape/private/igsVecOf.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs190.h"
#include "igs/surfaces/igs192.h"
#include "igs/surfaces/igs194.h"
#include "igs/surfaces/igs196.h"
#include "igs/surfaces/igs198.h"

namespace {
constexpr double degree = std::numbers::pi / 180;
constexpr double boundless = std::numeric_limits<double>::infinity();
constexpr double smallest_sine = 1e-12;  // between directions that are not parallel

/// Where an analytic surface stands; the axes are square to each other and of length 1.
struct SurfaceFrame {
  igsVec3 origin, x, y, z;
};

/// A vector of length 1 that is square to `z`, which has that length, too.
igsVec3 any_square_to(const igsVec3& z) {
  const igsVec3 size{std::abs(z.x), std::abs(z.y), std::abs(z.z)};
  const igsVec3 far = size.x <= size.y && size.x <= size.z ? igsVec3{1, 0, 0}
                      : size.y <= size.z                   ? igsVec3{0, 1, 0}
                                                           : igsVec3{0, 0, 1};
  return (far - z * z.dot(far)).unit();
}

class PlaneShape final : public igsShapeSurface {
 public:
  PlaneShape(const SurfaceFrame& frame, const igsRange& u, const igsRange& v)
      : igsShapeSurface({.range = u, .breaks = {}}, {.range = v, .breaks = {}}), m_frame(frame) {}

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide, igsSide) const override {
    return {m_frame.origin + m_frame.x * u + m_frame.y * v, m_frame.x, m_frame.y, {}, {}, {}};
  }

 private:
  SurfaceFrame m_frame;
};

/// A meridian in the plane of axis and radius: a point with its derivatives.
struct MeridianPoint {
  double radius, radius_first, radius_second;
  double height, height_first, height_second;
};

/// Of cylinders and cones.
struct StraightMeridian {
  double radius, slope;

  MeridianPoint at(double v) const { return {radius + slope * v, slope, 0, v, 1, 0}; }
};

/// Of spheres, whose major radius is 0, and tori.
struct RoundMeridian {
  double major, minor;

  MeridianPoint at(double v) const {
    const double c = minor * std::cos(v * degree), s = minor * std::sin(v * degree);
    return {major + c, -s * degree, -c * degree * degree, s, c * degree, -s * degree * degree};
  }
};

/// A meridian turned about the z axis of the frame; u is the angle from the x axis. IGES 5.3 has degrees here.
template <class Meridian>
class RoundShape final : public igsShapeSurface {
 public:
  RoundShape(const SurfaceFrame& frame, const Meridian& meridian, const igsSurfaceDirection& v)
      : igsShapeSurface({.range = {0, 360}, .breaks = {}, .is_closed = true}, v),
        m_frame(frame),
        m_meridian(meridian) {}

 protected:
  igsSurfacePoint evaluate(double u, double v, igsSide, igsSide) const override {
    const double c = std::cos(u * degree), s = std::sin(u * degree);
    const igsVec3 out = m_frame.x * c + m_frame.y * s, along = m_frame.y * c - m_frame.x * s, &up = m_frame.z;
    const MeridianPoint at = m_meridian.at(v);
    return {m_frame.origin + out * at.radius + up * at.height,
            along * (at.radius * degree),
            out * at.radius_first + up * at.height_first,
            out * (-at.radius * degree * degree),
            along * (at.radius_first * degree),
            out * at.radius_second + up * at.height_second};
  }

 private:
  SurfaceFrame m_frame;
  Meridian m_meridian;
};

template <class Meridian>
igsShapeSurfacePtr round_shape(const std::optional<SurfaceFrame>& frame, const Meridian& meridian,
                               const igsSurfaceDirection& v) {
  if (!frame) return nullptr;
  return std::make_shared<RoundShape<Meridian>>(*frame, meridian, v);
}

std::optional<igsVec3> location_of(const igsObjectPtr& pointer) {
  const auto* const entity = igs_cast<igs116>(pointer.object());
  if (entity == nullptr) return std::nullopt;
  const igsVec3 placed = igsPlacement::of(*entity).point(igs_vec_of(entity->point()));
  return placed.is_finite() ? std::optional(placed) : std::nullopt;
}

/// Zero where there is no direction.
igsVec3 direction_of(const igsObjectPtr& pointer) {
  const auto* const entity = igs_cast<igs123>(pointer.object());
  if (entity == nullptr) return {};
  return igsPlacement::of(*entity).vector(igs_vec_of(entity->direction()).unit()).unit();
}

/// About the axis; x is the reference direction made square to it, in form 0 any direction that is.
template <class Surface>
std::optional<SurfaceFrame> frame_of(const Surface& surface) {
  const std::optional<igsVec3> location = location_of(surface.location());
  igsVec3 z{0, 0, 1};  // of a sphere without an axis
  if constexpr (requires { surface.axis(); }) z = direction_of(surface.axis());
  if (!location || z == igsVec3()) return std::nullopt;
  igsVec3 x = any_square_to(z);
  if constexpr (requires { surface.ref_direction(); }) {
    const igsVec3 reference = direction_of(surface.ref_direction());
    const igsVec3 square = reference - z * z.dot(reference);
    if (!(square.length() > smallest_sine)) return std::nullopt;
    x = square.unit();
  }
  return SurfaceFrame{*location, x, z.cross(x), z};
}

bool is_usable_size(double size) { return size > 0 && std::isfinite(size); }

template <class Plane>
igsShapeSurfacePtr plane(const Plane& surface) {
  const std::optional<SurfaceFrame> frame = frame_of(surface);
  if (!frame) return nullptr;
  const igsRange all{-boundless, boundless};
  return std::make_shared<PlaneShape>(*frame, all, all);
}

template <class Cylinder>
igsShapeSurfacePtr cylinder(const Cylinder& surface) {
  if (!is_usable_size(surface.radius())) return nullptr;
  return round_shape(frame_of(surface), StraightMeridian{surface.radius(), 0},
                     {.range = {-boundless, boundless}, .breaks = {}});
}

template <class Cone>
igsShapeSurfacePtr cone(const Cone& surface) {
  const double radius = surface.radius(), angle = surface.semi_angle();
  if (!(radius >= 0) || !std::isfinite(radius) || !(angle > 0) || !(angle < 90)) return nullptr;
  const double slope = std::tan(angle * degree);
  if (!std::isfinite(radius / slope)) return nullptr;
  return round_shape(frame_of(surface), StraightMeridian{radius, slope},
                     {.range = {-radius / slope, boundless}, .breaks = {}, .has_pole_low = true});
}

template <class Sphere>
igsShapeSurfacePtr sphere(const Sphere& surface) {
  if (!is_usable_size(surface.radius())) return nullptr;
  return round_shape(frame_of(surface), RoundMeridian{0, surface.radius()},
                     {.range = {-90, 90}, .breaks = {}, .has_pole_low = true, .has_pole_high = true});
}

template <class Torus>
igsShapeSurfacePtr torus(const Torus& surface) {
  if (!is_usable_size(surface.major_radius()) || !is_usable_size(surface.minor_radius())) return nullptr;
  return round_shape(frame_of(surface), RoundMeridian{surface.major_radius(), surface.minor_radius()},
                     {.range = {0, 360}, .breaks = {}, .is_closed = true});
}
}  // namespace

// u and v are lengths along two directions that the normal settles, from the point that is nearest to the origin.
igsShapeSurfacePtr igs_make_shape(const igs108& plane, igsShapes&) {
  const igsVec3 normal{plane.a(), plane.b(), plane.c()};
  const double size = normal.length();
  if (igs_is_undefined_real(plane.a()) || igs_is_undefined_real(plane.b()) || igs_is_undefined_real(plane.c()) ||
      igs_is_undefined_real(plane.d()) || !is_usable_size(size) || !std::isfinite(plane.d() / size)) {
    return nullptr;
  }
  const igsVec3 z = normal.unit(), x = any_square_to(z);
  const igsRange all{-boundless, boundless};
  return std::make_shared<PlaneShape>(SurfaceFrame{z * (plane.d() / size), x, z.cross(x), z}, all, all);
}

igsShapeSurfacePtr igs_make_shape(const igs190_0& surface, igsShapes&) { return plane(surface); }
igsShapeSurfacePtr igs_make_shape(const igs190_1& surface, igsShapes&) { return plane(surface); }
igsShapeSurfacePtr igs_make_shape(const igs192_0& surface, igsShapes&) { return cylinder(surface); }
igsShapeSurfacePtr igs_make_shape(const igs192_1& surface, igsShapes&) { return cylinder(surface); }
igsShapeSurfacePtr igs_make_shape(const igs194_0& surface, igsShapes&) { return cone(surface); }
igsShapeSurfacePtr igs_make_shape(const igs194_1& surface, igsShapes&) { return cone(surface); }
igsShapeSurfacePtr igs_make_shape(const igs196_0& surface, igsShapes&) { return sphere(surface); }
igsShapeSurfacePtr igs_make_shape(const igs196_1& surface, igsShapes&) { return sphere(surface); }
igsShapeSurfacePtr igs_make_shape(const igs198_0& surface, igsShapes&) { return torus(surface); }
igsShapeSurfacePtr igs_make_shape(const igs198_1& surface, igsShapes&) { return torus(surface); }
