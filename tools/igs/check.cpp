#include <unistd.h>

#include <iostream>

#include "commands.h"
#include "each_file.h"
#include "jobs.h"

namespace {

void check_entities(Model& model) {
  if (model.has_entities()) {
    model.progress().stage("checking");
    model.file().check();
    model.expect_memory();
  }
  model.progress().end();
}

Tally check_file(Model& model, Report& report) {
  model.read();
  report.warnings(model);
  check_entities(model);

  Findings findings(model);
  findings.num_entities = model.file().num_entities();
  findings.types = EntityTypes(model.file());
  report.outcome(findings);

  Tally tally;
  tally.entities = findings.num_entities;
  tally.errors = num_errors_left(findings);
  tally.failure = model.read_error();
  tally.status = tally.errors > 0 ? exit_errors : exit_clean;
  if (!tally.failure.empty()) {
    complain(model.name(), tally.failure);
    tally.status = exit_failed;
  }
  return tally;
}

}  // namespace

int run_check(const CheckOptions& options) {
  const std::unique_ptr<Report> report =
      make_report(options.format, options.max_errors, std::cout, Paint(options.color, STDOUT_FILENO));
  const auto failure = [&](const std::string& name, const std::string& reason) { report->failure(name, reason); };
  const auto handle = [&](const std::string& name) {
    return handle_file(
        name, [&](Model& model) { return check_file(model, *report); }, failure);
  };
  report->begin();
  const FileWork work{handle, failure, [&](std::FILE* printed) { report->adopt(printed); }};
  const std::vector<Tally> tallies = work_on_files(options.files, options.jobs, work);
  report->end(options.files, tallies);
  return status_of(tallies);
}
