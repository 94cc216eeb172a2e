#pragma once

#include <pybind11/stl.h>

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include "entity.h"
#include "igs/support/undefined.h"
#include "values.h"

/// The Python class of the entities of a C++ class, with a property for each pair of accessors.
template <class Class>
class View : public pybind11::class_<EntityOf<Class>, Entity, std::shared_ptr<EntityOf<Class>>> {
 public:
  using Self = EntityOf<Class>;
  using Base = pybind11::class_<Self, Entity, std::shared_ptr<Self>>;
  using Base::Base;

  /// A point or a vector: an array of two or three numbers.
  template <class Get, class Set>
  View& coordinates(const char* name, Get get, Set set, const char* doc) {
    using Value = std::decay_t<std::invoke_result_t<Get, const Class&>>;
    const auto put = [=](Self& self, const pybind11::object& numbers) {
      const Reals reals = reals_of(numbers, name);
      expect_shape(reals, {num_coordinates<Value>},
                   std::string(name) + " has " + std::to_string(num_coordinates<Value>) + " coordinates");
      std::invoke(set, self.change(), row_of<Value>(reals, 0));
    };
    this->def_property(
        name, [=](const Self& self) { return array_of(std::invoke(get, self.get())); }, put, doc);
    return *this;
  }

  /// A number, None where it was never set.
  template <class Get, class Set>
  View& real(const char* name, Get get, Set set, const char* doc) {
    const auto take = [=](const Self& self) {
      const double value = std::invoke(get, self.get());
      return igs_is_undefined_real(value) ? std::nullopt : std::optional(value);
    };
    const auto put = [=](Self& self, double number) {
      const double value = real_of(number, name);
      std::invoke(set, self.change(), value);
    };
    this->def_property(name, take, put, doc);
    return *this;
  }

  /// True where the flag in the file is `yes`, 0 or 1.
  template <class Get, class Set>
  View& flag(const char* name, Get get, Set set, int yes, const char* doc) {
    this->def_property(
        name, [=](const Self& self) { return std::invoke(get, self.get()) == yes; },
        [=](Self& self, bool value) { std::invoke(set, self.change(), value ? yes : 1 - yes); }, doc);
    return *this;
  }

  /// Another entity, or None.
  template <class Get, class Set>
  View& reference(const char* name, Get get, Set set, const char* doc) {
    const auto put = [=](Self& self, const std::shared_ptr<Entity>& entity) {
      const igsObjectPtr pointer = pointer_to(self, entity);
      std::invoke(set, self.change(), pointer);
    };
    this->def_property(
        name, [=](const Self& self) { return self.host().entity(std::invoke(get, self.get()).object()); }, put, doc);
    return *this;
  }

  /// A list of entities; None in it is a reference that leads nowhere. `set` takes the pointers.
  template <class Get, class Set>
  View& references(const char* name, Get get, Set set, const char* doc) {
    const auto put = [=](Self& self, const std::vector<std::shared_ptr<Entity>>& entities) {
      std::vector<igsObjectPtr> pointers = pointers_to(self, entities, name);
      std::invoke(set, self.change(), std::move(pointers));
    };
    this->def_property(
        name, [=](const Self& self) { return entities_of(self, std::invoke(get, self.get())); }, put, doc);
    return *this;
  }
};

void define_curves(pybind11::module_& module);
void define_b_spline_curve(pybind11::module_& module);
void define_b_spline_surface(pybind11::module_& module);
void define_surfaces(pybind11::module_& module);
