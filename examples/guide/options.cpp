// Reads a file with all that can be asked of it, and tells where its faults and what has a name stand.
//   guide_options [FILE]
#include <fstream>
#include <iostream>

#include "igs/igs.h"

int main(int argc, char** argv) {
  std::ifstream in(argc > 1 ? argv[1] : "bracket-faulty.igs", std::ios::binary);
  utOstream messages(std::cerr);

  igsFile file;
  file.set_options({.keep = true, .strict = true, .recover = true, .lines = true});
  file.read(in, messages);

  igsSimpleSectionLogIT faults(&file.error_log().structure_log());
  while (++faults) {
    const int de = static_cast<const igsIndexedError*>(faults())->key();
    std::cout << "line " << file.lines(de).parameter_data << ": " << faults()->objtype().id_string() << '\n';
  }
  for (const igsObject* const named : file.entities_named("HOLE")) {
    std::cout << "HOLE: " << named->name() << " on line " << file.lines(named->de_number()).directory_entry << '\n';
  }
}
