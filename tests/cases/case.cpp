#include "cases/case.h"

#include <filesystem>
#include <fstream>
#include <regex>

namespace igs_test {
namespace {

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::string unescaped(std::string text) {
  for (std::size_t at = 0; (at = text.find('\\', at)) != std::string::npos; ++at) {
    const std::size_t known = std::string_view("nrt0Z\\").find(text.at(at + 1));
    text.replace(at, 2, 1, std::string_view("\n\r\t\0\x1A\\", 6).at(known));
  }
  return text;
}

/// Splits `text` at `separator`, where no quotation marks are open, and trims the parts; empty parts are left out.
Strings split_items(const std::string& text, char separator) {
  Strings items(1);
  bool quoted = false;
  for (const char c : text) {
    quoted = quoted != (c == '"');
    if (c == separator && !quoted) {
      items.emplace_back();
    } else {
      items.back() += c;
    }
  }
  for (std::string& item : items) {
    item = unescaped(trimmed(item));
    std::erase(item, '"');
  }
  std::erase(items, "");
  return items;
}

/// The fields of free-format text, without delimiters and without blanks around them.
Strings fields_of(const std::string& text) {
  Strings fields;
  for (std::string& piece : split_fields(text, ',')) {
    if (!piece.empty() && piece.back() == ',') piece.pop_back();
    const std::size_t h = piece.find('H');
    const unsigned long long string_end = h == std::string::npos ? 0 : h + 1 + std::stoull(piece);
    const auto string = static_cast<std::size_t>(std::min<unsigned long long>(string_end, piece.size()));
    const std::size_t end = piece.find(';', string);
    piece.erase(std::min(end, piece.size()));
    fields.push_back(string == 0 ? trimmed(piece) : piece.substr(piece.find_first_not_of(' ')));
    if (end != std::string::npos) break;
  }
  return fields;
}

std::size_t number(const std::string& text) { return static_cast<std::size_t>(std::stoul(text)); }

/// Puts `value` in the place of fields `first` to `last` (counted from 1, the type number being 0) of the data.
void replace_fields(std::string& data, std::size_t first, std::size_t last, const std::string& value) {
  Strings fields = fields_of(data);
  if (fields.size() <= first) fields.resize(first + 1);
  fields.erase(fields.begin() + static_cast<long>(first),
               fields.begin() + static_cast<long>(std::min(last, fields.size() - 1) + 1));
  fields.insert(fields.begin() + static_cast<long>(first), value);
  data = joined(fields, ",") + ';';
}

/// Adds an entity, "126 3,2,..." or "106:12 ...", or puts it in the place of DE `de`, and returns its DE number.
int put_entity(IgesBuilder& file, const std::string& text, const std::string& de = "") {
  static const std::regex pattern(R"((-?\d+)(?::(-?\d+))? ?(.*))");
  std::smatch found;
  if (!std::regex_match(text, found, pattern)) throw std::runtime_error("no entity: " + text);
  const std::string type = found[1], form = found[2].matched ? found[2].str() : "0";
  if (de.empty()) return file.entity(std::stoi(type), std::stoi(form), found[3]);
  for (const int field : {1, 11}) file.de_field(std::stoi(de), field, type);
  file.de_field(std::stoi(de), 15, form);
  file.change_data(std::stoi(de), [&](std::string& data) { data = type + ',' + found[3].str() + ';'; });
  return std::stoi(de);
}

/// Changes what the file says; false when `change` is of another kind. `subject`: the entity meant where none is given.
bool change_content(IgesBuilder& file, const std::string& change, int subject) {
  static const std::regex value(R"((?:(\d+)\.)?([dg]?)(\d+)(?:(\.\.)(\d*))?=([^]*))");
  std::smatch found;
  if (change[0] == '+') return put_entity(file, change.substr(1)), true;
  if (change.rfind("start=", 0) == 0) return file.start(split_items(change.substr(6), '|')), true;
  if (!std::regex_match(change, found, value)) return false;
  const int de = found[1].matched ? std::stoi(found[1]) : subject;
  const std::size_t first = number(found[3]);
  const std::size_t last = !found[4].matched ? first : found[5].length() == 0 ? std::string::npos : number(found[5]);
  if (found[2] == "d") return file.de_field(de, std::stoi(found[3]), found[6]), true;
  if (found[2] == "g") return file.global(first, found[6]), true;
  file.change_data(de, [&](std::string& data) { replace_fields(data, first, last, found[6]); });
  return true;
}

/// Changes the records of the finished text.
void damage_file(IgesBuilder& file, const std::string& damage) {
  static const std::regex whole(R"((order|end|tail|drop)=([^]*))"),
      record(R"(([SGDPT])(\d+)(?:@(\d+))?([=<*!-])([^]*))");
  std::smatch found;
  if (std::regex_match(damage, found, whole)) {
    if (found[1] == "order") file.order(found[2]);
    if (found[1] == "end") file.line_end(found[2]);
    if (found[1] == "tail") file.append(found[2]);
    if (found[1] == "drop") file.drop_section(*found[2].first);
    return;
  }
  if (!std::regex_match(damage, found, record)) throw std::runtime_error("no change: " + damage);
  const char section = *found[1].first, verb = *found[4].first;
  const std::size_t at = number(found[2]);
  if (verb == '<') file.insert(section, at, found[5]);
  if (verb == '-') file.drop(section, at);
  if (verb == '*') file.duplicate(section, at);
  if (verb == '=' && found[3].matched) file.columns(section, at, number(found[3]), found[5]);
  if (verb == '=' && !found[3].matched) file.replace(section, at, found[5]);
  if (verb == '!') {  // a character is lost
    const std::size_t column = number(found[5]);
    file.edit(section, [=](Strings& records) { records.at(at - 1).erase(column - 1, 1); });
  }
}

std::string group_of(const std::string& heading) { return heading.substr(1, heading.find(']') - 1); }

/// One case file, line by line.
class Parser {
 public:
  explicit Parser(CaseName name) : m_name(std::move(name)) {}

