#include "commands/commands.h"

#include <unistd.h>

#include <iostream>
#include <map>

#include "files/complaints.h"
#include "files/jobs.h"
#include "files/sections.h"
#include "report/report.h"
#include "text/json_writer.h"
#include "text/text.h"

namespace {

template <class Visit>
void for_each_count(const igsTerminateSection& terminate, Visit visit) {
  visit("start_lines", terminate.start_lines());
  visit("global_lines", terminate.global_lines());
  visit("directory_lines", terminate.directory_lines());
  visit("parameter_lines", terminate.parameter_lines());
}

/// Number of live entities by type and form.
std::map<std::pair<int, int>, int> entity_counts(const igsFile& file) {
  std::map<std::pair<int, int>, int> counts;
  igsFileIT entities(&file);
  while (++entities != 0) {
    const igsDirectoryEntry& entry = entities()->directory_entry();
    ++counts[{entry.entity_type(), entry.form_number()}];
  }
  return counts;
}

/// Writes parameters as members of an open object. What was never set is null.
class JsonParameters {
 public:
  explicit JsonParameters(JsonWriter& json) : m_json(json) {}
  void operator()(const char* name, const std::string& text) { m_json.member(name, text); }
  void operator()(const char* name, int number) {
    m_json.key(name);
    number == igs_unset_int ? m_json.null() : m_json.value(number);
  }
  void operator()(const char* name, double number) {
    m_json.key(name);
    igs_is_undefined_real(number) ? m_json.null() : m_json.value(number);
  }
  void operator()(const char* name, const igsUnits& units) {
    m_json.key(name);
    m_json.begin_object();
    (*this)("type", units.type());
    (*this)("name", units.name());
    m_json.end_object();
  }

 private:
  JsonWriter& m_json;
};

/// Writes parameters as lines for people.
struct TextParameters {
  void operator()(const char* name, const std::string& text) { write(name, printable(text)); }
  void operator()(const char* name, int number) { write(name, number == igs_unset_int ? "-" : std::to_string(number)); }
  void operator()(const char* name, double number) {
    write(name, igs_is_undefined_real(number) ? "-" : format_real(number));
  }
  void operator()(const char* name, const igsUnits& units) {
    write(name, std::to_string(units.type()) + ' ' + printable(units.name()));
  }
  void write(const char* name, const std::string& text) { std::cout << "  " << name << ": " << text << '\n'; }
};

void write_json_entities(JsonWriter& json, const igsFile& file) {
  json.key("entity_counts");
  json.begin_array();
  for (const auto& [kind, count] : entity_counts(file)) {
    json.begin_object();
    json.member("type", kind.first);
    json.member("form", kind.second);
    json.member("name", igsInfoDB::entity_name(kind.first));
    json.member("form_name", igsInfoDB::form_name(kind.first, kind.second));
    json.member("count", count);
    json.end_object();
  }
  json.end_array();
}

void write_json(const Model& model) {
  const igsFile& file = model.file();
  JsonWriter json(std::cout);
  json.begin_object();
  write_json_counts(json, model, file.num_entities(), EntityTypes(file));
  json.key("start");
  json.begin_array();
  for (const std::string& line : start_lines(file.start_section())) json.value(line);
  json.end_array();
  json.key("global");
  json.begin_object();
  for_each_parameter(file.global_section(), JsonParameters(json));
  json.end_object();
  json.key("terminate");
  json.begin_object();
  for_each_count(file.terminate_section(), JsonParameters(json));
  json.end_object();
  write_json_entities(json, file);
  json.end_object();
  std::cout << '\n';
}

void write_text(const Model& model, const Paint& paint) {
  const igsFile& file = model.file();
  const auto heading = [&paint](const std::string& text) { return paint(Ink::heading, text + ':') + '\n'; };
  std::cout << heading(printable(model.name())) << heading("Start section");
  for (const std::string& line : start_lines(file.start_section())) {
    std::cout << "  " << printable(line.substr(0, line.find_last_not_of(' ') + 1)) << '\n';
  }
  std::cout << heading("Global section");
  for_each_parameter(file.global_section(), TextParameters());
  std::cout << heading("Terminate section");
  for_each_count(file.terminate_section(), TextParameters());
  std::cout << heading(counted(file.num_entities(), "entity", "entities"));
  for (const auto& [kind, count] : entity_counts(file)) {
    std::cout << "  " << kind.first << " form " << kind.second << ' ' << kind_name(kind.first, kind.second) << ": "
              << count << '\n';
  }
  write_text_dropped(std::cout, file);
}

Tally inform(Model& model, Format format, const Paint& paint) {
  model.read();
  model.progress().end();
  if (format == Format::text) complain_of_messages(model);
  format == Format::json ? write_json(model) : write_text(model, paint);
  return tally_of(model);
}

}  // namespace

int run_info(const Options& options) {
  const Paint paint(options.color, STDOUT_FILENO);
  const FilesWork work{
      {[&](Model& model) { return inform(model, options.format, paint); },
       [&](const std::string& name, const std::string& reason) { print_failure(options.format, name, reason); }},
      [](std::FILE* printed) { copy_all(printed, std::cout); }};
  return final_status(work_on_files(options.names, options.jobs, work));
}
