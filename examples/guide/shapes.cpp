// Measures what a file shows, takes it apart into triangles, and checks its geometry. Linked with igs::shape.
#include <fstream>
#include <iostream>

#include "igs/igs.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/igsShape.h"

namespace {

// [points]
void print_middle(const igsFile& file, int de) {
  igsShapes shapes(file);
  const igsShapeCurvePtr curve = shapes.curve(file.entity(de));  // null where it is no sound curve
  if (curve == nullptr) return;
  const igsCurvePoint middle = curve->at(curve->range().at(0.5));
  std::cout << "DE " << de << " is " << igs_length(*curve) << " long; its middle is (" << middle.point.x << ", "
            << middle.point.y << ", " << middle.point.z << ")\n";
}
// [points]

// [measure]
void print_figures(const igsFile& file) {
  const igsShapeFigures figures = igs_measure(file);
  std::cout << figures.faces << " faces, " << figures.edges << " edges, " << figures.free_edges << " of them free\n"
            << "area " << figures.area << ", volume " << figures.volume.value_or(0) << '\n';
  for (const int de : figures.unmeshed) std::cout << "DE " << de << " could not be triangulated\n";
}
// [measure]

// [triangles]
void count_triangles(const igsFile& file) {
  const igsShapeModel model(file);  // the file must not change while there is a model of it
  const std::vector<igsShapeMesh> meshes = igs_meshes(model, {.chord = 0.05});
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    const igsShapeMesh& mesh = meshes[i];  // of model.faces()[i]
    if (!mesh.is_complete) continue;       // nothing but its boundaries then
    const igsVec3& corner = mesh.points[static_cast<std::size_t>(mesh.triangles.front()[0])];
    std::cout << "DE " << model.faces()[i].entity->de_number() << ": " << mesh.triangles.size() << " triangles from ("
              << corner.x << ", " << corner.y << ", " << corner.z << ") on; area " << mesh.area << '\n';
  }
}
// [triangles]

// [check]
void print_gaps(const igsFile& file) {
  file.check();
  igsShapeCheck(file, {.tolerance = 0.01});  // without one it follows from the file
  igsSimpleSectionLogIT errors(file.error_log().object_log());
  while (++errors) {
    if (!errors()->isa(igsShapeLoopGap::type())) continue;
    const auto& gap = static_cast<const igsShapeLoopGap&>(*errors());
    std::cout << "DE " << gap.key() << ": a gap of " << gap.value<0>() << " behind member " << gap.value<2>() << '\n';
  }
}
// [check]

}  // namespace

int main() {
  utOstream messages(std::cerr);
  std::ifstream box("box.igs", std::ios::binary), surfaces("surfaces.igs", std::ios::binary);
  igsFile solid, file;
  if (solid.read(box, messages) == 0 || file.read(surfaces, messages) == 0) return 1;
  print_figures(solid);
  count_triangles(solid);
  print_middle(file, 29);

  igs_cast<igs110>(file.entity(5))->set_end_point(giPoint3(60, 0, 0.2));  // a side of a face's boundary
  print_gaps(file);
}
