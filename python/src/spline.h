#pragma once

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

#include "values.h"

// What curves and surfaces have in common: the arrays along one direction.

inline constexpr pybind11::ssize_t real_size = sizeof(double);
inline constexpr pybind11::ssize_t point_size = sizeof(giPoint3);
static_assert(point_size == 3 * real_size && std::is_standard_layout_v<giPoint3>,
              "points lie in memory as three reals");

/// The first coordinate of the first point.
inline const double* first_of(const igsList<giPoint3>& points) {
  return reinterpret_cast<const double*>(points.data());
}

/// The degree and the number of control points along a direction; both 0 without arrays.
struct SplineSize {
  SplineSize(int order, int count_) : degree(order > 0 ? order - 1 : 0), count(count_) {}
  /// Of what is to be made; refuses what no file can have.
  static SplineSize wanted(const pybind11::object& degree, pybind11::ssize_t count);

  int order() const { return static_cast<int>(degree) + 1; }
  pybind11::ssize_t num_knots() const { return count > 0 ? degree + 1 + count : 0; }
  /// "of degree 3 with 5 control points".
  std::string text() const;

  pybind11::ssize_t degree = 0;
  pybind11::ssize_t count = 0;
};

/// As many as the size asks for; `what` is "a curve".
Reals knots_for(const SplineSize& size, const pybind11::object& numbers, const char* what);
void store_knots(igsKnotVector& direction, const Reals& knots);

/// An array of the shape; `wanted` is as for expect_shape.
Reals weights_for(const std::vector<pybind11::ssize_t>& shape, const pybind11::object& numbers,
                  const std::string& wanted);
Reals ones(const std::vector<pybind11::ssize_t>& shape);
/// The flag that goes with the weights: 1 where they are all the same.
int rational_flag_of(const Reals& weights);

/// Refuses limits, two from the position on, that end before they start.
void expect_limits(const Reals& limits, pybind11::ssize_t position);

/// Takes a value out of the keywords of a new spline; throws a TypeError where it is not there.
pybind11::object required(const pybind11::dict& values, const char* name);