  CaseGroup parse(std::istream& in) {
    int number = 0;
    for (std::string line, next; std::getline(in, line);) {
      m_where = m_name.file + ':' + std::to_string(++number);
      while (!line.empty() && line.back() == '\\' && std::getline(in, next)) {
        line.pop_back();
        line += trimmed(next);
        ++number;
      }
      m_line = trimmed(line);
      if (m_line.empty() || m_line[0] == '#') continue;
      if (m_line[0] == '[')
        begin_group();
      else if (m_is_wanted || m_line.starts_with("let "))
        try_to_take();
    }
    return std::move(m_group);
  }

 private:
  void begin_group() {
    m_is_wanted = group_of(m_line) == m_name.group;
    if (m_group.subject == 0) m_group.subject = m_next_de;
  }

  void try_to_take() {
    try {
      take(expanded(m_line));
    } catch (const std::exception& error) {
      throw std::runtime_error(m_where + ": " + error.what() + ": " + m_line);
    }
  }

  void take(const std::string& line) {
    static const std::regex let(R"(let (\w+) = (.*))"), set(R"(set (\w+) (.*))"), entities(R"(([\d ]+): (.*))"),
        print(R"(print (\d+) (.*))");
    std::smatch found;
    if (std::regex_match(line, found, let)) {
      m_texts[found[1]] = found[2];
    } else if (std::regex_match(line, found, entities)) {
      for (const std::string& de : split_items(found[1], ' ')) {
        if (put_entity(m_content, found[2]) != std::stoi(de)) throw std::runtime_error("another DE number");
        m_next_de += 2;
      }
    } else if (m_group.subject == 0) {
      throw std::runtime_error("stands in no group");
    } else if (std::regex_match(line, found, set)) {
      m_settings.emplace_back(found[1], found[2]);
    } else if (std::regex_match(line, found, print)) {
      const IgesBuilder& file = m_group.cases.empty() ? m_content : m_group.cases.back().damaged;
      m_group.prints.push_back({file.text(), std::stoi(found[1]), unescaped(found[2])});
    } else {
      take_case(line);
    }
  }

  void take_case(const std::string& line) {
    const std::size_t colon = line.find(':'), arrow = line.find(" ->"), then = line.find("=>", arrow);
    if (arrow == std::string::npos || colon > arrow) throw std::runtime_error("neither a case nor anything else");
    const std::string changes = line.substr(colon + 1, arrow - colon - 1),
                      errors = line.substr(arrow + 3, std::min(then, line.size()) - arrow - 3),
                      outcomes = then == std::string::npos ? "" : line.substr(then + 2);
    for (std::size_t begin = 0, bar = 0; bar != std::string::npos; begin = bar + 2) {
      bar = changes.find(" | ", begin);
      add_case(changes.substr(begin, bar - begin), errors, outcomes);
    }
  }

