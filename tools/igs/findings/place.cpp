#include "findings/place.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "explain/texts.h"

namespace {

/// The structure errors that are about the parameter data.
constexpr std::array about_parameter_data{
    std::string_view("igsFilePDEntityTypeMismatch"), std::string_view("igsFilePDNullCharacters"),
    std::string_view("igsFileCorruptObjectData"),    std::string_view("igsFilePrematureObjectEnd"),
    std::string_view("igsFileObjectExtraData"),      std::string_view("igsFileFieldNotNumber"),
    std::string_view("igsFileUnreadData"),           std::string_view("igsFileNoRecordDelimiter"),
    std::string_view("igsFileWrongStringCount"),     std::string_view("igsFileColumn65")};

bool is_about_parameter_data(igsLogID log, std::string_view class_name) {
  if (log == igsObjectLog) return !class_name.starts_with("igsDE");
  return std::find(about_parameter_data.begin(), about_parameter_data.end(), class_name) != about_parameter_data.end();
}

/// The first value of an error, where that is a whole number.
class FirstNumber : public igsErrorValueVisitor {
 public:
  void value(int number) override {
    if (m_is_first) first = number;
    m_is_first = false;
  }
  void value(double /*number*/) override { m_is_first = false; }
  void value(const utString& /*text*/) override { m_is_first = false; }
  int first = 0;

 private:
  bool m_is_first = true;
};

igsFileSection section_of(igsLogID log) {
  if (log == igsGlobalLog) return igsGlobalSectionId;
  return log == igsTerminateLog ? igsTerminateSectionId : igsStartSectionId;
}

/// Where a directory entry that is not there should begin: behind the next one before it that is.
int line_before(const igsFile& file, int de) {
  constexpr int most_steps = 100;
  for (int other = de - 2; other > 0 && other > de - 2 * most_steps; other -= 2) {
    if (const int line = file.lines(other).directory_entry; line > 0) return line + 2;
  }
  return file.section_line(igsDirectorySectionId);
}

int first_known(std::initializer_list<int> lines) {
  for (const int line : lines) {
    if (line > 0) return line;
  }
  return 1;
}

}  // namespace

// Its sentence names it.
int global_parameter(const igsError& error) {
  constexpr std::string_view begin = "parameter ";
  const ErrorText* const text = find_error_text(error.objtype().name());
  if (text == nullptr || !text->sentence.starts_with(begin)) return 0;
  const std::string_view rest = std::string_view(text->sentence).substr(begin.size());
  if (rest.starts_with("{0}")) {
    FirstNumber number;
    error.visit_values(number);
    return number.first;
  }
  int number = 0;
  std::from_chars(rest.data(), rest.data() + rest.size(), number);
  return number;
}

int line_of(const igsFile& file, igsLogID log, const igsError& error) {
  const std::string_view name = error.objtype().name();
  if (const std::optional<int> de = de_number(error)) {
    const igsEntityLines lines = file.lines(*de);
    const int first = is_about_parameter_data(log, name) ? lines.parameter_data : lines.directory_entry;
    return first_known({first, lines.directory_entry, line_before(file, *de)});
  }
  // What is missing is missing behind the last record; most records are a line.
  if (error.isa(igsFileMissingSection::type()) || error.isa(igsFileReadEnded::type())) {
    return first_known({file.read_fault().records_before});
  }
  // Those of the file as a whole are among the errors of the Terminate section.
  const igsFileSection section = name.starts_with("igsFile") ? igsStartSectionId : section_of(log);
  const int parameter = log == igsGlobalLog ? file.global_line(global_parameter(error)) : 0;
  return first_known({parameter, file.section_line(section)});
}

std::string place_of_entity(int de, std::optional<int> type) {
  std::string number = "DE " + std::to_string(de);
  if (!type) return number;
  const utString& name = igsInfoDB::entity_name(*type);
  return std::to_string(*type) + (name.empty() ? "" : ' ' + name) + " (" + number + ')';
}

std::string places_of_entities(const std::vector<int>& des) {
  constexpr std::size_t most_listed = 20;
  std::string text;
  for (std::size_t i = 0; i < std::min(des.size(), most_listed); ++i) {
    text += (i == 0 ? "DE " : ", DE ") + std::to_string(des[i]);
  }
  return des.size() > most_listed ? text + " and " + std::to_string(des.size() - most_listed) + " more" : text;
}

std::string place_of(igsLogID log, const igsError& error, const EntityTypes& types) {
  if (const std::optional<int> de = de_number(error)) return place_of_entity(*de, types.at(*de));
  if (log == igsGlobalLog) return "Global section";
  if (log == igsStartLog) return "Start section";
  return log == igsTerminateLog && !std::string_view(error.objtype().name()).starts_with("igsFile")
             ? "Terminate section"
             : "file";
}
