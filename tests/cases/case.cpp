#include "cases/case.h"

#include <cfloat>
#include <filesystem>
#include <fstream>
#include <regex>

namespace igs_test {
namespace {

std::string trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::string joined(const std::vector<std::string>& fields) {
  std::string text;
  for (std::size_t i = 0; i < fields.size(); ++i) text += (i == 0 ? "" : ",") + fields[i];
  return text;
}

/// Fields between delimiters, without these and without blanks around them.
std::vector<std::string> fields_of(const std::string& text, char delimiter, char end) {
  std::vector<std::string> fields;
  for (std::string& piece : split_fields(text, delimiter)) {
    const bool is_string = piece.find('H') != std::string::npos;
    if (!piece.empty() && piece.back() == delimiter) piece.pop_back();
    const std::size_t last = is_string ? std::string::npos : piece.find(end);
    fields.push_back(trimmed(piece.substr(0, last)));
    if (last != std::string::npos) break;
  }
  std::string& last = fields.back();
  const std::size_t close = last.rfind(end);
  if (close != std::string::npos && trimmed(last.substr(close + 1)).empty()) last.erase(close);
  return fields;
}

std::size_t number(const std::string& text) { return static_cast<std::size_t>(std::stoul(text)); }

/// An entity as a case gives it: "126 3,2,..." or "106:12 ...".
const std::regex entity_pattern(R"((-?\d+)(?::(-?\d+))? ?(.*))");

int add_entity(IgesBuilder& builder, const std::string& text) {
  std::smatch found;
  if (!std::regex_match(text, found, entity_pattern)) throw std::runtime_error("no entity: " + text);
  return builder.entity(std::stoi(found[1]), found[2].matched ? std::stoi(found[2]) : 0, found[3]);
}

/// Changes that are made to the records of the finished text.
bool damage_record(IgesBuilder& builder, const std::string& change) {
  static const std::regex pattern(R"(([SGDPT])(\d+)(?:@(\d+))?([=<*!-])([^]*))");
  std::smatch found;
  if (!std::regex_match(change, found, pattern)) return false;
  const char section = *found[1].first, verb = *found[4].first;
  const std::size_t record = number(found[2]);
  if (verb == '<') builder.insert(section, record, found[5]);
  if (verb == '-') builder.drop(section, record);
  if (verb == '*') builder.duplicate(section, record);
  if (verb == '=' && found[3].matched) builder.columns(section, record, number(found[3]), found[5]);
  if (verb == '=' && !found[3].matched) builder.replace(section, record, found[5]);
  if (verb == '!') {  // a character is lost
    const std::size_t column = number(found[5]);
    builder.edit(section, [=](std::vector<std::string>& records) { records.at(record - 1).erase(column - 1, 1); });
  }
  return true;
}

bool damage_file(IgesBuilder& builder, const std::string& change) {
  const std::size_t equals = change.find('=');
  const std::string key = change.substr(0, equals),
                    value = equals == std::string::npos ? "" : change.substr(equals + 1);
  if (key == "order") return builder.order(value), true;
  if (key == "end") return builder.line_end(value), true;
  if (key == "tail") return builder.append(value), true;
  if (key == "drop") return builder.drop_section(value.at(0)), true;
  return damage_record(builder, change);
}

std::string unescaped(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char next = text[++i];
    const std::size_t known = std::string_view("nrt0Z").find(next);
    result += known != std::string_view::npos ? "\n\r\t\0\x1A"[known] : next;
  }
  return result;
}

/// One case file, line by line.
class Parser {
 public:
  Parser(std::string file, std::vector<CaseGroup>& groups) : m_file(std::move(file)), m_groups(groups) {}

  void parse(std::istream& in) {
    int number = 0;
    for (std::string line, next; std::getline(in, line);) {
      m_where = m_file + ':' + std::to_string(++number);
      while (!line.empty() && line.back() == '\\' && std::getline(in, next)) {
        line.pop_back();
        line += trimmed(next);
        ++number;
      }
      m_line = trimmed(line);
      if (m_line.empty() || m_line[0] == '#') continue;
      try {
        take(expanded(m_line));
      } catch (const std::exception& error) {
        throw std::runtime_error(m_where + ": " + error.what() + ": " + m_line);
      }
    }
  }

