#include "commands/commands.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <system_error>
#include <utility>

#include "explain/texts.h"
#include "files/complaints.h"
#include "files/contents.h"
#include "files/output_file.h"
#include "repair/repaired_file.h"
#include "repair/targets.h"
#include "report/report.h"

namespace {

constexpr const char* standard_output = "-";

/// Whether the file is there and holds just that; its time of change stays then.
bool is_content(const std::string& name, const std::string& bytes) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(name, error) || std::filesystem::file_size(name, error) != bytes.size()) {
    return false;
  }
  std::ifstream file(name, std::ios::binary);
  std::string content(bytes.size(), '\0');
  return file.read(content.data(), std::ssize(content)) && content == bytes;
}

/// Returns why it could not be written; empty when it was.
std::string write_bytes(const std::string& bytes, const std::string& target, const Streams& streams) {
  constexpr const char* write_error = "cannot be written";
  if (target == standard_output) return streams.out.write(bytes.data(), std::ssize(bytes)).flush() ? "" : write_error;
  if (is_content(target, bytes)) return "";
  OutputFile output(target);
  if (!output.error().empty()) return output.error();
  output.stream().write(bytes.data(), std::ssize(bytes));
  return output.commit() ? "" : output.error();
}

igsFileOptions options_of_repair(const RepairOptions& options) {
  igsFileOptions asked = options_of_program();
  asked.keep = !options.drop_unsupported;
  const auto is_default = [](intcoResourceKey key) {
    return kel_resource_table_inquire().value(key) == coResourceTable().value(key);
  };
  asked.style.shortest_reals =
      !options.digits && is_default(kelOptDoubleGeometricPrecision) && is_default(kelOptDoubleParametricPrecision);
  asked.style.exponent_letter = options.exponent;
  asked.style.line_end = options.line_end;
  return asked;
}

/// Why a file that was read but is not whole must not be written; empty when it may be.
std::string refusal(const RepairedFile& repaired, const RepairOptions& options) {
  const std::string& loss = repaired.what_is_missing();
  if (loss.empty() || (options.salvage && repaired.can_be_written())) return "";
  return loss + "; nothing is written, as data would be lost" +
         (repaired.can_be_written() ? "; --salvage writes what was read" : "");
}

void complain_of_units(const Model& model, igsUnitType wanted, const Streams& streams) {
  const std::optional<igsUnitType> given = sound_units(model.file().global_section());
  if (!given || *given == wanted) return;
  complain(streams.err, model.name(),
           "its units are " + igsUnits::name(*given) + ", beyond doubt; --units changes nothing");
}

Tally repair_file(Model& model, const RepairOptions& options, Report& report, const Streams& streams) {
  const std::string target = target_of(model.name(), options);
  const bool has_summary = options.summary || options.dry_run;
  const RepairRules rules{options.rules, options.keep_geometry, options.units, options.delete_faulty,
                          options.geometric_checks()};
  RepairedFile repaired(model, rules, options_of_repair(options), has_summary, streams.err);
  report.warnings(model, streams.err);  // what the repairs say is in the report
  if (options.units) complain_of_units(model, *options.units, streams);
  repaired.repair();
  const std::string refused = refusal(repaired, options);
  std::string failure = refused;
  if (failure.empty() && options.in_place && model.is_packed())
    failure = "is packed, and cannot be written in its place";
  if (failure.empty()) failure = repaired.write(target);
  if (failure.empty() && !options.dry_run) failure = write_bytes(repaired.bytes(), target, streams);
  model.progress().end();

  Outcome outcome = repaired.outcome();
  outcome.is_trial = options.dry_run;
  outcome.failure = failure;
  if (failure.empty() && !options.dry_run) outcome.written = target;
  if (!failure.empty())
    complain(streams.err, repaired.can_be_written() && refused.empty() ? target : model.name(), failure);
  report.outcome(outcome);
  Tally tally = tally_of(outcome, options.fail_on, options.most_listed());
  if (!repaired.what_is_missing().empty()) tally.status = std::max<int>(tally.status, exit_errors);
  return tally;
}

}  // namespace

int run_repair(const RepairOptions& options) {
  if (const std::string fault = targets_fault(options); !fault.empty()) {
    complain(std::cerr, options.output_dir, fault);
    return exit_failed;
  }
  coResourceTable& settings = kel_resource_table_inquire();
  if (options.keep_geometry) settings.set_value(kelOptRigidTransforms, false);
  if (options.digits) {
    settings.set_value(kelOptDoubleGeometricPrecision, *options.digits);
    settings.set_value(kelOptDoubleParametricPrecision, *options.digits);
  }
  const bool is_output_taken = options.target == standard_output;
  const ReportOptions report_options = options.report_options(is_output_taken ? STDERR_FILENO : STDOUT_FILENO);
  return work_with_reports(options.names, options.jobs, report_options, is_output_taken ? std::cerr : std::cout,
                           [&](Model& model, Report& report, const Streams& streams) {
                             return repair_file(model, options, report, streams);
                           });
}