  void add_case(const std::string& changes, const std::string& errors, const std::string& outcomes) {
    static const std::regex setting(R"((kel\w+)=(.*))");
    Case result{m_where, m_line + "\n  with: " + changes, m_content, {}, {}, m_settings};
    Strings damages;
    std::smatch pair;
    for (const std::string& change : split_items(changes, ' ')) {
      if (std::regex_match(change, pair, setting)) {
        result.settings.emplace_back(pair[1], pair[2]);
      } else if (!change_content(result.sound, change, m_group.subject)) {
        damages.push_back(change);
      }
    }
    result.damaged = result.expected = result.sound;
    for (const std::string& damage : damages) damage_file(result.damaged, damage);
    result.errors = split_items(errors, ';');
    for (const std::string& item : split_items(outcomes, ';')) take_outcome(result, item);
    m_group.cases.push_back(std::move(result));
  }

  void take_outcome(Case& result, const std::string& item) const {
    static const std::regex message("(left|says) .*"), gone(R"((\d+) gone)"), replaced(R"((\d+): (.*))");
    std::smatch found;
    if (std::regex_match(item, message)) {
      result.messages.push_back(item);
    } else if (std::regex_match(item, found, gone)) {
      result.gone.insert(std::stoi(found[1]));
    } else if (std::regex_match(item, found, replaced)) {
      put_entity(result.expected, found[2], found[1]);
    } else if (!change_content(result.expected, item, m_group.subject)) {
      throw std::runtime_error("no change: " + item);
    }
  }

  /// "{name}" stands for a text, "{3*1.}" for three times "1." between commas, "{-}" for the real that says unset.
  std::string expanded(std::string line) const {
    static const std::regex pattern(R"(\{(?:(\d+)\*([^{}]*)|(\w+)|([-+]))\})");
    for (std::smatch found; std::regex_search(line, found, pattern);) {
      std::string text;
      if (found[1].matched) text = joined(Strings(number(found[1]), found[2]), ",");
      if (found[3].matched) text = m_texts.at(found[3]);
      if (found[4].matched) text = found[4].str() + "1.7976931348623157D+308";
      line.replace(static_cast<std::size_t>(found.position()), static_cast<std::size_t>(found.length()), text);
    }
    return line;
  }

  CaseName m_name;
  std::string m_where, m_line;
  CaseGroup m_group;        ///< its subject is 0 before the first group
  bool m_is_wanted = true;  ///< whether lines are those of the group, or of all groups
  IgesBuilder m_content;
  int m_next_de = 1;
  std::map<std::string, std::string> m_texts{
      {"null", "= {|\\t(NullPointer)|}"},
      {"list", "= {|\\t(0) = {|\\t\\t(NullPointer)|\\t}|}"},
      {"lost", "says Warning : There is no Parameter Data associated with object DE"}};
  std::vector<std::pair<std::string, std::string>> m_settings;
};

}  // namespace

std::string joined(const Strings& items, const std::string& separator) {
  std::string text;
  for (std::size_t i = 0; i < items.size(); ++i) text += (i == 0 ? "" : separator) + items[i];
  return text;
}

Content content_of(const std::string& text, const std::set<int>& gone, bool is_written) {
  Content content;
  const auto add = [&content](const std::string& prefix, const Strings& fields, std::size_t first) {
    for (const std::string& field : fields) content[prefix + std::to_string(first++)] = field;
  };
  std::string global;
  for (const std::string& record : records_of(text, 'G')) global += record.substr(0, 72);
  add("g", fields_of(global), 1);
  std::map<int, std::string> data;
  for (const std::string& record : records_of(text, 'P')) data[number_at(record, 66, 7)] += record.substr(0, 64);
  const Strings directory = records_of(text, 'D');
  for (int de = 1, of_case = 1; static_cast<std::size_t>(de) < directory.size(); de += 2, of_case += 2) {
    while (is_written && gone.contains(of_case)) of_case += 2;
    if (gone.contains(of_case)) continue;
    const std::string prefix = std::to_string(of_case) + '.';
    add(prefix, fields_of(data[de]), 0);
    for (const int field : {1, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 15, 18, 19}) {
      const std::string& record = directory[static_cast<std::size_t>(de - (field < 11 ? 1 : 0))];
      content[prefix + 'd' + std::to_string(field)] =
          trimmed(record.substr(static_cast<std::size_t>(field - 1) % 10 * 8, 8));
    }
  }
  return content;
}

std::vector<CaseName> all_cases() {
  std::vector<CaseName> names;
  std::set<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(IGS_CASES)) {
    if (entry.path().extension() == ".case") files.insert(entry.path());
  }
  for (const auto& path : files) {
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
      if (line[0] == '[') names.push_back({path.filename().string(), group_of(line)});
    }
  }
  return names;
}

CaseGroup case_group(const CaseName& name) {
  std::ifstream in(std::filesystem::path(IGS_CASES) / name.file);
  CaseGroup group = Parser(name).parse(in);
  group.prefix = "igs" + name.group.substr(0, name.group.find(' '));
  return group;
}

}  // namespace igs_test
