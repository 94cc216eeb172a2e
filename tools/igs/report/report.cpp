#include "report/report.h"

#include <algorithm>
#include <iostream>

#include "files/jobs.h"

Tally tally_of(const Outcome& outcome, Severity fail_on, std::size_t max_errors) {
  const Findings& findings = outcome.found.findings;
  Tally tally{.entities = outcome.found.num_entities, .failure = outcome.failure};
  for (const Severity severity : {Severity::note, Severity::warning, Severity::error}) {
    tally.findings.at(static_cast<std::size_t>(severity)) = findings.count(severity);
  }
  const std::vector<Finding>& list = findings.list();
  const std::size_t listed = std::min(max_errors, list.size());
  for (std::size_t i = 0; i < listed; ++i) tally.classes.insert(list[i].error->objtype().name());
  tally.not_listed = static_cast<long long>(list.size() - listed);
  if (findings.num_from(fail_on) > 0 || !outcome.lost.empty()) tally.status = exit_errors;
  if (!outcome.failure.empty()) tally.status = exit_failed;
  return tally;
}

std::unique_ptr<Report> make_report(const ReportOptions& options, std::ostream& out) {
  if (options.format == Format::json) return make_json_report(options, out);
  if (options.format == Format::sarif) return make_sarif_report(options, out);
  return make_text_report(options, out);
}

int work_with_reports(const std::vector<std::string>& names, std::size_t jobs, const ReportOptions& options,
                      std::ostream& out, const ReportedWork& work) {
  const std::unique_ptr<Report> whole = make_report(options, out);
  FilesWork files;
  files.handle = [&](Model& model, const Streams& streams) {
    // Where the results of the work take standard output, the report is elsewhere.
    const bool is_direct = &streams.out == &std::cout;
    const std::unique_ptr<Report> report = make_report(options, is_direct ? out : streams.out);
    return work(model, *report, streams);
  };
  files.failure = [&](const std::string& name, const std::string& reason, const Streams& streams) {
    make_report(options, streams.out)->failure(name, reason);
  };
  if (options.format == Format::sarif) files.merge = [&](const std::string& printed) { whole->adopt(printed); };
  whole->begin();
  const std::vector<Tally> tallies = work_on_files(names, jobs, files);
  whole->end(names, tallies);
  return final_status(tallies);
}

void print_failure(std::ostream& out, Format format, const std::string& file, const std::string& reason) {
  if (format == Format::json) write_json_failure(out, file, reason);
}
