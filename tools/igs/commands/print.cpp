#include "commands/commands.h"

#include "files/complaints.h"
#include "files/jobs.h"

namespace {

Tally print_file(Model& model, const Streams& streams) {
  model.set_options(options_to_show());
  model.read(streams.err);
  complain_of_messages(streams.err, model);
  model.progress().end();
  utOstream out(streams.out);
  model.file().print(out);
  return tally_of(model, streams);
}

}  // namespace

int run_print(const Options& options) {
  return final_status({with_file(options.names.front(), {print_file, {}}, standard_streams())});
}
