#include "report.h"

#include <iostream>

#include "text.h"

long long num_errors_left(const Findings& findings) {
  long long count = 0;
  for_each_active_error(findings.model.file().error_log(), [&](igsLogID, const igsError& error) {
    const std::optional<int> de = de_number(error);
    const bool is_gone = findings.is_repair && de && !findings.types.at(*de);
    if (!is_gone) ++count;
  });
  return count;
}

std::unique_ptr<Report> make_report(Format format, std::size_t max_errors, std::ostream& out) {
  return format == Format::json ? make_json_report(max_errors, out) : make_text_report(max_errors, out);
}

void complain(const std::string& file, const std::string& reason) {
  std::cerr << "igs: " << printable(file) << ": " << reason << std::endl;
}

void complain_of_messages(const Model& model) {
  model.messages().for_each([&model](const std::string& message) {
    const std::size_t end = message.find_last_not_of('\n');
    complain(model.name(), printable(message.substr(0, end == std::string::npos ? 0 : end + 1)));
  });
}

bool flush_output() {
  std::cout.flush();
  if (!std::cout) complain("standard output", "write error");
  return static_cast<bool>(std::cout);
}
