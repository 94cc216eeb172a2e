#include "spline.h"

#include <algorithm>
#include <climits>
#include <span>

SplineSize SplineSize::wanted(const py::object& degree, py::ssize_t count) {
  if (PyIndex_Check(degree.ptr()) == 0) throw py::type_error("a degree is an int");
  const py::ssize_t number = PyNumber_AsSsize_t(degree.ptr(), nullptr);
  if (number == -1 && PyErr_Occurred() != nullptr) throw py::error_already_set();
  if (number < 1) throw py::value_error("the degree is 1 or more, not " + std::to_string(number));
  if (count <= number) {
    throw py::value_error("a spline of degree " + std::to_string(number) + " has more than " + std::to_string(number) +
                          " control points, not " + std::to_string(count));
  }
  if (count >= INT_MAX / 2) throw py::value_error("there are too many control points");
  return {static_cast<int>(number) + 1, static_cast<int>(count)};
}

std::string SplineSize::text() const {
  return "of degree " + std::to_string(degree) + " with " + std::to_string(count) + " control points";
}

Reals knots_for(const SplineSize& size, const py::object& numbers, const char* what) {
  Reals knots = reals_of(numbers, "knots");
  expect_shape(knots, {size.num_knots()},
               std::string(what) + " " + size.text() + " has " + std::to_string(size.num_knots()) + " knots");
  return knots;
}

void store_knots(igsKnotVector& direction, const Reals& knots) {
  for (int i = 0; i < direction.number_of_knots(); ++i) direction.set_knot(i, knots.at(i));
}

Reals weights_for(const std::vector<py::ssize_t>& shape, const py::object& numbers, const std::string& wanted) {
  Reals weights = reals_of(numbers, "weights");
  expect_shape(weights, shape, wanted);
  return weights;
}

Reals ones(const std::vector<py::ssize_t>& shape) {
  Reals reals(shape);
  std::fill_n(reals.mutable_data(), reals.size(), 1.0);
  return reals;
}

int rational_flag_of(const Reals& weights) {
  const std::span all(weights.data(), static_cast<std::size_t>(weights.size()));
  const bool are_same = std::ranges::all_of(all, [&](double weight) { return weight == all.front(); });
  return are_same ? 1 : 0;
}

void expect_limits(const Reals& limits, py::ssize_t position) {
  const double start = limits.data()[position], end = limits.data()[position + 1];
  if (end >= start) return;
  throw py::value_error("a range ends where it starts or above: " + text_of(end) + " is below " + text_of(start));
}

py::object required(const py::dict& values, const char* name) {
  py::object value = taken(values, name);
  if (value.is_none()) {
    throw py::type_error(std::string(name) + " is missing: splines are made of degree, control_points and knots");
  }
  return value;
}
