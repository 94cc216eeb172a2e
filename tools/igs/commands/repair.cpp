#include "commands/commands.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <new>
#include <sstream>
#include <utility>

#include "diff/compare.h"
#include "files/complaints.h"
#include "files/jobs.h"
#include "files/output_file.h"
#include "report/report.h"

namespace {

constexpr const char* standard_output = "-";

/// `copy` receives what is written; null when nobody wants it.
bool write_model(Model& model, std::ostream& out, std::string* copy) {
  utOstream complaints(std::cerr);
  if (copy == nullptr) return model.file().write(out, complaints) != 0;
  std::ostringstream bytes;
  const bool is_written = model.file().write(bytes, complaints) != 0;
  *copy = std::move(bytes).str();
  return is_written && out.write(copy->data(), std::ssize(*copy));
}

/// Returns why it could not be written; empty when it was.
std::string write_file(Model& model, const std::string& target, std::string* copy) {
  constexpr const char* write_error = "cannot be written";
  if (target == standard_output) {
    return write_model(model, std::cout, copy) && std::cout.flush() ? "" : write_error;
  }
  OutputFile output(target);
  if (!output.error().empty()) return output.error();
  const bool is_written = write_model(model, output.stream(), copy);
  if (is_written || !output.stream()) return output.commit() ? "" : output.error();
  return write_error;
}

Findings repair(Model& model, const RepairOptions& options) {
  const EntityTypes before(model.file());
  if (model.was_read()) {
    model.progress().stage("repairing");
    model.file().clean(options.delete_faulty ? 1 : 0);
    model.expect_memory();
  }
  Findings findings(model);
  findings.is_repair = true;
  findings.has_summary = options.summary;
  findings.delete_faulty = options.delete_faulty;
  if (options.delete_faulty) findings.deleted = before.missing_in(findings.types);
  return findings;
}

/// The input as it was read and the output as it was written, read again to be compared.
class Summary {
 public:
  /// Takes the input of the model.
  Summary(Model& model, const std::string& target, std::string output)
      : m_before(model.name(), {model.take_input()}), m_after(target, {std::move(output)}) {
    m_before.read_silently();
    m_after.read_silently();
    if (m_after.was_read()) m_comparison.emplace(m_before.file(), m_after.file(), RealRule::rounded(written_digits()));
  }
  /// Null when the output cannot be read.
  const Comparison* comparison() const { return m_comparison ? &*m_comparison : nullptr; }

 private:
  static int written_digits() {
    // The shortest reals, -1, are exact.
    const auto digits = [](intcoResourceKey key) {
      const int precision = kel_resource_table_inquire().value(key);
      return precision < 0 ? std::numeric_limits<double>::max_digits10 : precision;
    };
    return std::min(digits(kelOptDoubleGeometricPrecision), digits(kelOptDoubleParametricPrecision));
  }

  Model m_before;
  Model m_after;
  std::optional<Comparison> m_comparison;
};

/// Null, with a complaint, when the summary cannot be made.
std::unique_ptr<Summary> make_summary(Model& model, const std::string& target, std::string output) {
  model.progress().stage("comparing");
  std::string reason = "cannot be read again";
  try {
    auto summary = std::make_unique<Summary>(model, target, std::move(output));
    if (summary->comparison() != nullptr) return summary;
  } catch (const std::bad_alloc&) {
    reason = "out of memory";
  }
  complain(target, "no summary: " + reason);
  return nullptr;
}

/// Writes the repaired model, with a complaint when that is not possible. `copy` receives what is written; null when
/// nobody wants it.
bool write_repaired(Model& model, const std::string& target, std::string* copy) {
  if (!model.read_error().empty()) {
    model.progress().end();
    complain(model.name(), model.read_error() + "; nothing is written, as data would be lost");
    return false;
  }
  model.progress().stage("writing");
  const std::string error = write_file(model, target, copy);
  model.expect_memory();
  if (error.empty()) return true;
  model.progress().end();
  complain(target, error);
  return false;
}

int repair_file(Model& model, const RepairOptions& options, Report& report) {
  if (options.summary) model.keep_input();
  model.read();
  report.warnings(model);
  Findings findings = repair(model, options);

  std::string output;
  std::unique_ptr<Summary> summary;
  if (write_repaired(model, options.target, options.summary ? &output : nullptr)) findings.written = options.target;
  if (findings.written && options.summary) summary = make_summary(model, options.target, std::move(output));
  if (summary != nullptr) findings.summary = summary->comparison();
  model.progress().end();
  report.outcome(findings);
  if (!findings.written || (options.summary && summary == nullptr)) return exit_failed;
  return num_errors_left(findings) > 0 ? exit_errors : exit_clean;
}

}  // namespace

int run_repair(const RepairOptions& options) {
  const bool is_output_taken = options.target == standard_output;
  const Paint paint(options.color, is_output_taken ? STDERR_FILENO : STDOUT_FILENO);
  const std::unique_ptr<Report> report =
      make_report(options.format, options.most_listed(), is_output_taken ? std::cerr : std::cout, paint);
  const FileWork work{[&](Model& model) { return Tally{.status = repair_file(model, options, *report)}; },
                      [&](const std::string& name, const std::string& reason) { report->failure(name, reason); }};
  return final_status({with_file(options.names.front(), work)});
}
