#include "commands/commands.h"

#include <unistd.h>

#include <iostream>

#include "files/jobs.h"
#include "report/report.h"

namespace {

Tally check_file(Model& model, Report& report) {
  model.read();
  report.warnings(model);
  if (model.has_entities()) {
    model.progress().stage("checking");
    model.file().check();
    model.expect_memory();
  }
  model.progress().end();
  const Findings findings(model);
  report.outcome(findings);
  return tally_of(model, findings.num_entities, num_errors_left(findings));
}

}  // namespace

int run_check(const Options& options) {
  const std::unique_ptr<Report> report =
      make_report(options.format, options.most_listed(), std::cout, Paint(options.color, STDOUT_FILENO));
  report->begin();
  const FilesWork work{{[&](Model& model) { return check_file(model, *report); },
                        [&](const std::string& name, const std::string& reason) { report->failure(name, reason); }},
                       [&](std::FILE* printed) { report->adopt(printed); }};
  const std::vector<Tally> tallies = work_on_files(options.names, options.jobs, work);
  report->end(options.names, tallies);
  return final_status(tallies);
}