 private:
  void take(const std::string& line) {
    static const std::regex let(R"(let (\w+) = (.*))"), set(R"(set (\w+) (.*))"), entity(R"((\d+): (.*))"),
        print(R"(print (\d+) (.*))"), prefix(R"(prefix (\w+))"), group(R"(\[(\S+)(.*)\])");
    std::smatch found;
    if (std::regex_match(line, found, group)) {
      m_groups.push_back(
          {m_file, std::string(found[1]) + std::string(found[2]), {}, {}, "igs" + std::string(found[1])});
      if (m_subject == 0) m_common = m_content, m_subject = m_next_de;
      m_groups.back().subject = m_next_de = m_subject;
      m_content = m_common;
      m_settings.clear();
    } else if (std::regex_match(line, found, let)) {
      m_texts[found[1]] = found[2];
    } else if (std::regex_match(line, found, entity)) {
      if (add_entity(m_content, found[2]) != std::stoi(found[1])) throw std::runtime_error("another DE number");
      m_next_de += 2;
    } else if (m_subject == 0) {
      throw std::runtime_error("stands in no group");
    } else if (std::regex_match(line, found, set)) {
      m_settings.emplace_back(found[1], found[2]);
    } else if (std::regex_match(line, found, prefix)) {
      m_groups.back().prefix = found[1];
    } else if (std::regex_match(line, found, print)) {
      m_groups.back().prints[std::stoi(found[1])] = unescaped(found[2]);
    } else {
      take_case(line);
    }
  }

  void take_case(const std::string& line) {
    static const std::regex pattern(R"(([^]*?):( [^]*?)? ->([^]*?)(=>[^]*)?)");
    std::smatch found;
    if (!std::regex_match(line, found, pattern)) throw std::runtime_error("neither a case nor anything else");
    Case result{m_where, m_line, m_content, m_content, m_settings};
    std::vector<std::string> damages;
    for (const std::string& change : split_items(found[2], " ")) {
      if (!change_fields(result, change)) damages.push_back(change);
    }
    result.damaged = result.sound;
    for (const std::string& damage : damages) {
      if (!damage_file(result.damaged, damage)) throw std::runtime_error("no change: " + damage);
    }
    for (const std::string& item : split_items(found[3], ";")) {
      if (item.rfind("read ", 0) == 0) {
        result.read = std::stoi(item.substr(5));
      } else if (item.rfind("entities ", 0) == 0) {
        result.entities = std::stoi(item.substr(9));
      } else {
        // "?" is no error, so that the case fails and says what there is.
        result.errors.push_back(item == "?" ? ExpectedError{item, "?"} : expected_error(item, m_groups.back()));
      }
    }
    if (found[4].matched) result.after = split_items(found[4].str().substr(2), ";");
    m_groups.back().cases.push_back(std::move(result));
  }

