#include <utility>

#include "spline.h"
#include "view.h"

namespace {

using Surface = EntityOf<igs128>;
/// Of what there is one along u and one along v.
template <class Value>
using Pair = std::array<Value, 2>;

Pair<SplineSize> sizes_of(const igs128& surface) {
  return {SplineSize(surface.order_u(), surface.number_of_control_points_u()),
          SplineSize(surface.order_v(), surface.number_of_control_points_v())};
}

std::pair<py::ssize_t, py::ssize_t> degrees_of(const Surface& self) {
  const auto [u, v] = sizes_of(self.get());
  return {u.degree, v.degree};
}

py::tuple knots_of(Surface& self) {
  const auto along = [&self](const igsKnotVector& direction) {
    return self.export_array(direction.knots().data(), {std::ssize(direction.knots())}, {real_size});
  };
  return py::make_tuple(along(self.get().direction_u()), along(self.get().direction_v()));
}

// In the memory of the library u runs fastest.

py::array_t<double> weights_uv_of(Surface& self) {
  const auto [u, v] = sizes_of(self.get());
  return self.export_array(self.get().weights().data(), {u.count, v.count}, {real_size, real_size * u.count});
}

py::array_t<double> control_points_uv_of(Surface& self) {
  const auto [u, v] = sizes_of(self.get());
  return self.export_array(first_of(self.get().control_points()), {u.count, v.count, 3},
                           {point_size, point_size * u.count, real_size});
}

py::array_t<double> ranges_of(const Surface& self) {
  const igsKnotVector &u = self.get().direction_u(), &v = self.get().direction_v();
  const std::array limits{u.start(), u.end(), v.start(), v.end()};
  return read_only(py::array_t<double>({2, 2}, limits.data()));
}

Pair<py::object> pair_of(const py::object& values, const char* name) {
  const py::tuple pair(values);
  if (pair.size() == 2) return {pair[0], pair[1]};
  throw py::value_error(std::string(name) + " has one value along u and one along v, not " +
                        std::to_string(pair.size()) + " values");
}

Pair<Reals> both_knots_for(const Pair<SplineSize>& sizes, const py::object& knots) {
  const Pair<py::object> pair = pair_of(knots, "knots");
  return {knots_for(sizes[0], pair[0], "along u, a surface"), knots_for(sizes[1], pair[1], "along v, a surface")};
}

std::string grid_text(const Pair<SplineSize>& sizes) {
  return "this surface are an array of shape (" + std::to_string(sizes[0].count) + ", " +
         std::to_string(sizes[1].count);
}

Reals grid_weights_for(const Pair<SplineSize>& sizes, const py::object& numbers) {
  return weights_for({sizes[0].count, sizes[1].count}, numbers, "the weights of " + grid_text(sizes) + ")");
}

void store_both_knots(igs128& surface, const Pair<Reals>& knots) {
  store_knots(surface.direction_u(), knots[0]);
  store_knots(surface.direction_v(), knots[1]);
}

/// Calls `store(i, j)` for each control point.
template <class Store>
void store_each(const igs128& surface, Store store) {
  for (int i = 0; i < surface.number_of_control_points_u(); ++i) {
    for (int j = 0; j < surface.number_of_control_points_v(); ++j) store(i, j);
  }
}

void store_weights(igs128& surface, const Reals& weights) {
  store_each(surface, [&](int i, int j) { surface.set_weight(i, j, weights.at(i, j)); });
  surface.set_rational_flag(rational_flag_of(weights));
}

void store_control_points(igs128& surface, const Reals& points) {
  store_each(surface, [&](int i, int j) {
    const double* const point = points.data(i, j);
    surface.set_control_point(i, j, giPoint3(point[0], point[1], point[2]));
  });
}

void set_knots_uv(Surface& self, const py::object& knots) {
  const Pair<Reals> both = both_knots_for(sizes_of(self.get()), knots);
  store_both_knots(self.change(), both);
}

void set_weights_uv(Surface& self, const py::object& numbers) {
  const Reals weights = grid_weights_for(sizes_of(self.get()), numbers);
  store_weights(self.change(), weights);
}

void set_control_points_uv(Surface& self, const py::object& numbers) {
  const Pair<SplineSize> sizes = sizes_of(self.get());
  const Reals points = reals_of(numbers, "control_points");
  expect_shape(points, {sizes[0].count, sizes[1].count, 3}, "the control points of " + grid_text(sizes) + ", 3)");
  store_control_points(self.change(), points);
}

void set_ranges(Surface& self, const py::object& numbers) {
  const Reals range = reals_of(numbers, "range");
  expect_shape(range, {2, 2}, "the range of a surface has the shape (2, 2)");
  expect_limits(range, 0);
  expect_limits(range, 2);
  igs128& surface = self.change();
  surface.set_parametric_limits_u(range.at(0, 0), range.at(0, 1));
  surface.set_parametric_limits_v(range.at(1, 0), range.at(1, 1));
}

/// What a new surface is made of. Its range is that of its knots.
void define_arrays(Surface& self, const py::dict& values) {
  const Reals points = reals_of(required(values, "control_points"), "control_points");
  if (points.ndim() != 3 || points.shape(2) != 3) {
    throw py::value_error("the control points of a surface are an array of shape (nu, nv, 3)");
  }
  const Pair<py::object> degrees = pair_of(required(values, "degree"), "degree");
  const Pair<SplineSize> sizes{SplineSize::wanted(degrees[0], points.shape(0)),
                               SplineSize::wanted(degrees[1], points.shape(1))};
  const Pair<Reals> knots = both_knots_for(sizes, required(values, "knots"));
  const py::object given = taken(values, "weights");
  const Reals weights = given.is_none() ? ones({sizes[0].count, sizes[1].count}) : grid_weights_for(sizes, given);
  igs128& surface = self.change();
  if (surface.set_order_size(sizes[0].order(), sizes[1].order(), static_cast<int>(sizes[0].count),
                             static_cast<int>(sizes[1].count)) == 0) {
    throw py::value_error("the surface has its arrays, or would have too many control points");
  }
  store_both_knots(surface, knots);
  store_control_points(surface, points);
  store_weights(surface, weights);
  surface.direction_u().limit_to_range();
  surface.direction_v().limit_to_range();
}

/// A pair of flags, along u and v, that are 1 in the file where they are set.
template <class Get, class Set>
void define_flags(View<igs128>& view, const char* name, Pair<Get> get, Pair<Set> set, const char* doc) {
  view.def_property(
      name, [=](const Surface& self) { return std::pair((self.get().*get[0])() == 1, (self.get().*get[1])() == 1); },
      [=](Surface& self, const std::pair<bool, bool>& flags) {
        igs128& surface = self.change();
        (surface.*set[0])(flags.first ? 1 : 0);
        (surface.*set[1])(flags.second ? 1 : 0);
      },
      doc);
}

}  // namespace

