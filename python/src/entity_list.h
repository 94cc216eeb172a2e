#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host.h"

/// What is looked for among entities; what is not given does not matter.
struct EntityQuery {
  std::optional<std::set<int>> types;
  std::optional<int> form;
  std::optional<int> level;
  std::optional<std::string> name;
};

/// Entities of a file, whose Python objects are made when they are asked for. Throws a std::runtime_error once an
/// entity of the file was removed.
class EntityList {
 public:
  using Objects = std::vector<const igsObject*>;

  EntityList(std::shared_ptr<Host> host, std::shared_ptr<const Objects> objects)
      : m_host(std::move(host)), m_objects(std::move(objects)), m_num_removed(m_host->num_removed()) {}

  std::size_t size() const { return m_objects->size(); }
  /// Throws an IndexError where there is no such position, from 0.
  std::shared_ptr<Entity> at(std::size_t position) const;
  /// Those at these positions.
  EntityList take(const std::vector<std::size_t>& positions) const;
  EntityList find(const EntityQuery& query) const;

 private:
  const Objects& objects() const;

  std::shared_ptr<Host> m_host;
  std::shared_ptr<const Objects> m_objects;
  int m_num_removed;
};

void define_entity_list(pybind11::module_& module);