  /// Changes of content that the case starts with.
  bool change_fields(Case& result, const std::string& change) const {
    static const std::regex field(R"((?:(\d+)\.)?(\d+)(\.\.(\d*))?=([^]*))"), entry(R"((?:(\d+)\.)?d(\d+)=([^]*))"),
        form(R"((?:(\d+)\.)?form=(.*))"), data(R"((?:(\d+)\.)?data=([^]*))"), global(R"(g(\d+)=([^]*))"),
        count(R"(gcount=(\d+))"), start(R"(start=([^]*))"), added(R"(\+([^]*))"), setting(R"((kel\w+)=(.*))");
    IgesBuilder& file = result.sound;
    std::smatch found;
    const auto de = [&] { return found[1].matched ? std::stoi(found[1]) : m_subject; };
    if (std::regex_match(change, found, field)) {
      const std::size_t first = number(found[2]);
      const std::size_t last = !found[3].matched        ? first
                               : found[4].str().empty() ? std::string::npos
                                                        : number(found[4]);
      file.change_data(de(), [&](std::string& text) { replace_fields(text, first, last, found[5]); });
    } else if (std::regex_match(change, found, entry)) {
      file.de_field(de(), std::stoi(found[2]), found[3]);
    } else if (std::regex_match(change, found, form)) {
      file.de_field(de(), 15, found[2]);
    } else if (std::regex_match(change, found, data)) {
      file.change_data(de(), [&](std::string& text) { text = found[2]; });
    } else if (std::regex_match(change, found, global)) {
      file.global(number(found[1]), found[2]);
    } else if (std::regex_match(change, found, count)) {
      file.global_count(number(found[1]));
    } else if (std::regex_match(change, found, start)) {
      file.start(split_items(found[1], "|"));
    } else if (std::regex_match(change, found, added)) {
      add_entity(file, found[1]);
    } else if (std::regex_match(change, found, setting)) {
      result.settings.emplace_back(found[1], found[2]);
    } else {
      return false;
    }
    return true;
  }

  /// Puts `value` in the place of fields `first` to `last` (counted from 1, the type number being 0) of the data.
  static void replace_fields(std::string& text, std::size_t first, std::size_t last, const std::string& value) {
    std::vector<std::string> fields = fields_of(text, ',', ';');
    if (fields.size() <= first) fields.resize(first + 1);
    const std::size_t end = std::min(last, fields.size() - 1) + 1;
    fields.erase(fields.begin() + static_cast<long>(first), fields.begin() + static_cast<long>(end));
    fields.insert(fields.begin() + static_cast<long>(first), value);
    text = joined(fields) + ';';
  }

  /// "{name}" stands for a text, "{3*1.}" for three times "1." between commas, "{-}" for the real that says unset.
  std::string expanded(std::string line) const {
    static const std::regex pattern(R"(\{(?:(\d+)\*([^{}]*)|(\w+)|([-+]))\})");
    for (std::smatch found; std::regex_search(line, found, pattern);) {
      std::string text;
      if (found[1].matched) text = joined(std::vector<std::string>(number(found[1]), found[2]));
      if (found[3].matched) text = m_texts.at(found[3]);
      if (found[4].matched) text = std::string(found[4]) + "1.7976931348623157D+308";
      line.replace(static_cast<std::size_t>(found.position()), static_cast<std::size_t>(found.length()), text);
    }
    return line;
  }

  std::string m_file, m_where, m_line;
  std::vector<CaseGroup>& m_groups;
  IgesBuilder m_common, m_content;   ///< of all groups of the file, of this group
  int m_subject = 0, m_next_de = 1;  ///< m_subject is 0 before the first group
  std::map<std::string, std::string> m_texts;
  std::vector<std::pair<std::string, std::string>> m_settings;
};

}  // namespace

Content content_of(const std::string& text) {
  Content content;
  std::string global;
  for (const std::string& record : records_of(text, 'G')) global += record.substr(0, 72);
  content.global = fields_of(global, ',', ';');
  const std::vector<std::string> directory = records_of(text, 'D');
  std::map<int, std::string> data;
  for (const std::string& record : records_of(text, 'P')) data[number_at(record, 66, 7)] += record.substr(0, 64);
  for (std::size_t i = 0; i + 1 < directory.size(); i += 2) {
    Content::Entity entity;
    for (std::size_t field = 0; field < 20; ++field) {
      const bool counts = field == 1 || field == 9 || field == 13 || field == 19;
      const std::string& record = directory[i + field / 10];
      entity.entry.push_back(counts ? "" : trimmed(record.substr(field % 10 * 8, 8)));
    }
    entity.kind = entity.entry[0] + ':' + entity.entry[14];
    entity.fields = fields_of(data[static_cast<int>(i + 1)], ',', ';');
    content.entities.push_back(std::move(entity));
  }
  return content;
}

