#include <iostream>

#include "commands.h"
#include "each_file.h"

namespace {

int print_file(Model& model) {
  model.read();
  complain_of_messages(model);
  model.progress().end();
  utOstream out(std::cout);
  model.file().print(out);
  if (model.read_error().empty()) return exit_clean;
  complain(model.name(), model.read_error());
  return exit_failed;
}

}  // namespace

int run_print(const std::string& file) {
  return for_each_file({file}, print_file, [](const std::string&, const std::string&) {});
}
