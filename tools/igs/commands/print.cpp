#include "commands/commands.h"

#include <iostream>

#include "files/complaints.h"
#include "files/jobs.h"

namespace {

Tally print_file(Model& model) {
  model.read();
  complain_of_messages(model);
  model.progress().end();
  utOstream out(std::cout);
  model.file().print(out);
  return tally_of(model);
}

}  // namespace

int run_print(const Options& options) { return final_status({with_file(options.names.front(), {print_file, {}})}); }
