// Works with two files at once: what belongs to which, and how to say it.
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "igs/igs.h"
#include "igs/objects/igsCast.h"

namespace {

// [copy]
/// Makes a copy of a line in the current file: entities do not move from file to file.
igs110* copy_line(const igs110& line) {
  auto* copy = new igs110;
  copy->set_start_point(line.start_point());
  copy->set_end_point(line.end_point());
  copy->directory_entry().set_colour(igsColour(line.directory_entry().colour().colour_value()));
  return copy;
}
// [copy]

// [work]
/// The file and all that belongs to it is made, used and gone in the thread that calls this; -1 when it cannot be read.
int number_of_errors(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  std::ostringstream said;
  utOstream messages(said);
  igsFile file;
  if (file.read(in, messages) == 0) return -1;
  file.check();
  return file.error_log().object_log().num_errors();
}
// [work]

}  // namespace

int main() {
  utOstream messages(std::cerr);
  // [current]
  std::ifstream in("bracket.igs", std::ios::binary);
  igsFile bracket;
  if (bracket.read(in, messages) == 0) return 1;
  igsFile lines;  // the newest file is the current one: what is made from now on belongs to it

  igsFileTypeIT source(&bracket, igs110::type());
  while (++source) copy_line(static_cast<const igs110&>(*source()));
  std::cout << bracket.num_entities() << " entities in one file, " << lines.num_entities() << " in the other\n";
  // [current]

  // [scope]
  {
    const igsFileScope scope(bracket);  // current until the end of the block
    new igs116;
  }
  new igs110;
  std::cout << bracket.num_entities() << " and " << lines.num_entities() << '\n';
  // [scope]

  // [registry]
  igsFilecoDynArr files;
  igsObjectSystem::get_all_files(files);
  for (const igsFile* file : files) {
    std::cout << file->num_entities() << (file == &igsObjectSystem::file() ? " entities, current\n" : " entities\n");
  }
  // [registry]

  // [errors]
  bracket.check();  // makes its file current while it runs, and logs there
  std::cout << "errors: " << bracket.error_log().object_log().num_errors() << " and "
            << lines.error_log().object_log().num_errors() << '\n';
  // [errors]

  // [threads]
  const std::vector<std::string> names = {"bracket-faulty.igs", "curves-faulty.igs", "flange-faulty.igs"};
  std::vector<int> errors(names.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < names.size(); ++i) {
    threads.emplace_back([&names, &errors, i] { errors[i] = number_of_errors(names[i]); });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < names.size(); ++i) std::cout << names[i] << ": " << errors[i] << " errors\n";
  // [threads]
}
