// Builds the file curves.igs with the library: curves of every kind, and points.
//   make_curves > curves.igs
#include <array>
#include <cmath>

#include "sample.h"

namespace {

using sample::arc;
using sample::line;
using sample::part;

/// A slot: lines and arcs, each beginning where the one before it ends.
void add_slot() {
  sample::composite({
      line(giPoint3(0, 0, 0), giPoint3(40, 0, 0)),
      arc(giPoint2(40, 10), giPoint2(40, 0), giPoint2(40, 20)),
      line(giPoint3(40, 20, 0), giPoint3(0, 20, 0)),
      arc(giPoint2(0, 10), giPoint2(0, 20), giPoint2(0, 0)),
  });
}

/// x^2 / 20^2 + y^2 / 10^2 = 1. Conic arcs lie around the origin: a matrix moves this one to (80, 10, 0).
void add_ellipse() {
  const double elements[4][4] = {{1, 0, 0, 80}, {0, 1, 0, 10}, {0, 0, 1, 0}, {0, 0, 0, 1}};
  auto* matrix = part(new igs124);
  matrix->set_matrix(elements);

  auto* ellipse = new igs104;
  ellipse->directory_entry().set_form_number(1);
  ellipse->set_coeffs(igsConicCoeffs(1.0 / 400, 0, 1.0 / 100, 0, 0, -1));
  ellipse->set_z_level(0);
  ellipse->set_start_point(giPoint2(20, 0));
  ellipse->set_end_point(giPoint2(-20, 0));
  ellipse->directory_entry().set_matrix(igsObjectPtr(matrix));
}

/// Copious data: points by themselves, joined in space, and joined in a plane back to the first.
void add_point_lists() {
  auto* points = new igsPointset;
  points->set_size(igsCopiousData::spatial, 3);
  auto* polyline = new igsPolyline;
  polyline->set_size(igsCopiousData::spatial, 3);
  for (int i = 0; i < 3; ++i) {
    points->set_point(i, giPoint3(10 * i, 40, 0));
    polyline->set_point(i, giPoint3(10 * i, 50, i % 2 == 0 ? 0 : 5));
  }

  auto* triangle = new igsSimpleClosedPlanarCurve;
  triangle->set_size(4);
  triangle->set_z_level(0);
  triangle->set_planar_point(0, giPoint2(40, 40));
  triangle->set_planar_point(1, giPoint2(60, 40));
  triangle->set_planar_point(2, giPoint2(50, 55));
  triangle->set_planar_point(3, giPoint2(40, 40));
  sample::point(giPoint3(50, 45, 0));
}

/// A quarter of a circle, exactly: a rational curve of degree 2.
void add_b_spline() {
  auto* curve = new igs126;
  curve->directory_entry().set_form_number(2);  // a circular arc
  curve->set_order_size(3, 3);
  for (int i = 0; i < 6; ++i) curve->set_knot(i, i < 3 ? 0 : 1);
  const std::array<giPoint3, 3> points = {giPoint3(100, 40, 0), giPoint3(100, 60, 0), giPoint3(80, 60, 0)};
  for (int i = 0; i < 3; ++i) {
    curve->set_control_point(i, points[static_cast<std::size_t>(i)]);
    curve->set_weight(i, i == 1 ? std::sqrt(0.5) : 1);
  }
  curve->set_parametric_limits(0, 1);
  curve->set_planar_flag(1);
  curve->set_rational_flag(0);  // 0 says rational
  curve->set_unit_normal(giVector3(0, 0, 1));
}

/// One cubic piece: x = 20 s, y = 80 + 15 s - 15 s^3 for s from 0 to 1.
void add_cubic_spline() {
  auto* spline = new igs112;
  spline->set_dimension(2);
  spline->set_continuity(1);
  spline->set_size(1);
  spline->set_break_point(0, 0);
  spline->set_break_point(1, 1);
  const igsPolynomial<4> x({0, 20, 0, 0}), y({80, 15, 0, -15}), z({0, 0, 0, 0});
  spline->set_segment(0, igsCubicSegment{x, y, z});
  // Value and derivatives at the end, the second divided by 2! and the third by 3!.
  const igsPolynomial<4> x_end({20, 20, 0, 0}), y_end({80, -30, -45, -15});
  spline->set_end_values(igsCubicSegment{x_end, y_end, z});
}

/// 5 beside a line.
void add_offset_curve() {
  auto* offset = new igs130;
  offset->set_base_curve(igsObjectPtr(part(line(giPoint3(40, 80, 0), giPoint3(100, 80, 0)))));
  offset->set_offset_type(1);
  offset->set_distance1(5);
  offset->set_normal(giVector3(0, 0, 1));
  offset->set_start_parameter(0);
  offset->set_end_parameter(1);
}

}  // namespace

int main() {
  igsFile file;
  sample::describe(file, "curves", {"Curves of every kind, and points, in the plane z = 0 and near it."}, 100);
  add_slot();
  add_ellipse();
  add_point_lists();
  add_b_spline();
  add_cubic_spline();
  add_offset_curve();
  return sample::print(file);
}