void define_b_spline_surface(py::module_& module) {
  View<igs128> view(module, "BSplineSurface",
                    "Rational B-Spline Surface (128), in model units. Its arrays are as those of a `BSplineCurve`; of "
                    "what there is one along u and one along v there is a pair. With nu by nv control points:");
  view.def_property_readonly(
          "degree", degrees_of,
          "The degrees along u and v; 0 where the surface could not be read, whose arrays are empty.")
      .def_property("knots", knots_of, set_knots_uv,
                    "All knots along u and v: shapes (nu + degree[0] + 1,) and (nv + degree[1] + 1,).")
      .def_property("weights", weights_uv_of, set_weights_uv,
                    "The weights: shape (nu, nv). To set them sets `rational`, too: False where they are all the same.")
      .def_property("control_points", control_points_uv_of, set_control_points_uv,
                    "The control points: shape (nu, nv, 3).")
      .def_property("range", ranges_of, set_ranges,
                    "Where the parameters begin and end: shape (2, 2), a copy; the first row is along u.")
      .def("_define", define_arrays);
  define_flags(view, "closed", std::array{&igs128::closed_flag_u, &igs128::closed_flag_v},
               std::array{&igs128::set_closed_flag_u, &igs128::set_closed_flag_v},
               "The file says that it is closed along u and v.");
  define_flags(view, "periodic", std::array{&igs128::periodic_flag_u, &igs128::periodic_flag_v},
               std::array{&igs128::set_periodic_flag_u, &igs128::set_periodic_flag_v},
               "The file says that it is periodic along u and v.");
  view.flag("rational", &igs128::rational_flag, &igs128::set_rational_flag, 0,
            "The file says that it is rational, not polynomial.");
}
