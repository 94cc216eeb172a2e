#include <filesystem>
#include <optional>
#include <ostream>
#include <set>

#include "explain/texts.h"
#include "files/complaints.h"
#include "files/jobs.h"
#include "findings/place.h"
#include "report/report.h"
#include "text/json_writer.h"
#include "text/text.h"

namespace {

/// A file name as a URI reference that is relative for a relative name; every byte that could mean something else in a
/// URI, a colon too, is percent-encoded.
std::string uri_of(const std::string& name) {
  constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view digits = "0123456789ABCDEF";
  const std::filesystem::path path(name);
  const std::string parts = path.generic_string();
  std::string uri = path.is_absolute() ? "file://" : "";
  if (path.is_absolute() && !parts.starts_with('/')) uri += '/';  // a drive letter
  for (const char c : parts) {
    const auto byte = static_cast<unsigned char>(c);
    if (plain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri.append({'%', digits[byte >> 4U], digits[byte & 15U]});
    }
  }
  return uri;
}

/// "message": {"text": ...}, which other members have the form of, too.
void write_message(JsonWriter& json, std::string_view member, const std::string& text) {
  json.key(member);
  json.begin_object();
  json.member("text", text);
  json.end_object();
}

void write_artifact(JsonWriter& json, const std::string& file) {
  json.key("artifactLocation");
  json.begin_object();
  json.member("uri", uri_of(file));
  if (file == "-") write_message(json, "description", "standard input");
  json.end_object();
}

void write_rule(JsonWriter& json, const ErrorText& text) {
  const std::string sentence = general_sentence(text) + '.';
  const std::string help = text.repair.empty() ? "It is not repaired." : "Repair: " + text.repair;
  json.begin_object();
  json.member("id", text.name);
  write_message(json, "shortDescription", sentence);
  write_message(json, "fullDescription", sentence + ' ' + help);
  write_message(json, "help", help);
  json.member("helpUri", page_url(text.name));
  json.key("defaultConfiguration");
  json.begin_object();
  json.member("level", severity_name(text.severity));
  json.end_object();
  json.key("properties");
  json.begin_object();
  json.member("repairable", is_repairable(text));
  json.end_object();
  json.end_object();
}

/// SARIF 2.1.0, one run for all files. The rules come last, when it is known which occur.
class SarifReport : public Report {
 public:
  SarifReport(const ReportOptions& options, std::ostream& out) : m_max_errors(options.max_errors), m_out(out) {}
  void begin() override;
  void outcome(const Outcome& outcome) override;
  void failure(const std::string& /*file*/, const std::string& /*reason*/) override {}  // end() tells of it
  void warnings(const Model& model, std::ostream& err) override { complain_of_messages(err, model); }
  void adopt(const std::string& text) override;
  void end(const std::vector<std::string>& names, const std::vector<Tally>& tallies) override;

 private:
  static void write_driver(JsonWriter& json, const std::vector<Tally>& tallies);
  void write_result(const FileFindings& file, const Finding& finding);

  std::size_t m_max_errors;
  std::ostream& m_out;
  bool m_has_results = false;
};

void SarifReport::begin() {
  JsonWriter json(m_out);
  json.begin_object();
  json.member("$schema", "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json");
  json.member("version", "2.1.0");
  json.key("runs");
  json.begin_array();
  json.begin_object();
  json.key("results");
  json.begin_array();
}

void SarifReport::write_driver(JsonWriter& json, const std::vector<Tally>& tallies) {
  std::set<std::string_view> classes;
  for (const Tally& tally : tallies) classes.insert(tally.classes.begin(), tally.classes.end());
  json.key("tool");
  json.begin_object();
  json.key("driver");
  json.begin_object();
  json.member("name", "igs");
  json.member("version", IGS_VERSION);
  json.member("informationUri", page_url("index"));
  json.key("rules");
  json.begin_array();
  for (const std::string_view name : classes) {
    if (const ErrorText* const text = find_error_text(name)) write_rule(json, *text);
  }
  json.end_array();
  json.end_object();
  json.end_object();
}

void SarifReport::outcome(const Outcome& outcome) {
  std::size_t count = 0;
  for (const Finding& finding : outcome.found.findings.list()) {
    if (count++ >= m_max_errors) return;
    write_result(outcome.found, finding);
  }
}

void write_location(JsonWriter& json, const FileFindings& file, const Finding& finding) {
  json.key("locations");
  json.begin_array();
  json.begin_object();
  json.key("physicalLocation");
  json.begin_object();
  write_artifact(json, file.name);
  json.key("region");
  json.begin_object();
  json.member("startLine", finding.line);
  json.end_object();
  json.end_object();
  json.key("logicalLocations");
  json.begin_array();
  json.begin_object();
  json.member("name", place_of(finding.log, *finding.error, file.types));
  json.member("kind", de_number(*finding.error) ? "entity" : "section");
  json.end_object();
  json.end_array();
  json.end_object();
  json.end_array();
}

void SarifReport::write_result(const FileFindings& file, const Finding& finding) {
  m_out << (m_has_results ? ",\n" : "\n");
  m_has_results = true;
  const igsError& error = *finding.error;
  JsonWriter json(m_out);
  json.begin_object();
  json.member("ruleId", error.objtype().name());
  json.member("level", severity_name(finding.severity));
  write_message(json, "message", place_of(finding.log, error, file.types) + ": " + sentence_of(error) + '.');
  write_location(json, file, finding);
  json.key("properties");
  json.begin_object();
  json.member("log", log_name(finding.log));
  if (const std::optional<int> de = de_number(error)) {
    json.member("de", *de);
    if (const std::optional<int> type = file.types.at(*de)) json.member("type", *type);
  }
  write_json_values(json, error);
  json.member("consequence", finding.is_consequence);
  json.end_object();
  json.end_object();
}

void SarifReport::adopt(const std::string& text) {
  if (!text.empty() && m_has_results) m_out << ',';
  m_has_results = m_has_results || !text.empty();
  m_out << text;
}

void write_notice(JsonWriter& json, const char* level, const std::string& file, const std::string& text) {
  json.begin_object();
  json.member("level", level);
  write_message(json, "message", text);
  json.key("locations");
  json.begin_array();
  json.begin_object();
  json.key("physicalLocation");
  json.begin_object();
  write_artifact(json, file);
  json.end_object();
  json.end_object();
  json.end_array();
  json.end_object();
}

void write_notices(JsonWriter& json, const std::string& name, const Tally& tally) {
  if (!tally.failure.empty()) write_notice(json, "error", name, printable(name) + ": " + tally.failure);
  if (tally.not_listed > 0) {
    write_notice(json, "note", name, counted(tally.not_listed, "more is", "more are") + " not listed");
  }
}

void SarifReport::end(const std::vector<std::string>& names, const std::vector<Tally>& tallies) {
  const int status = status_of(tallies);
  m_out << "\n],";
  JsonWriter json(m_out);
  json.key("invocations");
  json.begin_array();
  json.begin_object();
  json.member("executionSuccessful", status != exit_failed);
  json.member("exitCode", status);
  json.key("toolExecutionNotifications");
  json.begin_array();
  for (std::size_t i = 0; i < tallies.size(); ++i) write_notices(json, names[i], tallies[i]);
  json.end_array();
  json.end_object();
  json.end_array();
  write_driver(json, tallies);
  m_out << "}]}\n";
}

}  // namespace

std::unique_ptr<Report> make_sarif_report(const ReportOptions& options, std::ostream& out) {
  return std::make_unique<SarifReport>(options, out);
}
