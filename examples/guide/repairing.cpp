// Repairs a file, tells what was done, and writes it.
#include <fstream>
#include <iostream>
#include <sstream>

#include "igs/igs.h"

namespace {

// [report]
void print_fixed(const igsFile& file) {
  for (int id = 0; id < igs_num_section_logs; ++id) {
    const igsSimpleSectionLog& log = *file.error_log().get_section_log(static_cast<igsLogID>(id));
    for (const igsError* error : log.fixed_errors()) std::cout << "repaired: " << error->objtype().name() << '\n';
    igsSimpleSectionLogIT left(log);
    while (++left) std::cout << "left: " << left()->objtype().name() << '\n';
  }
}
// [report]

}  // namespace

int main() {
  utOstream messages(std::cerr);
  std::ifstream in("curves-faulty.igs", std::ios::binary);
  igsFile file;
  if (file.read(in, messages) == 0) return 1;

  // [clean]
  file.clean(0);  // checks, then repairs what can be repaired; entities with faults that are left stay
  // [clean]
  print_fixed(file);

  // [delete]
  const int before = file.num_entities();
  file.clean(1);  // deletes the entities that still have errors
  std::cout << before - file.num_entities() << " deleted\n";
  // [delete]

  // [write]
  std::stringstream mended;
  if (file.write(mended, messages) == 0) return 1;
  igsFile copy;
  if (copy.read(mended, messages) == 0) return 1;
  copy.check();
  std::cout << copy.error_log().object_log().num_errors() << " errors in what was written\n";
  // [write]
}
