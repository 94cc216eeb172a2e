// Reads a file and tells what is in it.
//   guide_reading [FILE]
#include <fstream>
#include <iostream>

#include "igs/igs.h"

int main(int argc, char** argv) {
  std::ifstream in(argc > 1 ? argv[1] : "bracket-damaged.igs", std::ios::binary);
  utOstream messages(std::cerr);  // progress, for people

  igsFile file;  // the one that is read becomes the current file; it owns what it reads
  if (file.read(in, messages) == 0) {
    std::cerr << "the file ends early, after " << file.read_fault().records_before << " records\n";
  }

  const igsGlobalSection& global = file.global_section();
  std::cout << "product: " << global.product_id_from_sending_system() << '\n'
            << "units: " << global.units().name() << '\n'
            << "written: " << global.file_creation_date().date_string() << '\n';

  utString line;
  for (int i = 0; file.start_section().line(i, line) != 0; ++i) {
    std::cout << "start: " << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
  }

  std::cout << file.num_entities() << " entities\n";
  for (const auto& [type_and_form, count] : file.dropped_entities()) {
    std::cout << count << " left out: type " << type_and_form.first << " form " << type_and_form.second << '\n';
  }
}
