// Builds the file surfaces.igs with the library: a trimmed and a bounded surface, and surfaces of other kinds beside
// them.
//   make_surfaces > surfaces.igs
#include <numbers>

#include "sample.h"

namespace {

using sample::arc;
using sample::circle;
using sample::direction;
using sample::line;
using sample::part;
using sample::point;

/// The rectangle from the origin to (60, 40), whose parameters are x and y.
igs128* add_rectangle() {
  auto* surface = part(new igs128);
  surface->set_order_size(2, 2, 2, 2);
  for (int i = 0; i < 4; ++i) {
    surface->set_knot_u(i, i < 2 ? 0 : 60);
    surface->set_knot_v(i, i < 2 ? 0 : 40);
    surface->set_control_point(i / 2, i % 2, giPoint3(i < 2 ? 0 : 60, i % 2 == 0 ? 0 : 40, 0));
    surface->set_weight(i / 2, i % 2, 1);
  }
  surface->set_parametric_limits_u(0, 60);
  surface->set_parametric_limits_v(0, 40);
  surface->set_rational_flag(1);  // 1 says polynomial
  return surface;
}

/// The four sides of the rectangle, as curves in space or, with that use, in the parameters of the surface.
igs102* add_border(igsEntityUse use) {
  const giPoint3 corners[] = {{0, 0, 0}, {60, 0, 0}, {60, 40, 0}, {0, 40, 0}};
  return part(sample::composite({line(corners[0], corners[1]), line(corners[1], corners[2]),
                                 line(corners[2], corners[3]), line(corners[3], corners[0])},
                                use),
              use);
}

igs142* add_boundary(igs128* surface, igsObject* parameter_curve, igsObject* model_curve) {
  auto* boundary = part(new igs142);
  boundary->set_curve_creation(0);
  boundary->set_surface(igsObjectPtr(surface));
  boundary->set_curve_2d(igsObjectPtr(parameter_curve));
  boundary->set_curve_3d(igsObjectPtr(model_curve));
  boundary->set_preferred_representation(3);
  return boundary;
}

/// The rectangle with a round hole.
void add_trimmed_surface() {
  igs128* surface = add_rectangle();
  auto* trimmed = new igs144;
  trimmed->set_surface(igsObjectPtr(surface));
  trimmed->set_outer_boundary_flag(1);
  igsObject* border_in_space = add_border(igsStatusFlags::use_geometry);
  igsObject* border = add_border(igsStatusFlags::use_2d_parametric);
  trimmed->set_outer_boundary(igsObjectPtr(add_boundary(surface, border, border_in_space)));
  igsObject* hole = part(circle(giPoint2(30, 20), 8), igsStatusFlags::use_2d_parametric);
  igsObject* hole_in_space = part(circle(giPoint2(30, 20), 8));
  trimmed->set_inner_boundaries({igsObjectPtr(add_boundary(surface, hole, hole_in_space))});
}

/// A triangle of the plane z = 20.
void add_bounded_surface() {
  auto* plane = part(new igs108);
  plane->set_coefficients(0, 0, 1, 20);
  const giPoint3 corners[] = {{0, 0, 20}, {60, 0, 20}, {0, 40, 20}};

  auto* boundary = part(new igs141);
  boundary->set_bounded_surface_representation(0);  // curves in space alone
  boundary->set_surface(igsObjectPtr(plane));
  boundary->set_size(3);
  for (int i = 0; i < 3; ++i) {
    igsModelSpaceCurve curve;
    curve.set_curve(igsObjectPtr(part(line(corners[i], corners[(i + 1) % 3]))));
    boundary->set_model_space_curve(i, &curve);
  }
  auto* bounded = new igs143;
  bounded->set_surface_representation(0);
  bounded->set_basis_surface(igsObjectPtr(plane));
  bounded->set_size(1);
  bounded->set_boundary(0, igsObjectPtr(boundary));
}

/// Surfaces that a curve makes when it is joined to another, turned, and moved; and one beside another.
void add_swept_surfaces() {
  auto* ruled = new igs118;
  ruled->set_first_curve(igsObjectPtr(part(line(giPoint3(100, 0, 0), giPoint3(140, 0, 0)))));
  ruled->set_second_curve(igsObjectPtr(part(line(giPoint3(100, 40, 0), giPoint3(140, 40, 20)))));

  auto* revolved = new igs120;
  revolved->set_axis(igsObjectPtr(part(line(giPoint3(180, 0, 0), giPoint3(180, 0, 10)))));
  revolved->set_generator(igsObjectPtr(part(line(giPoint3(200, 0, 0), giPoint3(190, 0, 30)))));
  revolved->set_start_angle(0);
  revolved->set_terminate_angle(std::numbers::pi / 2);

  auto* extruded = part(new igs122);
  extruded->set_directrix(igsObjectPtr(part(arc(giPoint2(240, 0), giPoint2(260, 0), giPoint2(220, 0)))));
  extruded->set_terminate_point(giPoint3(260, 0, 30));

  auto* offset = new igs140;
  offset->set_indicator(giVector3(1, 0, 0));
  offset->set_distance(2);
  offset->set_surface(igsObjectPtr(extruded));
}

/// Places an analytic surface upright at (x, 60, 0).
template <class Surface>
Surface* add_upright(double x) {
  auto* surface = new Surface;
  surface->set_location(igsObjectPtr(part(point(giPoint3(x, 60, 0)))));
  surface->set_axis(igsObjectPtr(part(direction(giVector3(0, 0, 1)))));
  surface->set_ref_direction(igsObjectPtr(part(direction(giVector3(1, 0, 0)))));
  return surface;
}

void add_analytic_surfaces() {
  add_upright<igs192_1>(0)->set_radius(15);
  auto* cone = add_upright<igs194_1>(60);
  cone->set_radius(15);
  cone->set_semi_angle(30);
  add_upright<igs196_1>(120)->set_radius(15);
  auto* torus = add_upright<igs198_1>(180);
  torus->set_major_radius(15);
  torus->set_minor_radius(5);
}

}  // namespace

int main() {
  igsFile file;
  sample::describe(file, "surfaces",
                   {"A rectangle with a round hole (trimmed surface), a triangle (bounded surface),",
                    "and ruled, revolved, extruded, offset and analytic surfaces."},
                   300);
  add_trimmed_surface();
  add_bounded_surface();
  add_swept_surfaces();
  add_analytic_surfaces();
  return sample::print(file);
}
