#include "entity.h"

#include <pybind11/stl.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>

#include "files/contents.h"
#include "text/text.h"
#include "values.h"

namespace {

using Number = std::variant<int, std::shared_ptr<Entity>>;

/// An attribute that is a number or refers to a definition.
template <class Attribute>
Number get_number(const Entity& entity, const Attribute& attribute, int value) {
  std::shared_ptr<Entity> definition = entity.host().entity(attribute.definition().object());
  return definition != nullptr ? Number(std::move(definition)) : Number(value);
}

/// Throws a ValueError for what the attribute does not take.
template <class Attribute>
Attribute make_number(const Entity& entity, const Number& number, const char* refusal) {
  Attribute attribute;
  if (const int* const value = std::get_if<int>(&number)) {
    if (*value < 0) throw py::value_error(refusal);
    attribute = Attribute(*value);
  } else {
    attribute.set_definition(referred(entity.host(), std::get<std::shared_ptr<Entity>>(number)));
  }
  if (!attribute.valid()) throw py::value_error(refusal);
  return attribute;
}

Number colour_of(const Entity& entity) {
  const igsColour& colour = entity.object().directory_entry().colour();
  return get_number(entity, colour, colour.colour_value());
}

void set_colour(Entity& entity, const Number& number) {
  const auto colour = make_number<igsColour>(entity, number, "a colour is 0 to 8 or a Color Definition (314)");
  entity.changed_object().directory_entry().set_colour(colour);
}

Number level_of(const Entity& entity) {
  const igsLevel& level = entity.object().directory_entry().level();
  return get_number(entity, level, level.level());
}

void set_level(Entity& entity, const Number& number) {
  const auto level =
      make_number<igsLevel>(entity, number, "a level is 0 or more, or a Property (406) that lists levels");
  entity.changed_object().directory_entry().set_level(level);
}

void set_form(Entity& entity, int form) {
  const int type = entity.object().directory_entry().entity_type();
  if (!igsInfoDB::form_exists(type, form, entity.host().file().options())) {
    throw py::value_error("type " + std::to_string(type) + " has no form " + std::to_string(form));
  }
  entity.changed_object().directory_entry().set_form_number(form);
}

std::string name_of(const Entity& entity) {
  const igsObject& object = entity.object();
  return to_utf8(entity.host().file().entity_name(object));
}

/// Where it stands in its 8 columns says nothing.
std::string label_of(const Entity& entity) {
  return without_outer_blanks(to_utf8(entity.object().directory_entry().entity_label()));
}

void set_label(Entity& entity, const std::string& label) {
  constexpr std::size_t most = 8;
  for (const char c : label) {
    if (c < ' ' || c > '~') throw py::value_error("a label is of printable ASCII characters");
  }
  if (label.size() > most) throw py::value_error("a label has at most 8 characters");
  entity.changed_object().directory_entry().set_entity_label(label);
}

void set_subscript(Entity& entity, int subscript) {
  constexpr int end = 100'000'000;
  if (subscript < 0 || subscript >= end) throw py::value_error("a subscript is 0 to 99999999");
  entity.changed_object().directory_entry().set_entity_subscript(subscript);
}

std::shared_ptr<Entity> matrix_of(const Entity& entity) {
  return entity.host().entity(entity.object().directory_entry().matrix().object());
}

void set_matrix(Entity& entity, const std::shared_ptr<Entity>& matrix) {
  igsObject* const object = referred(entity.host(), matrix);
  if (object != nullptr && igs_cast<igs124>(object) == nullptr) {
    throw py::value_error("a matrix is a Transformation Matrix (124)");
  }
  entity.changed_object().directory_entry().set_matrix(igsObjectPtr(object));
}

std::string shown(const Entity& entity) {
  const igsObject& object = entity.object();
  const std::string kind = igsInfoDB::entity_name(object.directory_entry().entity_type());
  return "<" + std::to_string(object.directory_entry().entity_type()) + (kind.empty() ? "" : " " + kind) + " (DE " +
         std::to_string(object.de_number()) + ")>";
}

}  // namespace

Entity::~Entity() {
  if (m_object != nullptr) m_host->m_entities.erase(m_object);
}

