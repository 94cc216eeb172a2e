#include <utility>

#include "view.h"

namespace {

std::vector<igsObjectPtr> model_space_curves_of(const igs141& boundary) {
  std::vector<igsObjectPtr> curves;
  for (const igsModelSpaceCurve& each : boundary.model_space_curves()) curves.push_back(each.curve());
  return curves;
}

void set_boundaries(igs143& surface, const std::vector<igsObjectPtr>& boundaries) {
  surface.set_size(static_cast<int>(boundaries.size()));
  for (int i = 0; const igsObjectPtr& boundary : boundaries) surface.set_boundary(i++, boundary);
}

void set_outer_boundary(igs144& surface, const igsObjectPtr& boundary) {
  surface.set_outer_boundary(boundary);
  surface.set_outer_boundary_flag(boundary ? 1 : 0);
}

}  // namespace

void define_surfaces(py::module_& module) {
  View<igs141>(module, "Boundary", "Boundary (141): curves around a region of a surface.")
      .reference("surface", &igs141::surface, &igs141::set_surface, "The surface that is bounded.")
      .def_property_readonly(
          "model_space_curves",
          [](const EntityOf<igs141>& self) { return entities_of(self, model_space_curves_of(self.get())); },
          "The curves in model space, one after the other around the region; with their senses and the curves in "
          "parameter space they are in `fields`.");
  View<igs142>(module, "CurveOnSurface",
               "Curve on a Parametric Surface (142): in the surface's parameter space, in model space, or both.")
      .reference("surface", &igs142::surface, &igs142::set_surface, "The surface that it lies on.")
      .reference("curve_2d", &igs142::curve_2d, &igs142::set_curve_2d,
                 "The curve in the parameter space of the surface, its x and y being u and v; or None.")
      .reference("curve_3d", &igs142::curve_3d, &igs142::set_curve_3d, "The curve in model space, or None.");
  View<igs143>(module, "BoundedSurface", "Bounded Surface (143): the region of a surface inside boundaries.")
      .reference("basis_surface", &igs143::basis_surface, &igs143::set_basis_surface, "The surface that is bounded.")
      .references("boundaries", &igs143::boundaries, set_boundaries, "A list of `Boundary` (141).");
  View<igs144>(module, "TrimmedSurface",
               "Trimmed Surface (144): the region of a surface inside one curve and outside others.")
      .reference("surface", &igs144::surface, &igs144::set_surface, "The surface that is trimmed.")
      .reference("outer_boundary", &igs144::outer_boundary, set_outer_boundary,
                 "A `CurveOnSurface` (142); None where the surface ends at its own boundary.")
      .references("inner_boundaries", &igs144::inner_boundaries, &igs144::set_inner_boundaries,
                  "The holes: a list of `CurveOnSurface` (142).");
}
