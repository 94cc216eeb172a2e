#pragma once

#include <array>
#include <functional>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fuzz/written_file.h"
#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsFile.h"
#include "igs/input/igsInStream.h"
#include "igs/objects/igsObject.h"
#include "igs/support/kelabsOutput.h"
#include "igs/support/undefined.h"
#include "igs/support/utOstream.h"

/// What tests share: a builder of IGES texts, and small verbs around igsFile.
namespace igs_test {

/// `text` right-justified in `width` columns, cut to them.
inline std::string right(const std::string& text, std::size_t width) {
  return text.size() >= width ? text.substr(0, width) : std::string(width - text.size(), ' ') + text;
}
inline std::string right(int number, std::size_t width) { return right(std::to_string(number), width); }
inline std::string left(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

/// Splits free-format text at its delimiters, Hollerith strings kept whole. Each piece ends with its delimiter.
inline std::vector<std::string> split_fields(const std::string& text, char delimiter) {
  std::vector<std::string> fields(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::string& field = fields.back();
    field += text[i];
    if (text[i] == delimiter) {
      fields.emplace_back();
    } else if (text[i] == 'H' && field.size() > 1 && field.find_first_not_of(" 0123456789") == field.size() - 1) {
      const std::string string = text.substr(i + 1, static_cast<std::size_t>(std::stoull(field)));
      field += string;
      i += string.size();
    }
  }
  return fields;
}

/// Packs free-format text into lines of `width` columns; a field goes to the next line when it does not fit, and is
/// broken only when it is longer than a line.
inline std::vector<std::string> pack_fields(const std::string& text, char delimiter, std::size_t width) {
  std::vector<std::string> lines(1);
  for (std::string field : split_fields(text, delimiter)) {
    if (lines.back().size() + field.size() > width && field.size() <= width) lines.emplace_back();
    while (!field.empty()) {
      const std::size_t room = width - lines.back().size();
      lines.back() += field.substr(0, room);
      field.erase(0, room);
      if (!field.empty()) lines.emplace_back();
    }
  }
  return lines;
}

/// Directory entry fields of an entity, beside those the builder computes.
struct De {
  int structure = 0, line_font = 0, level = 0, view = 0, matrix = 0, label_display = 0;
  std::string status = "00000000";
  int line_weight = 0, colour = 0;
  std::string label = {};
  int subscript = 0;
};

/// Makes the text of an IGES file. Columns, sequence numbers, pointers and counts are right by default; the damaging
/// verbs act on the finished records, in the order of the calls. Sections are named by letter; records and columns
/// count from 1.
class IgesBuilder {
 public:
  /// Replaces the Start lines (by default one line).
  IgesBuilder& start(std::vector<std::string> lines) { return m_start = std::move(lines), *this; }
  /// Global parameter 1 to 25 as it stands in the file: "2HMM", "32", "" for defaulted.
  IgesBuilder& global(std::size_t parameter, std::string text) {
    return m_global.at(parameter - 1) = std::move(text), *this;
  }
  /// Keeps only the first `count` Global parameters.
  IgesBuilder& global_count(std::size_t count) { return m_global.resize(count), *this; }
  /// Other delimiters than "," and ";", for the Global section and for the entities added later.
  IgesBuilder& delimiters(char parameter, char record) {
    m_parameter_delimiter = parameter;
    m_record_delimiter = record;
    return global(1, std::string("1H") + parameter), global(2, std::string("1H") + record);
  }

  /// Adds an entity and returns its DE number. `data`: the fields after the type number, between parameter delimiters,
  /// without the record delimiter.
  int entity(int type, int form, const std::string& data, De de = {}) {
    const std::string fields = std::to_string(type) + (data.empty() ? "" : m_parameter_delimiter + data);
    m_entities.push_back({type, form, fields + m_record_delimiter, std::move(de)});
    return static_cast<int>(2 * m_entities.size() - 1);
  }
  /// Changes all that the Parameter Data records of an entity hold.
  template <class Change>
  IgesBuilder& change_data(int de, Change change) {
    return change(m_entities.at(static_cast<std::size_t>(de - 1) / 2).data), *this;
  }
  /// The commonest entities.
  int line(double x = 1) { return entity(110, 0, "0.,0.,0.," + std::to_string(x) + ",0.,0."); }
  int point(double x = 1) { return entity(116, 0, std::to_string(x) + ",2.,3.,0"); }

  /// Overwrites columns of a record, from column `first` on.
  IgesBuilder& columns(char section, std::size_t record, std::size_t first, std::string text) {
    return edit(section, [=](auto& r) { r.at(record - 1).replace(first - 1, text.size(), text); });
  }
  /// Overwrites Directory Entry field 1 to 20 (8 columns, right-justified) of the entity with this DE number.
  IgesBuilder& de_field(int de, int field, const std::string& text) {
    const std::size_t record = static_cast<std::size_t>(de + (field > 10 ? 1 : 0));
    return columns('D', record, static_cast<std::size_t>((field - 1) % 10 * 8 + 1), right(text, 8));
  }
  IgesBuilder& drop(char section, std::size_t record) {
    return edit(section, [=](auto& r) { r.erase(r.begin() + static_cast<long>(record - 1)); });
  }
  IgesBuilder& duplicate(char section, std::size_t record) {
    return edit(section, [=](auto& r) { r.insert(r.begin() + static_cast<long>(record), r.at(record - 1)); });
  }
  /// Puts a physical line, as it stands, before record `record`.
  IgesBuilder& insert(char section, std::size_t record, std::string text) {
    return edit(section, [=](auto& r) { r.insert(r.begin() + static_cast<long>(record - 1), text); });
  }
  /// Replaces a whole record by a physical line, as it stands.
  IgesBuilder& replace(char section, std::size_t record, std::string text) {
    return edit(section, [=](auto& r) { r.at(record - 1) = text; });
  }
  IgesBuilder& drop_section(char section) {
    return edit(section, [](auto& r) { r.clear(); });
  }
  /// Any other damage to the records of a section.
  IgesBuilder& edit(char section, std::function<void(std::vector<std::string>&)> damage) {
    return m_damages.emplace_back(section, std::move(damage)), *this;
  }
  /// The sections in this order, "SGDPT" by default; a letter may be missing or repeated.
  IgesBuilder& order(std::string sections) { return m_order = std::move(sections), *this; }
  /// What ends a record, "\n" by default.
  IgesBuilder& line_end(std::string end) { return m_line_end = std::move(end), *this; }
  /// Bytes after the last record.
  IgesBuilder& append(const std::string& bytes) { return m_tail += bytes, *this; }

  /// The whole file.
  std::string text() const {
    Records all = lay_out();
    for (const auto& [section, damage] : m_damages) damage(all[index(section)]);
    std::string text;
    for (const char section : m_order) {
      for (const std::string& record : all[index(section)]) text += record + m_line_end;
    }
    return text + m_tail;
  }

 private:
  using Records = std::array<std::vector<std::string>, 5>;  ///< by section, without line ends
  struct Entity {
    int type, form;
    std::string data;
    De de;
  };

  static std::vector<std::string> words(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
  }
  static std::size_t index(char section) { return std::string_view("SGDPT").find(section); }
  static void add(std::vector<std::string>& records, const std::string& data, char section) {
    records.push_back(left(data, 72) + section + right(static_cast<int>(records.size() + 1), 7));
  }

  Records lay_out() const {
    Records records;
    for (const std::string& line : m_start) add(records[0], line, 'S');
    std::string global;
    for (const std::string& parameter : m_global) global += parameter + m_parameter_delimiter;
    global.back() = m_record_delimiter;
    for (const std::string& line : pack_fields(global, m_parameter_delimiter, 72)) add(records[1], line, 'G');
    for (const Entity& entity : m_entities) lay_out(entity, records[2], records[3]);
    std::string counts;
    for (std::size_t i = 0; i < 4; ++i) counts += "SGDP"[i] + right(static_cast<int>(records[i].size()), 7);
    add(records[4], counts, 'T');
    return records;
  }
  void lay_out(const Entity& entity, std::vector<std::string>& directory, std::vector<std::string>& data) const {
    const std::vector<std::string> lines = pack_fields(entity.data, m_parameter_delimiter, 64);
    const De& de = entity.de;
    std::string first, second;
    for (const int number : {entity.type, static_cast<int>(data.size() + 1), de.structure, de.line_font, de.level,
                             de.view, de.matrix, de.label_display}) {
      first += right(number, 8);
    }
    for (const int number : {entity.type, de.line_weight, de.colour, static_cast<int>(lines.size()), entity.form}) {
      second += right(number, 8);
    }
    const int number = static_cast<int>(directory.size() + 1);
    add(directory, first + de.status, 'D');
    add(directory, second + std::string(16, ' ') + right(de.label, 8) + right(de.subscript, 8), 'D');
    for (const std::string& line : lines) add(data, left(line, 65) + right(number, 7), 'P');
  }

  char m_parameter_delimiter = ',';
  char m_record_delimiter = ';';
  std::vector<std::string> m_start{"A file made for a test."};
  std::vector<std::string> m_global = words(
      "1H, 1H; 4Htest 8Htest.igs 5Hmaker 3H1.0 32 38 6 308 15 4Htest 1. 2 2HMM 1 0. 15H20200102.030405 1.D-6 1000. "
      "6Hauthor 3Horg 11 0 15H20200102.030405");
  std::vector<Entity> m_entities;
  std::vector<std::pair<char, std::function<void(std::vector<std::string>&)>>> m_damages;
  std::string m_order = "SGDPT";
  std::string m_line_end = "\n";
  std::string m_tail;
};

/// Reads a text into a file; the result of igsFile::read. `messages` receives what read writes to its report stream.
inline int read_text(igsFile& file, const std::string& text, std::string* messages = nullptr) {
  std::istringstream in(text);
  std::ostringstream report;
  utOstream os(report);
  const int result = file.read(in, os);
  if (messages != nullptr) *messages = report.str();
  return result;
}

/// Reads free-format parameter data, without the type number, into an entity: what read_pd_data answers.
inline int read_fields(igsObject& entity, const std::string& data) {
  IgesBuilder builder;
  builder.entity(110, 0, "");
  builder.order("P").change_data(1, [&data](std::string& text) { text = data + ';'; });
  std::istringstream text(builder.text());
  igsInStream in(text);
  in.reset();  // into the Parameter Data section
  return entity.read_pd_data(in);
}

/// Writes a file to a string; the result of igsFile::write.
inline int write_text(igsFile& file, std::string& text) {
  std::ostringstream out, report;
  utOstream os(report);
  const int result = file.write(out, os);
  text = out.str();
  return result;
}
/// As above, for files that can be written: empty when writing fails.
inline std::string written(igsFile& file) {
  std::string text;
  return write_text(file, text) != 0 ? text : std::string();
}

/// What an object prints.
template <class T>
std::string printed(const T& value) {
  std::ostringstream text;
  utOstream os(text);
  value.print(os);
  return text.str();
}

/// "ClassName de value,value" for an error: the key where it has one, then the values where it carries any.
inline std::string describe(const igsError& error) {
  class Values : public igsErrorValueVisitor {
   public:
    void value(int number) override { next() << number; }
    void value(double number) override { next() << std::setprecision(15) << number; }
    void value(const utString& text) override { next() << text; }
    std::ostringstream text;

   private:
    std::ostream& next() { return text << (text.tellp() == 0 ? ' ' : ','); }
  };
  Values values;
  error.visit_values(values);
  const auto* indexed = dynamic_cast<const igsIndexedError*>(&error);
  const bool has_key = indexed != nullptr && indexed->key() != igs_unset_int;
  return error.objtype().id_string() + (has_key ? " " + std::to_string(indexed->key()) : "") + values.text.str();
}

/// The active errors of a file in log and slot order, as describe() gives them.
inline std::vector<std::string> active_errors(const igsFile& file) {
  std::vector<std::string> errors;
  for (int log = 0; log < igs_num_section_logs; ++log) {
    igsSimpleSectionLogIT it(file.error_log().get_section_log(static_cast<igsLogID>(log)));
    while (++it != 0) errors.push_back(describe(*it()));
  }
  return errors;
}
/// The fixed errors of a file, log by log in fixing order.
inline std::vector<std::string> fixed_errors(const igsFile& file) {
  std::vector<std::string> errors;
  for (int log = 0; log < igs_num_section_logs; ++log) {
    for (const igsError* error : file.error_log().get_section_log(static_cast<igsLogID>(log))->fixed_errors()) {
      errors.push_back(describe(*error));
    }
  }
  return errors;
}

/// Keeps everything that is printed to it.
class RecordingSink : public kelabsOutput {
 public:
  std::string text;
  std::vector<std::string> tags;

 protected:
  void write(const char* tag, const char* message) override {
    tags.emplace_back(tag);
    text += message;
  }
};

using igs_fuzz::column_fault;
using igs_fuzz::number_at;
using igs_fuzz::records_of;

}  // namespace igs_test
