#include <map>
#include <ostream>

#include "diff/report.h"
#include "explain/texts.h"
#include "files/contents.h"
#include "report/report.h"
#include "text/json_writer.h"

namespace {

class ValueWriter : public igsErrorValueVisitor {
 public:
  explicit ValueWriter(JsonWriter& json) : m_json(json) {}
  void value(int number) override { m_json.value(number); }
  void value(double number) override { m_json.value(number); }
  void value(const utString& text) override { m_json.value(text); }

 private:
  JsonWriter& m_json;
};

void write_kind_counts(JsonWriter& json, const char* member, const KindCounts& counts) {
  json.key(member);
  json.begin_object();
  for (const auto& [kind, count] : counts) {
    json.member(std::to_string(kind.first) + ':' + std::to_string(kind.second), count);
  }
  json.end_object();
}

void write_finding(JsonWriter& json, const Finding& finding, const EntityTypes& types) {
  const igsError& error = *finding.error;
  const ErrorText* const text = find_error_text(error.objtype().name());
  json.begin_object();
  json.member("log", log_name(finding.log));
  json.member("class", error.objtype().name());
  json.member("severity", severity_name(finding.severity));
  json.member("line", finding.line);
  if (const std::optional<int> de = de_number(error)) {
    json.member("de", *de);
    if (const std::optional<int> type = types.at(*de)) json.member("type", *type);
  }
  write_json_values(json, error);
  json.member("message", sentence_of(error));
  json.member("consequence", finding.is_consequence);
  json.member("repairable", text != nullptr && is_repairable(*text));
  json.end_object();
}

class JsonReport : public Report {
 public:
  JsonReport(const ReportOptions& options, std::ostream& out) : m_max_errors(options.max_errors), m_out(out) {}
  void outcome(const Outcome& outcome) override;
  void failure(const std::string& file, const std::string& reason) override { write_json_failure(m_out, file, reason); }
  void warnings(const Model& /*model*/, std::ostream& /*err*/) override {}  // they are among the messages

 private:
  void write_list(JsonWriter& json, const char* member, const FileFindings& file) const;
  void write_errors(JsonWriter& json, const FileFindings& file) const;
  void write_repair(JsonWriter& json, const Outcome& outcome) const;
  void write_summary(JsonWriter& json, const Comparison* summary) const;

  std::size_t m_max_errors;
  std::ostream& m_out;
};

void write_lost(JsonWriter& json, const std::vector<LostEntity>& list) {
  json.key("lost");
  json.begin_array();
  for (const LostEntity& lost : list) {
    json.begin_object();
    json.member("de", lost.de);
    json.key("type");
    lost.type ? json.value(*lost.type) : json.null();
    json.member("line", lost.line);
    json.member("why", lost.why);
    json.end_object();
  }
  json.end_array();
}

void JsonReport::outcome(const Outcome& outcome) {
  JsonWriter json(m_out);
  json.begin_object();
  write_json_counts(json, outcome.model, outcome.found);
  write_errors(json, outcome.found);
  if (outcome.is_repair()) write_repair(json, outcome);
  write_lost(json, outcome.lost);
  json.key("messages");
  json.begin_array();
  outcome.model.messages().for_each([&json](const std::string& message) { json.value(message); });
  json.end_array();
  if (outcome.is_repair()) {
    json.key("written");
    outcome.written ? json.value(*outcome.written) : json.null();
  }
  if (outcome.has_summary) write_summary(json, outcome.summary);
  json.end_object();
  m_out << '\n';
}

void JsonReport::write_list(JsonWriter& json, const char* member, const FileFindings& file) const {
  json.key(member);
  json.begin_array();
  std::size_t count = 0;
  for (const Finding& finding : file.findings.list()) {
    if (count++ < m_max_errors) write_finding(json, finding, file.types);
  }
  json.end_array();
}

void JsonReport::write_errors(JsonWriter& json, const FileFindings& file) const {
  json.key("counts");
  json.begin_object();
  for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
    json.member(severity_name(severity), file.findings.count(severity));
  }
  json.end_object();
  json.member("error_count", file.findings.size());
  write_list(json, "errors", file);
}

void JsonReport::write_repair(JsonWriter& json, const Outcome& outcome) const {
  write_list(json, "fixed", *outcome.repaired);
  if (!outcome.delete_faulty) return;
  json.key("deleted");
  json.begin_array();
  for (const int de : outcome.deleted) json.value(de);
  json.end_array();
}

void JsonReport::write_summary(JsonWriter& json, const Comparison* summary) const {
  json.key("summary");
  if (summary == nullptr) return json.null();
  json.begin_object();
  write_json_differences(json, *summary, m_max_errors);
  json.end_object();
}

}  // namespace

std::unique_ptr<Report> make_json_report(const ReportOptions& options, std::ostream& out) {
  return std::make_unique<JsonReport>(options, out);
}

void write_json_failure(std::ostream& out, const std::string& file, const std::string& reason) {
  JsonWriter json(out);
  json.begin_object();
  json.member("file", file);
  json.member("error", reason);
  json.end_object();
  out << '\n';
}

void write_json_values(JsonWriter& json, const igsError& error) {
  json.key("values");
  json.begin_array();
  ValueWriter values(json);
  error.visit_values(values);
  json.end_array();
}

void write_json_counts(JsonWriter& json, const Model& model, const FileFindings& counted) {
  json.member("file", model.name());
  json.member("read", model.was_read());
  json.member("entities", counted.num_entities);
  json.member("nulls", model.file().num_nulls());
  json.member("unknowns", model.file().num_unknowns());
  write_kind_counts(json, "dropped", model.file().dropped_entities());
  write_kind_counts(json, "kept", EntityCounts(counted.model->file()).kept);
  json.key("types");
  json.begin_object();
  for (const auto& [type, count] : counted.types.counts()) json.member(std::to_string(type), count);
  json.end_object();
  const std::optional<igsUnitType> units = sound_units(counted.model->file().global_section());
  json.key("units");
  units ? json.value(igsUnits::name(*units)) : json.null();
}
