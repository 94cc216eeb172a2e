#include <unistd.h>

#include <iostream>

#include "commands.h"
#include "each_file.h"
#include "output_file.h"

namespace {

constexpr const char* standard_output = "-";

/// Returns why it could not be written; empty when it was.
std::string write_file(Model& model, const std::string& target) {
  constexpr const char* write_error = "cannot be written";
  utOstream complaints(std::cerr);
  if (target == standard_output) {
    return model.file().write(std::cout, complaints) != 0 && std::cout.flush() ? "" : write_error;
  }
  OutputFile output(target);
  if (!output.error().empty()) return output.error();
  const bool is_written = model.file().write(output.stream(), complaints) != 0;
  if (is_written || !output.stream()) return output.commit() ? "" : output.error();
  return write_error;
}

Findings repair(Model& model, bool delete_faulty) {
  Findings findings(model);
  findings.is_repair = true;
  findings.delete_faulty = delete_faulty;
  const EntityTypes before(model.file());
  if (model.was_read()) {
    model.progress().stage("repairing");
    model.file().clean(delete_faulty ? 1 : 0);
    model.expect_memory();
  }
  findings.types = EntityTypes(model.file());
  findings.num_entities = model.file().num_entities();
  if (delete_faulty) findings.deleted = before.missing_in(findings.types);
  return findings;
}

int repair_file(Model& model, const RepairOptions& options, Report& report) {
  model.read();
  report.warnings(model);
  Findings findings = repair(model, options.delete_faulty);

  std::string complaint = model.read_error();
  if (!complaint.empty()) {
    complaint += "; nothing is written, as data would be lost";
    complain(model.name(), complaint);
  } else {
    model.progress().stage("writing");
    complaint = write_file(model, options.target);
    model.expect_memory();
    if (complaint.empty()) findings.written = options.target;
  }
  model.progress().end();
  if (model.read_error().empty() && !complaint.empty()) complain(options.target, complaint);
  report.outcome(findings);
  if (!findings.written) return exit_failed;
  return num_errors_left(findings) > 0 ? exit_errors : exit_clean;
}

}  // namespace

int run_repair(const RepairOptions& options) {
  const bool is_output_taken = options.target == standard_output;
  const Paint paint(options.color, is_output_taken ? STDERR_FILENO : STDOUT_FILENO);
  const std::unique_ptr<Report> report =
      make_report(options.format, options.max_errors, is_output_taken ? std::cerr : std::cout, paint);
  return for_each_file(
      {options.file}, [&](Model& model) { return repair_file(model, options, *report); },
      [&](const std::string& name, const std::string& reason) { report->failure(name, reason); });
}
