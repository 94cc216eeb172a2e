#include "report/report.h"

#include <iostream>

#include "text/text.h"

long long num_errors_left(const Findings& findings) {
  long long count = 0;
  for_each_active_error(findings.model.file().error_log(), [&](igsLogID, const igsError& error) {
    const std::optional<int> de = de_number(error);
    const bool is_gone = findings.is_repair && de && !findings.types.at(*de);
    if (!is_gone) ++count;
  });
  return count;
}

std::string place_of(igsLogID log, const igsError& error) {
  if (const std::optional<int> de = de_number(error)) return "DE " + std::to_string(*de);
  if (log == igsGlobalLog) return "Global section";
  if (log == igsStartLog) return "Start section";
  return log == igsTerminateLog ? "Terminate section" : "File";
}

std::unique_ptr<Report> make_report(Format format, std::size_t max_errors, std::ostream& out, const Paint& paint) {
  if (format == Format::json) return make_json_report(max_errors, out);
  if (format == Format::sarif) return make_sarif_report(max_errors, out);
  return make_text_report(max_errors, out, paint);
}

void print_failure(Format format, const std::string& file, const std::string& reason) {
  if (format == Format::json) write_json_failure(std::cout, file, reason);
}
