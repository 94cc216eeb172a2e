// Follows the pointers between the entities of a solid, down and up.
#include <fstream>
#include <iostream>

#include "igs/igs.h"
#include "igs/objects/igsCast.h"

namespace {

// [down]
/// Prints the normals of all plane faces of a shell.
void print_normals(const igs514& shell) {
  for (int i = 0; i < shell.number_of_faces(); ++i) {
    const auto* face = igs_cast<igs510>(shell.face(i).face().object());
    if (face == nullptr) continue;  // a null pointer, or an entity of another class
    const auto* plane = igs_cast<igs190_0>(face->surface().object());
    const auto* normal = plane != nullptr ? igs_cast<igs123>(plane->normal().object()) : nullptr;
    if (normal == nullptr) continue;
    const giVector3& n = normal->direction();
    std::cout << "face " << i << ": normal (" << n.x() << ", " << n.y() << ", " << n.z() << ")\n";
  }
}
// [down]

// [any]
/// Counts the pointers in the data of an entity, whatever its class.
class PointerCount : public igsPointerVisitor {
 public:
  void visit(igsObjectPtr& pointer) override {
    if (pointer.object() != nullptr) ++count;
  }
  int count = 0;
};
// [any]

// [up]
/// Prints how many pointers refer to the entity, which is how it is known whether something still needs it.
void print_use(const igsObject& entity) {
  PointerCount own;
  const_cast<igsObject&>(entity).visit_pointers(own);
  std::cout << entity.name() << ": points to others " << own.count << " times, is pointed to "
            << entity.num_references() << " times\n";
}
// [up]

}  // namespace

int main() {
  utOstream messages(std::cerr);
  std::ifstream in("box.igs", std::ios::binary);
  igsFile file;
  if (file.read(in, messages) == 0) return 1;

  igsFileTypeIT shells(&file, igs514::type());
  while (++shells) print_normals(static_cast<const igs514&>(*shells()));
  igsFileTypeIT edges(&file, igs504::type());
  while (++edges) print_use(*edges());

  // [null]
  igsFileTypeIT directions(&file, igs123::type());
  ++directions;
  igsObjectPtr pointer(directions());
  delete directions();
  std::cout << "deleted: " << (pointer.object() == nullptr ? "the pointer is null\n" : "the pointer dangles\n");
  // [null]
}
