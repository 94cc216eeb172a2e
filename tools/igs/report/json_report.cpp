#include <ostream>

#include "diff/report.h"
#include "files/jobs.h"
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

void write_error(JsonWriter& json, igsLogID log, const igsError& error, const EntityTypes& types) {
  json.begin_object();
  json.member("log", log_name(log));
  json.member("class", error.objtype().name());
  write_json_error_values(json, error, types);
  json.end_object();
}

class JsonReport : public Report {
 public:
  JsonReport(std::size_t max_errors, std::ostream& out) : m_max_errors(max_errors), m_out(out) {}
  void outcome(const Findings& findings) override;
  void failure(const std::string& file, const std::string& reason) override { write_json_failure(m_out, file, reason); }
  void warnings(const Model& /*model*/) override {}  // they are among the messages
  void adopt(std::FILE* text) override { copy_all(text, m_out); }

 private:
  void write_errors(JsonWriter& json, const Findings& findings);
  void write_repairs(JsonWriter& json, const Findings& findings);
  void write_messages(JsonWriter& json, const MessageList& messages);
  void write_summary(JsonWriter& json, const Comparison* summary) const;
  /// Writes an error of a list as long as the list may be.
  auto listed(JsonWriter& json, const EntityTypes& types) const {
    return [&json, &types, count = std::size_t{0}, limit = m_max_errors](igsLogID log, const igsError& error) mutable {
      if (count < limit) write_error(json, log, error, types);
      ++count;
    };
  }

  std::size_t m_max_errors;
  std::ostream& m_out;
};

void JsonReport::outcome(const Findings& findings) {
  JsonWriter json(m_out);
  json.begin_object();
  write_json_counts(json, findings.model, findings.num_entities, findings.types);
  write_errors(json, findings);
  if (findings.is_repair) write_repairs(json, findings);
  write_messages(json, findings.model.messages());
  if (findings.is_repair) {
    json.key("written");
    findings.written ? json.value(*findings.written) : json.null();
  }
  if (findings.has_summary) write_summary(json, findings.summary);
  json.end_object();
  m_out << '\n';
}

void JsonReport::write_errors(JsonWriter& json, const Findings& findings) {
  const igsErrorLog& log = findings.model.file().error_log();
  json.member("error_count", num_active_errors(log));
  json.key("errors");
  json.begin_array();
  for_each_active_error(log, listed(json, findings.types));
  json.end_array();
}

void JsonReport::write_repairs(JsonWriter& json, const Findings& findings) {
  json.key("fixed");
  json.begin_array();
  for_each_fixed_error(findings.model.file().error_log(), listed(json, findings.types));
  json.end_array();
  if (!findings.delete_faulty) return;
  json.key("deleted");
  json.begin_array();
  for (const int de : findings.deleted) json.value(de);
  json.end_array();
}

void JsonReport::write_messages(JsonWriter& json, const MessageList& messages) {
  json.key("messages");
  json.begin_array();
  messages.for_each([&json](const std::string& message) { json.value(message); });
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

std::unique_ptr<Report> make_json_report(std::size_t max_errors, std::ostream& out) {
  return std::make_unique<JsonReport>(max_errors, out);
}

void write_json_failure(std::ostream& out, const std::string& file, const std::string& reason) {
  JsonWriter json(out);
  json.begin_object();
  json.member("file", file);
  json.member("error", reason);
  json.end_object();
  out << '\n';
}

void write_json_error_values(JsonWriter& json, const igsError& error, const EntityTypes& types) {
  if (const std::optional<int> de = de_number(error)) {
    json.member("de", *de);
    if (const std::optional<int> type = types.at(*de)) json.member("type", *type);
  }
  json.key("values");
  json.begin_array();
  ValueWriter values(json);
  error.visit_values(values);
  json.end_array();
}

void write_json_counts(JsonWriter& json, const Model& model, int num_entities, const EntityTypes& types) {
  json.member("file", model.name());
  json.member("read", model.was_read());
  json.member("entities", num_entities);
  json.member("nulls", model.file().num_nulls());
  json.member("unknowns", model.file().num_unknowns());
  json.key("dropped");
  json.begin_object();
  for (const auto& [kind, count] : model.file().dropped_entities()) {
    json.member(std::to_string(kind.first) + ':' + std::to_string(kind.second), count);
  }
  json.end_object();
  json.key("types");
  json.begin_object();
  for (const auto& [type, count] : types.counts()) json.member(std::to_string(type), count);
  json.end_object();
}
