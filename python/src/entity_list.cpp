#include "entity_list.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <stdexcept>

#include "entity.h"
#include "text/text.h"

namespace {

bool is_on_level(const igsObject& object, int level) {
  const std::vector<int> levels = levels_of_object(object);
  return std::find(levels.begin(), levels.end(), level) != levels.end();
}

bool fits(const igsFile& file, const igsObject& object, const EntityQuery& query) {
  return (!query.types || query.types->contains(object.directory_entry().entity_type())) &&
         (!query.form || *query.form == form_of_object(object)) &&
         (!query.level || is_on_level(object, *query.level)) &&
         (!query.name || *query.name == to_utf8(file.entity_name(object)));
}

}  // namespace

const EntityList::Objects& EntityList::objects() const {
  static_cast<void>(m_host->model());
  if (m_num_removed != m_host->num_removed()) {
    throw std::runtime_error("an entity was removed since these were listed; ask the file for its entities again");
  }
  return *m_objects;
}

std::shared_ptr<Entity> EntityList::at(std::size_t position) const {
  if (position >= size()) throw py::index_error("there are " + std::to_string(size()) + " entities");
  return m_host->entity(objects()[position]);
}

EntityList EntityList::take(const std::vector<std::size_t>& positions) const {
  Objects taken;
  taken.reserve(positions.size());
  for (const std::size_t position : positions) taken.push_back(objects().at(position));
  return {m_host, std::make_shared<const Objects>(std::move(taken))};
}

EntityList EntityList::find(const EntityQuery& query) const {
  Objects found;
  for (const igsObject* const object : objects()) {
    if (fits(m_host->file(), *object, query)) found.push_back(object);
  }
  return {m_host, std::make_shared<const Objects>(std::move(found))};
}

void define_entity_list(py::module_& module) {
  py::class_<EntityList, std::shared_ptr<EntityList>>(module, "EntityList")
      .def("__len__", &EntityList::size)
      .def("at", &EntityList::at)
      .def("take", &EntityList::take)
      .def("find", [](const EntityList& self, std::optional<std::set<int>> types, std::optional<int> form,
                      std::optional<int> level, std::optional<std::string> name) {
        return self.find({std::move(types), form, level, std::move(name)});
      });
}