std::vector<std::string> split_items(const std::string& text, const std::string& separator) {
  constexpr char quoted_blank = '\1';  // not trimmed
  std::vector<std::string> items;
  std::string item;
  bool quoted = false;
  const auto finish = [&] {
    std::string text = unescaped(trimmed(item));
    std::replace(text.begin(), text.end(), quoted_blank, ' ');
    if (!text.empty()) items.push_back(text);
    item.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') {
      quoted = !quoted;
    } else if (!quoted && text.compare(i, separator.size(), separator) == 0) {
      finish();
    } else {
      item += quoted && text[i] == ' ' ? quoted_blank : text[i];
    }
  }
  finish();
  return items;
}

std::string shortened(std::string name, int key, const CaseGroup& group) {
  const std::size_t size = group.prefix.size();
  if (name.rfind(group.prefix, 0) == 0 && std::isupper(static_cast<unsigned char>(name[size])) != 0)
    name.erase(0, size);
  return name + (key == group.subject ? "" : '@' + std::to_string(key));
}

ExpectedError expected_error(const std::string& item, const CaseGroup& group) {
  static const std::regex pattern(R"(([A-Za-z]\w*)(?:@(-?\d+))?(?: ([^]*?))??(?: ([-+]+))?)");
  std::smatch found;
  if (!std::regex_match(item, found, pattern)) throw std::runtime_error("no error: " + item);
  const std::string values = found[3].matched ? ' ' + found[3].str() : "";
  return {shortened(found[1], found[2].matched ? std::stoi(found[2]) : group.subject, group) + values, found[4]};
}

bool change_content(Content& content, const std::string& change) {
  static const std::regex field(R"((?:(\d+)\.)?(d?)(\d+)=([^]*))"), global(R"(g(\d+)=([^]*))"),
      entity(R"((\d+): (-?\d+)(?::(-?\d+))? ?([^]*))"), added(R"(new: ([^]*))"), gone(R"((\d+) gone)");
  std::smatch found;
  const auto place = [&content](const std::string& de) -> Content::Entity& {
    return content.entities.at(((de.empty() ? content.subject : number(de)) - 1) / 2);
  };
  const auto set = [](std::vector<std::string>& list, std::size_t at, const std::string& value) {
    if (list.size() <= at) list.resize(at + 1);
    list[at] = value;
  };
  if (std::regex_match(change, found, field)) {
    Content::Entity& owner = place(found[1]);
    const bool of_entry = found[2].length() != 0;
    set(of_entry ? owner.entry : owner.fields, number(found[3]) - (of_entry ? 1 : 0), found[4]);
    owner.kind = owner.entry[0] + ':' + owner.entry[14];
  } else if (std::regex_match(change, found, global)) {
    set(content.global, number(found[1]) - 1, found[2]);
  } else if (std::regex_match(change, found, added)) {
    content.entities.emplace_back();
    const std::string numbered = std::to_string(2 * content.entities.size() - 1) + ": " + found[1].str();
    content.entities.back().entry.resize(20);
    return change_content(content, numbered);
  } else if (std::regex_match(change, found, entity)) {
    Content::Entity& owner = place(found[1]);
    owner.entry[0] = owner.entry[10] = found[2];
    owner.entry[14] = found[3].matched ? found[3].str() : "0";
    owner.kind = owner.entry[0] + ':' + owner.entry[14];
    owner.fields = fields_of(found[2].str() + (found[4].length() != 0 ? ',' + found[4].str() : "") + ';', ',', ';');
  } else if (std::regex_match(change, found, gone)) {
    place(found[1]).kind.clear();
  } else {
    return false;
  }
  return true;
}

std::vector<CaseGroup> all_case_groups() {
  std::vector<CaseGroup> groups;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(IGS_CASES)) {
    if (entry.path().extension() == ".case") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const auto& path : files) {
    std::ifstream in(path);
    Parser(path.filename().string(), groups).parse(in);
  }
  return groups;
}

}  // namespace igs_test
