#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "host.h"

/// An entity as Python has it: one object for each entity that Python knows, which keeps the file.
class Entity : public std::enable_shared_from_this<Entity> {
 public:
  Entity(std::shared_ptr<Host> host, igsObject& object) : m_host(std::move(host)), m_object(&object) {}
  virtual ~Entity();
  Entity(const Entity&) = delete;
  Entity& operator=(const Entity&) = delete;

  Host& host() const { return *m_host; }
  /// Throws a std::runtime_error once the entity was removed, and in any other thread than the file's.
  const igsObject& object() const;
  /// For what changes it; throws, too, where the file does not change any more.
  igsObject& changed_object();

  /// A read-only array over doubles of this entity's own memory, which stays where it is as long as the array lives.
  /// Strides are counted in bytes.
  pybind11::array_t<double> export_array(const double* first, std::vector<pybind11::ssize_t> shape,
                                         std::vector<pybind11::ssize_t> strides);
  bool has_exports() const { return m_num_exports > 0; }
  void forget_object() { m_object = nullptr; }

 private:
  std::shared_ptr<Host> m_host;
  igsObject* m_object;  ///< null once it was removed
  std::size_t m_num_exports = 0;
};

/// The Python class of an entity is found by this type.
template <class Class>
class EntityOf : public Entity {
 public:
  using Entity::Entity;
  const Class& get() const { return static_cast<const Class&>(object()); }
  Class& change() { return static_cast<Class&>(changed_object()); }
};

std::shared_ptr<Entity> make_entity(std::shared_ptr<Host> host, igsObject& object);
/// The form that the file gives an entity, also one without a class.
int form_of_object(const igsObject& object);
/// The levels that an entity is on.
std::vector<int> levels_of_object(const igsObject& object);
/// An entity of the file that Python gives as a reference; null for None. Throws a ValueError for one of another file.
igsObject* referred(const Host& host, const std::shared_ptr<Entity>& entity);

/// The fields of an entity, and the attributes in its directory entry, by their labels.
pybind11::dict fields_of(const Entity& entity);
pybind11::dict attributes_of(const Entity& entity);

// What defines the classes of the module.

using HostClass = pybind11::class_<Host, std::shared_ptr<Host>>;
using EntityClass = pybind11::class_<Entity, std::shared_ptr<Entity>>;

EntityClass define_entity(pybind11::module_& module);
void define_views(pybind11::module_& module, EntityClass& entity);
void define_shapes(pybind11::module_& module, HostClass& host, EntityClass& entity);
