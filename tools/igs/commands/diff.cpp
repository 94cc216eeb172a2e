#include "commands/commands.h"

#include <iostream>

#include "diff/report.h"
#include "files/complaints.h"
#include "files/jobs.h"
#include "report/report.h"
#include "text/json_writer.h"

namespace {

/// Reads a file whole. False, with a complaint, when that is not possible.
bool read_whole(Model& model, const DiffOptions& options, const Streams& streams) {
  model.set_options(options_to_show());
  model.read(streams.err);
  model.progress().end();
  if (options.format == Format::text) complain_of_messages(streams.err, model);
  if (model.read_error().empty()) return true;
  complain(streams.err, model.name(), model.read_error());
  print_failure(streams.out, options.format, model.name(), model.read_error());
  return false;
}

DifferenceCounts write_differences(const Comparison& comparison, const DiffOptions& options, std::ostream& out) {
  if (options.format == Format::text) {
    const std::string title = options.names.front() + ", " + options.names.back();
    return options.stat ? write_text_statistics(out, comparison, title)
                        : write_text_differences(out, comparison, options.most_listed(), title);
  }
  JsonWriter json(out);
  json.begin_object();
  json.key("files");
  json.begin_array();
  for (const std::string& name : options.names) json.value(name);
  json.end_array();
  const DifferenceCounts counts = options.stat ? write_json_statistics(json, comparison)
                                               : write_json_differences(json, comparison, options.most_listed());
  json.end_object();
  out << '\n';
  return counts;
}

Tally compare(Model& old_model, Model& new_model, const DiffOptions& options, const Streams& streams) {
  if (!read_whole(old_model, options, streams) || !read_whole(new_model, options, streams))
    return {.status = exit_failed};
  const RealRule reals = options.tolerance ? RealRule::within(*options.tolerance) : RealRule::exact();
  Comparison comparison(old_model.file(), new_model.file(), reals);
  if (options.has_geometry) comparison.compare_figures(options.figure_tolerance);
  return {.status = write_differences(comparison, options, streams.out).is_same() ? exit_clean : exit_errors};
}

}  // namespace

int run_diff(const DiffOptions& options) {
  const auto failure = [&](const std::string& name, const std::string& reason, const Streams& streams) {
    print_failure(streams.out, options.format, name, reason);
  };
  const auto with_old = [&](Model& old_model, const Streams& streams) {
    const auto with_both = [&](Model& new_model, const Streams&) {
      return compare(old_model, new_model, options, streams);
    };
    return with_file(options.names.back(), {with_both, failure}, streams);
  };
  return final_status({with_file(options.names.front(), {with_old, failure}, standard_streams())});
}
