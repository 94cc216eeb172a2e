// Walks the entities of a file: all of them, those of one class, those of a family, and the roots.
#include <fstream>
#include <iostream>
#include <map>

#include "igs/igs.h"
#include "igs/objects/igsCast.h"

namespace {

// [all]
void count_by_class(const igsFile& file) {
  std::map<utString, int> counts;
  igsFileIT entities(&file);
  while (++entities) ++counts[entities()->objtype().name()];
  for (const auto& [name, count] : counts) std::cout << name << ": " << count << '\n';
}
// [all]

// [one]
void list_circles(const igsFile& file) {
  igsFileTypeIT arcs(&file, igs100::type());  // exactly this class
  while (++arcs) {
    const auto& arc = static_cast<const igs100&>(*arcs());
    if (!(arc.start_point() == arc.end_point())) continue;
    std::cout << "circle around (" << arc.centre().x() << ", " << arc.centre().y() << ")\n";
  }
}
// [one]

// [family]
int number_of_curves(const igsFile& file) {
  int curves = 0;
  igsFileIT entities(&file);
  while (++entities) {
    // null where the entity is no curve; a class derived from igsCurve counts, too
    if (igs_cast<igsCurve>(entities()) != nullptr) ++curves;
  }
  return curves;
}
// [family]

// [roots]
void list_roots(const igsFile& file) {
  igsFileIT roots(&file, 1);  // only what no other entity points to
  while (++roots) {
    const igsObject& root = *roots();
    std::cout << "DE " << root.de_number() << ' ' << root.name() << " on level "
              << root.directory_entry().level().level() << '\n';
  }
}
// [roots]

}  // namespace

int main() {
  utOstream messages(std::cerr);
  std::ifstream in("surfaces.igs", std::ios::binary);
  igsFile file;
  if (file.read(in, messages) == 0) return 1;
  count_by_class(file);
  list_circles(file);
  std::cout << number_of_curves(file) << " curves\n";
  list_roots(file);
}
