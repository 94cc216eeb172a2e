#include "commands/commands.h"

#include <unistd.h>

#include <iostream>

#include "files/complaints.h"

namespace {

Tally check_file(Model& model, const Options& options, Report& report, const Streams& streams) {
  model.set_options(options_of_program());
  model.read(streams.err);
  report.warnings(model, streams.err);
  if (model.has_entities()) {
    model.progress().stage("checking");
    check_faults(model.file());
    model.progress().stage("checking the geometry");
    check_geometry(model.file(), options.geometric_checks());
  }
  model.progress().end();
  Outcome outcome{.model = model, .found = {model, model.name()}, .failure = model.read_error()};
  outcome.found.findings = Findings::of_check(model.file(), options.rules);
  outcome.lost = lost_entities(model.file());
  if (!outcome.failure.empty()) complain(streams.err, model.name(), outcome.failure);
  report.outcome(outcome);
  return tally_of(outcome, options.fail_on, options.most_listed());
}

}  // namespace

int run_check(const Options& options) {
  const ReportOptions report_options = options.report_options(STDOUT_FILENO);
  return work_with_reports(options.names, options.jobs, report_options, std::cout,
                           [&](Model& model, Report& report, const Streams& streams) {
                             return check_file(model, options, report, streams);
                           });
}