const igsObject& Entity::object() const {
  static_cast<void>(m_host->model());
  if (m_object == nullptr) throw std::runtime_error("the entity was removed from its file");
  return *m_object;
}

igsObject& Entity::changed_object() {
  static_cast<void>(object());
  static_cast<void>(m_host->changed_file());
  return *m_object;
}

py::array_t<double> Entity::export_array(const double* first, std::vector<py::ssize_t> shape,
                                         std::vector<py::ssize_t> strides) {
  // What keeps the entity, and so the file, as long as the array is there.
  struct Export {
    explicit Export(std::shared_ptr<Entity> entity_) : entity(std::move(entity_)) { ++entity->m_num_exports; }
    ~Export() { --entity->m_num_exports; }
    Export(const Export&) = delete;
    Export& operator=(const Export&) = delete;
    std::shared_ptr<Entity> entity;
  };
  auto owner = std::make_unique<Export>(shared_from_this());
  const py::capsule base(owner.get(), [](void* memory) { delete static_cast<Export*>(memory); });
  static_cast<void>(owner.release());  // NOLINT(bugprone-unused-return-value): the capsule has it
  py::array_t<double> array(std::move(shape), std::move(strides), first, base);
  return read_only(std::move(array));
}

int form_of_object(const igsObject& object) {
  const auto* const unknown = igs_cast<igsUnknown>(&object);
  return unknown != nullptr ? unknown->form_in_file() : object.directory_entry().form_number();
}

std::vector<int> levels_of_object(const igsObject& object) {
  const igsLevel& level = object.directory_entry().level();
  const igsObject* const definition = level.definition().object();
  return definition != nullptr ? levels_of_definition(*definition) : std::vector{level.level()};
}

igsObject* referred(const Host& host, const std::shared_ptr<Entity>& entity) {
  if (entity == nullptr) return nullptr;
  if (&entity->host() != &host) throw py::value_error("entities of different files cannot refer to each other");
  return const_cast<igsObject*>(&entity->object());
}

EntityClass define_entity(py::module_& module) {
  EntityClass entity(module, "Entity", "An entity of a file; `type` and `form` say which.");
  entity.def_property_readonly(
      "type", [](const Entity& self) { return static_cast<int>(self.object().directory_entry().entity_type()); },
      "The entity type number of IGES 5.3, section 4: 126 for a rational B-spline curve.");
  entity.def_property(
      "form", [](const Entity& self) { return form_of_object(self.object()); }, set_form, "The form number.");
  entity.def_property_readonly(
      "de", [](const Entity& self) { return self.object().de_number(); },
      "The number of the directory entry: 1, 3, 5, ... May change when the file is written.");
  entity.def_property_readonly(
      "line", [](const Entity& self) { return self.host().file().lines(self.object().de_number()).directory_entry; },
      "The line of the input on which the directory entry begins, from 1; 0 where it is not known: in a new file, and "
      "once it was written.");
  entity.def_property_readonly(
      "type_name",
      [](const Entity& self) { return igsInfoDB::entity_name(self.object().directory_entry().entity_type()); },
      "The name of the entity type, \"Line\" for example; empty for a type that the standard does not have.");
  entity.def_property_readonly("name", name_of,
                               "The entity's name property, else its label and subscript; empty where it has neither.");
  entity.def_property("label", label_of, set_label, "The label of the directory entry, at most 8 characters.");
  entity.def_property(
      "subscript", [](const Entity& self) { return self.object().directory_entry().entity_subscript(); }, set_subscript,
      "The number beside the label.");
  entity.def_property("colour", colour_of, set_colour, "A colour number, 0 (none) to 8, or a Color Definition (314).");
  entity.def_property("level", level_of, set_level, "A level, from 0, or the Property (406) that lists several.");
  entity.def_property_readonly(
      "levels", [](const Entity& self) { return levels_of_object(self.object()); },
      "All levels that the entity is on.");
  entity.def_property("matrix", matrix_of, set_matrix, "The Transformation Matrix (124) that places it, or None.");
  entity.def_property_readonly("fields", fields_of, "The parameters by their labels, in the order of the file.");
  entity.def_property_readonly("attributes", attributes_of, "What the directory entry says, by name.");
  entity.def("__repr__", shown);
  return entity;
}
