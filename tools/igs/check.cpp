#include <iostream>

#include "commands.h"
#include "each_file.h"

namespace {

int check_file(Model& model, Report& report) {
  model.read();
  report.warnings(model);
  if (model.has_entities()) {
    model.progress().stage("checking");
    model.file().check();
    model.expect_memory();
  }
  model.progress().end();

  Findings findings(model);
  findings.num_entities = model.file().num_entities();
  findings.types = EntityTypes(model.file());
  report.outcome(findings);
  if (!model.read_error().empty()) {
    complain(model.name(), model.read_error());
    return exit_failed;
  }
  return num_errors_left(findings) > 0 ? exit_errors : exit_clean;
}

}  // namespace

int run_check(const CheckOptions& options) {
  const std::unique_ptr<Report> report = make_report(options.format, options.max_errors, std::cout);
  return for_each_file(
      options.files, [&](Model& model) { return check_file(model, *report); },
      [&](const std::string& name, const std::string& reason) { report->failure(name, reason); });
}
