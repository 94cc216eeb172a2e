#include <algorithm>
#include <climits>
#include <filesystem>
#include <optional>
#include <ostream>
#include <unordered_map>

#include "explain/texts.h"
#include "files/complaints.h"
#include "files/jobs.h"
#include "report/directory_lines.h"
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

const char* level_of(const ErrorText* text) { return text != nullptr && !text->repair.empty() ? "warning" : "error"; }

void write_rule(JsonWriter& json, const ErrorText& text) {
  json.begin_object();
  json.member("id", text.name);
  write_message(json, "shortDescription", general_sentence(text));
  write_message(json, "help", text.repair.empty() ? "It is not repaired." : "Repair: " + text.repair);
  json.key("defaultConfiguration");
  json.begin_object();
  json.member("level", level_of(&text));
  json.end_object();
  json.key("properties");
  json.begin_object();
  json.member("repairable", !text.repair.empty());
  json.end_object();
  json.end_object();
}

/// The place of every error class in the list of rules.
std::unordered_map<std::string_view, int> rule_indices() {
  std::unordered_map<std::string_view, int> indices;
  for (const ErrorText& text : all_error_texts()) indices.emplace(text.name, static_cast<int>(indices.size()));
  return indices;
}

/// SARIF 2.1.0, one run for all files. All rules come first, so that results can refer to them as they are written.
class SarifReport : public Report {
 public:
  SarifReport(std::size_t max_errors, std::ostream& out)
      : m_max_errors(max_errors), m_out(out), m_rule_indices(rule_indices()) {}
  void begin() override;
  void outcome(const Findings& findings) override;
  void failure(const std::string& /*file*/, const std::string& /*reason*/) override {}  // end() tells of it
  void warnings(const Model& model) override { complain_of_messages(model); }
  void adopt(std::FILE* text) override;
  void end(const std::vector<std::string>& names, const std::vector<Tally>& tallies) override;

 private:
  void write_driver(JsonWriter& json);
  void write_result(const Findings& findings, const DirectoryLines& lines, igsLogID log, const igsError& error);
  void write_notices(JsonWriter& json, const std::string& name, const Tally& tally) const;

  std::size_t m_max_errors;
  std::ostream& m_out;
  std::unordered_map<std::string_view, int> m_rule_indices;
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
  write_driver(json);
  json.key("results");
  json.begin_array();
}

void SarifReport::write_driver(JsonWriter& json) {
  json.key("tool");
  json.begin_object();
  json.key("driver");
  json.begin_object();
  json.member("name", "igs");
  json.member("version", IGS_VERSION);
  json.key("rules");
  json.begin_array();
  for (const ErrorText& text : all_error_texts()) write_rule(json, text);
  json.end_array();
  json.end_object();
  json.end_object();
}

void SarifReport::outcome(const Findings& findings) {
  std::optional<DirectoryLines> lines;
  std::size_t count = 0;
  for_each_active_error(findings.model.file().error_log(), [&](igsLogID log, const igsError& error) {
    if (count++ >= m_max_errors) return;
    if (!lines) lines = DirectoryLines::of(findings.model.name());
    write_result(findings, *lines, log, error);
  });
}

void write_location(JsonWriter& json, const std::string& file, const std::string& place, long long line) {
  json.key("locations");
  json.begin_array();
  json.begin_object();
  json.key("physicalLocation");
  json.begin_object();
  write_artifact(json, file);
  if (line > 0) {
    json.key("region");
    json.begin_object();
    json.member("startLine", line);
    json.member("endLine", line + 1);
    json.end_object();
  }
  json.end_object();
  json.key("logicalLocations");
  json.begin_array();
  json.begin_object();
  json.member("name", place);
  json.member("kind", place.starts_with("DE ") ? "entity" : "section");
  json.end_object();
  json.end_array();
  json.end_object();
  json.end_array();
}

void SarifReport::write_result(const Findings& findings, const DirectoryLines& lines, igsLogID log,
                               const igsError& error) {
  m_out << (m_has_results ? ",\n" : "\n");
  m_has_results = true;
  const std::string& name = error.objtype().name();
  const auto rule = m_rule_indices.find(name);
  JsonWriter json(m_out);
  json.begin_object();
  json.member("ruleId", name);
  if (rule != m_rule_indices.end()) json.member("ruleIndex", rule->second);
  json.member("level", level_of(find_error_text(name)));
  write_message(json, "message", sentence_of(error));
  write_location(json, findings.model.name(), place_of(log, error), lines.line_of(de_number(error).value_or(0)));
  json.key("properties");
  json.begin_object();
  json.member("log", log_name(log));
  write_json_error_values(json, error, findings.types);
  json.end_object();
  json.end_object();
}

void SarifReport::adopt(std::FILE* text) {
  const int first = std::fgetc(text);
  if (first == EOF) return;
  if (m_has_results) m_out << ',';
  if (first != ',') m_out << static_cast<char>(first);
  m_has_results = true;
  copy_all(text, m_out);
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

void SarifReport::write_notices(JsonWriter& json, const std::string& name, const Tally& tally) const {
  const long long left_out = tally.errors - static_cast<long long>(std::min<std::size_t>(m_max_errors, INT_MAX));
  if (!tally.failure.empty()) write_notice(json, "error", name, printable(name) + ": " + tally.failure);
  if (left_out > 0) write_notice(json, "note", name, counted(left_out, "more is", "more are") + " not listed");
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
  m_out << "}]}\n";
}

}  // namespace

std::unique_ptr<Report> make_sarif_report(std::size_t max_errors, std::ostream& out) {
  return std::make_unique<SarifReport>(max_errors, out);
}
