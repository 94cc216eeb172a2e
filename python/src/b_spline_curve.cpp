#include <utility>

#include "spline.h"
#include "view.h"

namespace {

using Curve = EntityOf<igs126>;

SplineSize size_of(const igs126& curve) { return {curve.order(), curve.number_of_control_points()}; }

py::array_t<double> exported(Curve& self, const igsList<double>& reals) {
  return self.export_array(reals.data(), {std::ssize(reals)}, {real_size});
}

py::array_t<double> control_points_of(Curve& self) {
  const igsList<giPoint3>& points = self.get().control_points();
  return self.export_array(first_of(points), {std::ssize(points), 3}, {point_size, real_size});
}

py::array_t<double> range_of(const Curve& self) {
  const igsKnotVector& direction = self.get().direction();
  return array_of(std::array{direction.start(), direction.end()});
}

Reals weights_of(const SplineSize& size, const py::object& numbers) {
  const std::string count = std::to_string(size.count);
  return weights_for({size.count}, numbers, "a curve with " + count + " control points has " + count + " weights");
}

void store_weights(igs126& curve, const Reals& weights) {
  for (int i = 0; i < curve.number_of_control_points(); ++i) curve.set_weight(i, weights.at(i));
  curve.set_rational_flag(rational_flag_of(weights));
}

void store_control_points(igs126& curve, const Reals& points) {
  for (int i = 0; i < curve.number_of_control_points(); ++i) {
    curve.set_control_point(i, row_of<giPoint3>(points, static_cast<std::size_t>(i)));
  }
}

void set_knots(Curve& self, const py::object& numbers) {
  const Reals knots = knots_for(size_of(self.get()), numbers, "a curve");
  store_knots(self.change().direction(), knots);
}

void set_weights(Curve& self, const py::object& numbers) {
  const Reals weights = weights_of(size_of(self.get()), numbers);
  store_weights(self.change(), weights);
}

void set_control_points(Curve& self, const py::object& numbers) {
  const SplineSize size = size_of(self.get());
  const Reals points = reals_of(numbers, "control_points");
  const std::string shape = "(" + std::to_string(size.count) + ", 3)";
  expect_shape(points, {size.count, 3}, "the control points of this curve are an array of shape " + shape);
  store_control_points(self.change(), points);
}

void set_range(Curve& self, const py::object& numbers) {
  const Reals range = reals_of(numbers, "range");
  expect_shape(range, {2}, "a range has 2 ends");
  expect_limits(range, 0);
  self.change().set_parametric_limits(range.at(0), range.at(1));
}

/// What a new curve is made of. Its range is that of its knots.
void define(Curve& self, const py::dict& values) {
  const Reals points = reals_of(required(values, "control_points"), "control_points");
  expect_rows_of(3, points, "control_points");
  const SplineSize size = SplineSize::wanted(required(values, "degree"), points.shape(0));
  const Reals knots = knots_for(size, required(values, "knots"), "a curve");
  const py::object given = taken(values, "weights");
  const Reals weights = given.is_none() ? ones({size.count}) : weights_of(size, given);
  igs126& curve = self.change();
  if (curve.set_order_size(size.order(), static_cast<int>(size.count)) == 0) {
    throw py::value_error("the curve has its arrays");
  }
  store_knots(curve.direction(), knots);
  store_control_points(curve, points);
  store_weights(curve, weights);
  curve.direction().limit_to_range();
}

}  // namespace

void define_b_spline_curve(py::module_& module) {
  View<igs126> view(module, "BSplineCurve",
                    "Rational B-Spline Curve (126), in model units. Its arrays are the memory of the file itself, "
                    "which they keep: they cannot be written, but show what is set later. Reals that the file left "
                    "unset are -1.7976931348623157e308. With n control points:");
  view.def_property_readonly(
          "degree", [](const Curve& self) { return size_of(self.get()).degree; },
          "The degree; 0 where the curve could not be read, whose arrays are empty then.")
      .def_property(
          "knots", [](Curve& self) { return exported(self, self.get().direction().knots()); }, set_knots,
          "All knots: shape (n + degree + 1,).")
      .def_property(
          "weights", [](Curve& self) { return exported(self, self.get().weights()); }, set_weights,
          "The weights: shape (n,). To set them sets `rational`, too: False where they are all the same.")
      .def_property("control_points", control_points_of, set_control_points, "The control points: shape (n, 3).")
      .def_property("range", range_of, set_range, "Where the parameter begins and ends: shape (2,), a copy.")
      .def("_define", define);
  view.coordinates("unit_normal", &igs126::unit_normal, &igs126::set_unit_normal,
                   "Of the plane of a planar curve: shape (3,), a copy.")
      .flag("planar", &igs126::planar_flag, &igs126::set_planar_flag, 1, "The file says that it lies in a plane.")
      .flag("closed", &igs126::closed_flag, &igs126::set_closed_flag, 1, "The file says that it is closed.")
      .flag("rational", &igs126::rational_flag, &igs126::set_rational_flag, 0,
            "The file says that it is rational, not polynomial.")
      .flag("periodic", &igs126::periodic_flag, &igs126::set_periodic_flag, 1, "The file says that it is periodic.");
}
