#include "commands/commands.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <optional>
#include <variant>

#include "files/complaints.h"
#include "files/contents.h"
#include "files/jobs.h"
#include "files/sections.h"
#include "report/figures.h"
#include "report/report.h"
#include "text/json_writer.h"
#include "text/text.h"

namespace {

constexpr const char* not_given = "not given";

template <class Visit>
void for_each_count(const igsTerminateSection& terminate, Visit visit) {
  visit("start_lines", terminate.start_lines());
  visit("global_lines", terminate.global_lines());
  visit("directory_lines", terminate.directory_lines());
  visit("parameter_lines", terminate.parameter_lines());
}

/// Writes a member that is null where it is not given.
template <class Value>
void write_member(JsonWriter& json, const std::string& name, const Value& value, bool is_given) {
  json.key(name);
  is_given ? json.value(value) : json.null();
}

void write_json_global(JsonWriter& json, const igsGlobalSection& global) {
  constexpr int units_name = 15, protocol = 26;
  json.begin_object();
  for (const igsGlobalParameter& parameter : global.parameters()) {
    const bool is_given = global.given(parameter.number);
    if (const auto* const units = std::get_if<igsUnits>(&parameter.value)) {
      json.key(parameter.name);
      json.begin_object();
      write_member(json, "type", units->type(), is_given);
      write_member(json, "name", units->name(), global.given(units_name));
      json.end_object();
    } else if (const auto* const text = std::get_if<utString>(&parameter.value)) {
      write_member(json, parameter.name, *text, is_given);
    } else if (const auto* const real = std::get_if<double>(&parameter.value)) {
      write_member(json, parameter.name, *real, is_given);
    } else {
      write_member(json, parameter.name, std::get<int>(parameter.value), is_given);
    }
  }
  write_member(json, "application_protocol", global.application_protocol(), global.given(protocol));
  json.key("extra_fields");
  json.begin_array();
  for (const std::string_view field : global.extra_fields().fields()) json.value(field);
  json.end_array();
  json.end_object();
}

void write_json_contents(JsonWriter& json, const igsFile& file) {
  const EntityCounts counts(file);
  json.key("levels");
  json.begin_array();
  for (const LevelUse& level : levels_of(file)) {
    json.begin_object();
    json.member("level", level.level);
    write_member(json, "name", level.name.value_or(""), level.name.has_value());
    json.member("entities", level.entities);
    json.end_object();
  }
  json.end_array();
  json.key("entity_counts");
  json.begin_array();
  for (const auto& [kind, count] : counts.all) {
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

void write_json(std::ostream& out, const Model& model, const igsShapeFigures* figures) {
  const igsFile& file = model.file();
  JsonWriter json(out);
  json.begin_object();
  write_json_counts(json, model, FileFindings(model, model.name()));
  json.key("start");
  json.begin_array();
  for (const std::string& line : start_lines(file.start_section())) json.value(line);
  json.end_array();
  json.key("global");
  write_json_global(json, file.global_section());
  json.key("terminate");
  json.begin_object();
  for_each_count(file.terminate_section(),
                 [&json](const char* name, int lines) { write_member(json, name, lines, lines != igs_unset_int); });
  json.end_object();
  write_json_contents(json, file);
  if (figures != nullptr) {
    json.key("geometry");
    write_json_figures(json, *figures);
  }
  json.end_object();
  out << '\n';
}

std::string quoted(const std::string& text) { return '"' + printable(text) + '"'; }

/// The Global parameters in words.
class GlobalTexts {
 public:
  explicit GlobalTexts(const igsFile& file) : m_file(file), m_global(file.global_section()) {}

  std::string units() const {
    const std::optional<igsUnitType> flag = sound_units(m_global);
    if (!m_global.given(14) && !m_global.given(15)) return not_given;
    return (flag ? unit_name(*flag) : "in doubt") + " (flag " + number(14, m_global.units().type()) + ", name " +
           text(15, m_global.units().name()) + name_in_file() + ')';
  }
  /// Empty for a scale of 1.
  std::string scale() const {
    const double scale = m_global.model_space_scale();
    if (!m_global.given(13) || scale == 1) return "";
    const bool is_sound = std::isfinite(scale) && scale > 0;
    return format_real(scale) + (is_sound ? " (1 in the file stands for " + format_real(1 / scale) + ')' : "");
  }
  std::string date(int parameter, const igsDate& date) const {
    utDateTime parts{};
    if (!m_global.given(parameter)) return not_given;
    if (date.check() == 0 || igsDate::decode_date_string(date.date_string(), parts) == 0) {
      return quoted(date.date_string()) + ", which is no date";
    }
    std::array<char, 80> written{};
    std::snprintf(written.data(), written.size(), "%04d-%02d-%02d %02d:%02d:%02d", parts.year, parts.month, parts.day,
                  parts.hour, parts.minute, parts.second);
    return written.data();
  }
  std::string version() const {
    const int flag = m_global.iges_version();
    if (!m_global.given(23)) return not_given;
    return (igsInfoDB::version_exists(flag) ? igsInfoDB::version_name(flag) + " (flag " : "unknown (flag ") +
           std::to_string(flag) + ')';
  }
  /// What reals of one precision can hold, by two parameters.
  std::string precision(int parameter, int power, int digits) const {
    if (!m_global.given(parameter) && !m_global.given(parameter + 1)) return not_given;
    return (m_global.given(parameter) ? "up to 10^" + std::to_string(power) : "largest power not given") +
           (m_global.given(parameter + 1) ? ", " + std::to_string(digits) + " digits" : ", digits not given");
  }
  std::string text(int parameter, const std::string& value) const {
    return m_global.given(parameter) ? quoted(value) : not_given;
  }
  std::string number(int parameter, int value) const {
    return m_global.given(parameter) ? std::to_string(value) : not_given;
  }
  std::string number(int parameter, double value) const {
    return m_global.given(parameter) ? format_real(value) : not_given;
  }

 private:
  /// The name as it stands in the file, where another was understood.
  std::string name_in_file() const {
    std::string found;
    for_each_active_error(m_file.error_log(), [&found](igsLogID, const igsError& error) {
      if (error.isa(igsGlobalSectionReadUnitsName::type())) {
        found = " as read from " + quoted(static_cast<const igsGlobalSectionReadUnitsName&>(error).value<0>());
      }
    });
    return found;
  }

  const igsFile& m_file;
  const igsGlobalSection& m_global;
};

/// Writes one screen about a file.
class TextInfo {
 public:
  /// `figures`: null where it is not measured.
  TextInfo(std::ostream& out, const Paint& paint, const Model& model, const igsShapeFigures* figures)
      : m_out(out), m_paint(paint), m_model(model), m_file(model.file()), m_figures(figures), m_texts(m_file) {}

  void write() {
    heading(printable(m_model.name()));
    write_first_parameters();
    write_figures();
    write_levels();
    write_entities();
    write_other_parameters();
    write_sections();
  }

 private:
  void heading(const std::string& text) { m_out << m_paint(Ink::heading, text + ':') << '\n'; }
  void line(const std::string& name, const std::string& text) { m_out << "  " << name << ": " << text << '\n'; }

  /// What a list of `size` has beyond most_listed, which JSON has all.
  void write_left_out(std::size_t size) {
    if (size > most_listed) m_out << "  (" << size - most_listed << " more)\n";
  }

  void write_first_parameters() {
    const igsGlobalSection& global = m_file.global_section();
    line("units", m_texts.units());
    if (const std::string scale = m_texts.scale(); !scale.empty()) line("model space scale", scale);
    const utString& product = global.product_id_from_sending_system();
    line("product", m_texts.text(3, product));
    const utString& for_receiver = global.product_id_for_receiving_system();
    if (global.given(12) && for_receiver != product) line("product for receiver", quoted(for_receiver));
    line("file name", m_texts.text(4, global.file_name()));
    line("system", m_texts.text(5, global.system_id()));
    line("created", m_texts.date(18, global.file_creation_date()));
    line("model modified", m_texts.date(25, global.file_modification_date()));
    line("IGES version", m_texts.version());
    line("largest coordinate", m_texts.number(20, global.max_coord_value()));
    line("resolution", m_texts.number(19, global.minimum_resolution()));
  }

  void write_figures() {
    if (m_figures == nullptr) return;
    heading("geometry");
    write_text_figures(m_out, *m_figures, m_file);
  }

  void write_levels() {
    const std::vector<LevelUse> levels = levels_of(m_file);
    if (levels.empty()) return;
    heading(counted(static_cast<long long>(levels.size()), "level", "levels"));
    for (std::size_t i = 0; i < std::min(levels.size(), most_listed); ++i) {
      const std::string name = levels[i].name ? ' ' + quoted(*levels[i].name) : "";
      line(std::to_string(levels[i].level) + name, counted(levels[i].entities, "entity", "entities"));
    }
    write_left_out(levels.size());
  }

  void write_entities() {
    const EntityCounts counts(m_file);
    heading(counted(m_file.num_entities(), "entity", "entities"));
    for (const auto& [kind, count] : counts.all) {
      const std::string name = kind_name(kind.first, kind.second);
      line(std::to_string(kind.first) + " form " + std::to_string(kind.second) + (name.empty() ? "" : " ") + name,
           std::to_string(count) + (counts.kept.contains(kind) ? ", kept as texts" : ""));
    }
    write_text_dropped(m_out, m_file);
  }

  void write_other_parameters() {
    const igsGlobalSection& global = m_file.global_section();
    heading("other Global parameters");
    line("delimiters", std::string(1, global.parameter_delimiter()) + ' ' + global.record_delimiter());
    line("preprocessor version", m_texts.text(6, global.preprocessor_version()));
    line("author", m_texts.text(21, global.name_of_author()));
    line("organization", m_texts.text(22, global.authors_organization()));
    line("bits of an integer", m_texts.number(7, global.binary_bits_for_int()));
    line("single precision", m_texts.precision(8, global.sp_max_pow10(), global.sp_sig_digs()));
    line("double precision", m_texts.precision(10, global.dp_max_pow10(), global.dp_sig_digs()));
    line("line weights", m_texts.number(16, global.max_number_of_line_weights()));
    line("widest line", m_texts.number(17, global.width_of_max_line_weight()));
    line("drafting standard", m_texts.number(24, global.drafting_standard()));
    line("application protocol", m_texts.text(26, global.application_protocol()));
    const std::vector<std::string_view> extra = global.extra_fields().fields();
    std::string further;  // the protocol is shown already
    for (std::size_t i = global.given(26) && extra.size() == 1 ? 1 : 0; i < extra.size(); ++i) {
      further += (i == 0 ? "" : " ") + printable(extra[i]);
    }
    if (!further.empty()) line("fields beyond the last parameter", further);
  }

  void write_sections() {
    heading("Start section");
    const std::vector<std::string> lines = start_lines(m_file.start_section());
    for (std::size_t i = 0; i < std::min(lines.size(), most_listed); ++i) {
      m_out << "  " << printable(lines[i].substr(0, lines[i].find_last_not_of(' ') + 1)) << '\n';
    }
    write_left_out(lines.size());
    heading("lines by the Terminate section");
    std::string all;
    for_each_count(m_file.terminate_section(), [&all](const std::string& name, int lines) {
      all += (all.empty() ? "  " : ", ") + name.substr(0, name.find('_')) + ' ' +
             (lines == igs_unset_int ? not_given : std::to_string(lines));
    });
    m_out << all << '\n';
  }

  static constexpr std::size_t most_listed = 20;

  std::ostream& m_out;
  const Paint& m_paint;
  const Model& m_model;
  const igsFile& m_file;
  const igsShapeFigures* m_figures;
  GlobalTexts m_texts;
};

Tally inform(Model& model, const Options& options, const Paint& paint, const Streams& streams) {
  model.set_options(options_to_show());
  model.read(streams.err);
  std::optional<igsShapeFigures> measured;
  if (options.has_geometry) {
    model.progress().stage("measuring");
    // Several files are worked on at a time instead.
    measured = igs_measure(model.file(), options.names.size() == 1 ? static_cast<int>(options.jobs) : 1);
  }
  model.progress().end();
  const igsShapeFigures* const figures = measured ? &*measured : nullptr;
  if (options.format == Format::text) complain_of_messages(streams.err, model);
  options.format == Format::json ? write_json(streams.out, model, figures)
                                 : TextInfo(streams.out, paint, model, figures).write();
  return tally_of(model, streams);
}

}  // namespace

int run_info(const Options& options) {
  const Paint paint(options.color, STDOUT_FILENO);
  FilesWork work;
  work.handle = [&](Model& model, const Streams& streams) { return inform(model, options, paint, streams); };
  work.failure = [&](const std::string& name, const std::string& reason, const Streams& streams) {
    print_failure(streams.out, options.format, name, reason);
  };
  return final_status(work_on_files(options.names, options.jobs, work));
}
