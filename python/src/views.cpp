#include "view.h"

#include <utility>

namespace {

/// An object of another class than its type number says is shown like any entity.
template <class Class>
std::shared_ptr<Entity> make(std::shared_ptr<Host> host, igsObject& object) {
  if (igs_cast<Class>(&object) == nullptr) return std::make_shared<Entity>(std::move(host), object);
  return std::make_shared<EntityOf<Class>>(std::move(host), object);
}

}  // namespace

std::shared_ptr<Entity> make_entity(std::shared_ptr<Host> host, igsObject& object) {
  switch (object.directory_entry().entity_type()) {
    case 100:
      return make<igs100>(std::move(host), object);
    case 102:
      return make<igs102>(std::move(host), object);
    case 104:
      return make<igs104>(std::move(host), object);
    case 106:
      return igs_cast<igsPolyline>(&object) != nullptr ? make<igsPolyline>(std::move(host), object)
                                                       : make<igsPointset>(std::move(host), object);
    case 110:
      return make<igs110>(std::move(host), object);
    case 116:
      return make<igs116>(std::move(host), object);
    case 123:
      return make<igs123>(std::move(host), object);
    case 124:
      return make<igs124>(std::move(host), object);
    case 126:
      return make<igs126>(std::move(host), object);
    case 128:
      return make<igs128>(std::move(host), object);
    case 141:
      return make<igs141>(std::move(host), object);
    case 142:
      return make<igs142>(std::move(host), object);
    case 143:
      return make<igs143>(std::move(host), object);
    case 144:
      return make<igs144>(std::move(host), object);
    default:
      return std::make_shared<Entity>(std::move(host), object);
  }
}

void define_views(py::module_& module, EntityClass& entity) {
  entity.def(
      "_define", [](const Entity&, const py::dict&) {},
      "Gives a new entity the values that belong together, and takes them out of the dictionary.");
  define_curves(module);
  define_b_spline_curve(module);
  define_b_spline_surface(module);
  define_surfaces(module);
}
