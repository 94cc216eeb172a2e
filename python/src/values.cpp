#include "values.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <utility>

namespace {

/// False for NaN, too.
bool can_be_held(double number) { return std::abs(number) < DBL_MAX; }

[[noreturn]] void refuse(const std::string& place, double number) {
  throw py::value_error(place + " is " + text_of(number) +
                        "; numbers are finite, and smaller than 1.7976931348623157e308");
}

/// As Python shows it, without brackets where there is but one dimension.
std::string joined(const std::vector<py::ssize_t>& numbers) {
  std::string text;
  for (const py::ssize_t number : numbers) text += (text.empty() ? "" : ", ") + std::to_string(number);
  return text;
}

/// The position of an element in the order of C, as Python writes it.
std::string place_of(py::ssize_t position, const Reals& reals) {
  if (reals.ndim() == 0) return "";
  std::vector<py::ssize_t> indices(static_cast<std::size_t>(reals.ndim()));
  for (py::ssize_t d = reals.ndim(); d-- > 0; position /= reals.shape(d)) {
    indices[static_cast<std::size_t>(d)] = position % reals.shape(d);
  }
  return "[" + joined(indices) + "]";
}

std::vector<py::ssize_t> shape_of(const Reals& reals) { return {reals.shape(), reals.shape() + reals.ndim()}; }

std::string described(const Reals& reals) {
  const std::string sizes = joined(shape_of(reals));
  return reals.ndim() == 1 ? sizes : "an array of shape (" + sizes + ")";
}

}  // namespace

std::string text_of(double number) { return py::str(py::float_(number)); }

Reals reals_of(const py::object& numbers, const char* name) {
  const py::object as_array = py::module_::import("numpy").attr("asarray");
  Reals reals = as_array(numbers, py::arg("dtype") = "float64", py::arg("order") = "C");
  const std::span all(reals.data(), static_cast<std::size_t>(reals.size()));
  const auto bad = std::ranges::find_if_not(all, can_be_held);
  if (bad != all.end()) refuse(name + place_of(bad - all.begin(), reals), *bad);
  return reals;
}

void expect_shape(const Reals& reals, const std::vector<py::ssize_t>& shape, const std::string& wanted) {
  if (shape_of(reals) != shape) throw py::value_error(wanted + ", not " + described(reals));
}

void expect_rows_of(py::ssize_t width, const Reals& reals, const char* name) {
  if (reals.ndim() == 2 && reals.shape(1) == width && std::in_range<int>(reals.shape(0))) return;
  throw py::value_error(std::string(name) + " has the shape (n, " + std::to_string(width) + "), not (" +
                        joined(shape_of(reals)) + ")");
}

double real_of(double number, const char* name) {
  if (!can_be_held(number)) refuse(name, number);
  return number;
}

py::array_t<double> array_of(std::span<const double> reals) {
  return read_only(py::array_t<double>(std::ssize(reals), reals.data()));
}

py::array_t<double> read_only(py::array_t<double> array) {
  // What array.flags.writeable = False does, which takes as long as all else about a small array.
  py::detail::array_proxy(array.ptr())->flags &= ~py::detail::npy_api::NPY_ARRAY_WRITEABLE_;
  return array;
}

igsObjectPtr pointer_to(const Entity& self, const std::shared_ptr<Entity>& entity) {
  if (entity.get() == &self) throw py::value_error("an entity cannot be part of itself");
  return {referred(self.host(), entity)};
}

std::vector<igsObjectPtr> pointers_to(const Entity& self, const std::vector<std::shared_ptr<Entity>>& entities,
                                      const char* name) {
  std::vector<igsObjectPtr> pointers;
  for (const std::shared_ptr<Entity>& entity : entities) {
    if (entity == nullptr) {
      throw py::value_error(std::string(name) + "[" + std::to_string(pointers.size()) + "] is None, and no entity");
    }
    pointers.push_back(pointer_to(self, entity));
  }
  return pointers;
}

std::vector<std::shared_ptr<Entity>> entities_of(const Entity& self, const std::vector<igsObjectPtr>& pointers) {
  std::vector<std::shared_ptr<Entity>> entities;
  entities.reserve(pointers.size());
  for (const igsObjectPtr& pointer : pointers) entities.push_back(self.host().entity(pointer.object()));
  return entities;
}

py::object taken(const py::dict& values, const char* name) { return values.attr("pop")(name, py::none()); }

void expect_printable(const std::string& text, const char* name) {
  const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
  if (std::ranges::any_of(text, is_control)) throw py::value_error(std::string(name) + " has a control character");
}
