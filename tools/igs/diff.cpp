#include <iostream>

#include "commands.h"
#include "diff_report.h"
#include "each_file.h"
#include "json_writer.h"

namespace {

/// Reads a file whole. False, with a complaint, when that is not possible.
bool read_whole(Model& model, const DiffOptions& options) {
  model.read();
  model.progress().end();
  if (options.format == Format::text) complain_of_messages(model);
  if (model.read_error().empty()) return true;
  complain(model.name(), model.read_error());
  if (options.format == Format::json) write_json_failure(std::cout, model.name(), model.read_error());
  return false;
}

DifferenceCounts write_differences(const Comparison& comparison, const DiffOptions& options) {
  if (options.format == Format::text) {
    const std::string title = options.files.front() + ", " + options.files.back();
    return write_text_differences(std::cout, comparison, options.max_changes, title);
  }
  JsonWriter json(std::cout);
  json.begin_object();
  json.key("files");
  json.begin_array();
  for (const std::string& name : options.files) json.value(name);
  json.end_array();
  const DifferenceCounts counts = write_json_differences(json, comparison, options.max_changes);
  json.end_object();
  std::cout << '\n';
  return counts;
}

int compare(Model& old_model, Model& new_model, const DiffOptions& options) {
  if (!read_whole(old_model, options) || !read_whole(new_model, options)) return exit_failed;
  const RealRule reals = options.tolerance ? RealRule::within(*options.tolerance) : RealRule::exact();
  const Comparison comparison(old_model.file(), new_model.file(), reals);
  return write_differences(comparison, options).is_same() ? exit_clean : exit_errors;
}

}  // namespace

int run_diff(const DiffOptions& options) {
  const auto failure = [&](const std::string& name, const std::string& reason) {
    if (options.format == Format::json) write_json_failure(std::cout, name, reason);
  };
  return for_each_file(
      {options.files.front()},
      [&](Model& old_model) {
        return for_each_file(
            {options.files.back()}, [&](Model& new_model) { return compare(old_model, new_model, options); }, failure);
      },
      failure);
}
