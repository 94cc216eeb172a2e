#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "entity.h"

// Values on their way between Python and the library. What the library cannot hold raises a ValueError that says why;
// `name` is what such a message calls the value.

/// Numbers in the order of C.
using Reals = pybind11::array_t<double, pybind11::array::c_style>;

/// What NumPy makes of any numbers. Refuses those that are not finite, and those that mark a real never set.
Reals reals_of(const pybind11::object& numbers, const char* name);
/// Refuses an array of another shape; `wanted` begins the message: "a point has 3 coordinates".
void expect_shape(const Reals& reals, const std::vector<pybind11::ssize_t>& shape, const std::string& wanted);
/// As above, for a list of any length, with so many numbers each.
void expect_rows_of(pybind11::ssize_t width, const Reals& reals, const char* name);
/// As Python shows it.
std::string text_of(double number);
double real_of(double number, const char* name);

/// An array of its own, which cannot be written: a change in it would change no entity.
pybind11::array_t<double> array_of(std::span<const double> reals);
pybind11::array_t<double> read_only(pybind11::array_t<double> array);

template <class Value>
constexpr std::size_t num_coordinates = std::is_constructible_v<Value, double, double> ? 2 : 3;

/// Of a point or a vector.
template <class Value>
pybind11::array_t<double> array_of(const Value& value) requires requires {
  value.x();
}
{
  if constexpr (num_coordinates<Value> == 2) {
    return array_of(std::array{value.x(), value.y()});
  } else {
    return array_of(std::array{value.x(), value.y(), value.z()});
  }
}

/// A point or a vector of the row `i` of an array.
template <class Value>
Value row_of(const Reals& reals, std::size_t i) {
  const double* const row = reals.data() + i * num_coordinates<Value>;
  if constexpr (num_coordinates<Value> == 2) {
    return Value(row[0], row[1]);
  } else {
    return Value(row[0], row[1], row[2]);
  }
}

/// A reference to an entity of the same file, or to none; refuses the entity itself.
igsObjectPtr pointer_to(const Entity& self, const std::shared_ptr<Entity>& entity);
/// As above, each to some entity.
std::vector<igsObjectPtr> pointers_to(const Entity& self, const std::vector<std::shared_ptr<Entity>>& entities,
                                      const char* name);
std::vector<std::shared_ptr<Entity>> entities_of(const Entity& self, const std::vector<igsObjectPtr>& pointers);

/// Takes a value out of the keywords of a new entity: None where it is not there.
pybind11::object taken(const pybind11::dict& values, const char* name);

/// Refuses control characters, which the records of a file cannot have.
void expect_printable(const std::string& text, const char* name);
