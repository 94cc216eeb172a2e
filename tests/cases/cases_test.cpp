// Runs the case files of this folder: each case is read, checked, repaired and written, and held against what it says.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <set>

#include "cases/case.h"
#include "fuzz/invariants.h"
#include "igs/igs.h"

namespace igs_test {
namespace {
using Strings = std::vector<std::string>;

/// Sets what a case asks for, and the clock, for the life of this object.
class Settings {
 public:
  explicit Settings(const Case& c) {
    ut_set_clock([] { return utDateTime{2030, 1, 1, 0, 0, 0}; });
    for (const auto& [key, value] : c.settings) set(key, value);
  }
  ~Settings() {
    kel_resource_table_inquire() = m_before;
    ut_set_clock(nullptr);
  }
  Settings(const Settings&) = delete;
  Settings& operator=(const Settings&) = delete;

 private:
  static void set(const std::string& key, const std::string& value) {
    EXPECT_EQ(kel_resource_table_inquire().set_value(key, std::strtod(value.c_str(), nullptr)), 1) << key;
  }
  coResourceTable m_before = kel_resource_table_inquire();
};

/// A file that has been read and checked.
struct Checked {
  explicit Checked(const std::string& text) {
    file.set_message_stream(&sink);
    read = read_text(file, text);
    entities = file.num_entities();
    file.check();
  }
  ~Checked() { file.set_message_stream(nullptr); }
  Checked(const Checked&) = delete;
  Checked& operator=(const Checked&) = delete;

  std::vector<igsError*> errors() const {
    std::vector<igsError*> list;
    for (int log = 0; log < igs_num_section_logs; ++log) {
      igsSimpleSectionLogIT it(file.error_log().get_section_log(static_cast<igsLogID>(log)));
      while (++it != 0) list.push_back(it());
    }
    return list;
  }

  RecordingSink sink;
  igsFile file;
  int read = 0, entities = 0;
};

/// What `fix` of each error answers, called by itself on a file that was just read, as often as `calls` has signs.
/// Without its entity it answers 0.
std::string fix_alone(const std::string& text, std::size_t number, std::size_t calls) {
  const Checked checked(text);
  igsError* const error = checked.errors().at(number);
  std::string signs;
  for (std::size_t i = 0; i < std::max<std::size_t>(calls, 1); ++i) signs += error->fix() != 0 ? '+' : '-';
  if (auto* const of_object = dynamic_cast<igsObjectError*>(error)) {
    delete checked.file.entity(of_object->key());
    static const std::set<std::string> accepted{"igs102AdjacentPoints", "igsWitnessLineCoincidentPoints",
                                                "igsWitnessLineNotCollinear"};  // repaired by changing nothing
    EXPECT_EQ(error->fix(), accepted.contains(error->objtype().id_string()) ? 1 : 0)
        << describe(*error) << " of an entity that is gone";
  }
  igs_fuzz::check_memory(checked.file);
  return signs;
}

bool same_value(const std::string& expected, const std::string& actual) {
  if (expected == actual || expected == "*") return true;
  const auto real = [](std::string text, double& value) {
    std::replace(text.begin(), text.end(), 'D', 'E');
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return end != text.c_str() && *end == '\0';
  };
  double wanted = 0, found = 0;
  if (expected.empty()) return actual.empty() || (real(actual, found) && found == 0);  // what is not given
  return real(expected, wanted) && real(actual, found) && wanted == found;
}

std::string joined(const Strings& items, const std::string& separator) {
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : separator) + item;
  return text;
}

Strings lines_of(const std::string& text) {
  Strings lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The changes that turn `before` into what was written, in the words of the language.
Strings changes(const Content& before, const Content& written) {
  Strings found;
  std::size_t next = 0;
  const auto differ = [&found](const std::string& prefix, const Strings& old_list, const Strings& new_list,
                               std::size_t first) {
    for (std::size_t i = 0; i < std::max(old_list.size(), new_list.size()); ++i) {
      const std::string was = i < old_list.size() ? old_list[i] : "", is = i < new_list.size() ? new_list[i] : "";
      if (!same_value(was, is)) found.push_back(prefix + std::to_string(i + first) + '=' + is);
    }
  };
  for (std::size_t i = 0; i < before.entities.size(); ++i) {
    const Content::Entity& was = before.entities[i];
    if (was.kind.empty()) continue;
    const std::string de = std::to_string(2 * i + 1);
    if (next >= written.entities.size()) {
      found.push_back(de + " gone");
      continue;
    }
    const Content::Entity& is = written.entities[next++];
    if (was.kind != is.kind) {
      found.push_back(de + ": " + is.kind + ' ' + joined({is.fields.begin() + 1, is.fields.end()}, ","));
    } else {
      differ(2 * i + 1 == before.subject ? "" : de + '.', was.fields, is.fields, 0);
    }
    Strings entry = was.entry;
    entry[0] = is.entry[0], entry[10] = is.entry[10], entry[14] = is.entry[14];
    differ(de + ".d", entry, is.entry, 1);
  }
  for (; next < written.entities.size(); ++next) {
    const Content::Entity& is = written.entities[next];
    found.push_back("new: " + is.kind + ' ' + joined({is.fields.begin() + 1, is.fields.end()}, ","));
  }
  for (std::size_t i = 0; i < before.global.size(); ++i) {
    if (before.global[i].empty()) continue;  // what is not given has a default of its own
    const std::string is = i < written.global.size() ? written.global[i] : "";
    if (!same_value(before.global[i], is)) found.push_back('g' + std::to_string(i + 1) + '=' + is);
  }
  return found;
}

class CaseFile : public testing::TestWithParam<CaseGroup> {
 protected:
  void run(const Case& c) {
    const Settings settings(c);
    const std::string text = c.damaged.text();
    std::string now = c.line.substr(0, c.line.find(" ->")) + " ->";
    Strings unrepaired;
    bool as_expected = check_errors(c, text, now, unrepaired);
    if (c.read == 1) as_expected = repair(c, text, unrepaired, now) && as_expected;
    EXPECT_TRUE(as_expected) << c.where << ": " << c.line << "\n  now: " << now;
    for (const bool delete_faulty : {false, true}) igs_fuzz::check_file(text, {true, delete_faulty, 15});
  }

 private:
  /// Reads and checks; asks each error for its repair.
  bool check_errors(const Case& c, const std::string& text, std::string& now, Strings& unrepaired) {
    const Checked checked(text);
    const int all = static_cast<int>(content_of(c.sound.text()).entities.size());
    const int entities = c.entities < 0 ? all : c.entities;
    bool same = checked.read == c.read && checked.entities == entities;
    Strings items;
    if (checked.read != 1) items.push_back("read " + std::to_string(checked.read));
    if (checked.entities != all) items.push_back("entities " + std::to_string(checked.entities));
    const std::vector<igsError*> errors = checked.errors();
    same = same && errors.size() == c.errors.size();
    for (std::size_t i = 0; i < errors.size(); ++i) {
      const bool given = i < c.errors.size();
      const std::string description = in_words(*errors[i]);
      const std::string signs = fix_alone(text, i, given ? c.errors[i].fixes.size() : 1);
      same = same && given && c.errors[i].description == description && c.errors[i].fixes == signs;
      items.push_back(description + ' ' + signs);
      if (signs == "-") unrepaired.push_back(description);
    }
    now += (items.empty() ? "" : " ") + joined(items, "; ");
    return same;
  }

  /// Repairs, checks again and writes; then the same with what cannot be repaired deleted.
  bool repair(const Case& c, const std::string& text, const Strings& unrepaired, std::string& now) {
    Checked checked(text);
    checked.sink.text.clear();
    checked.file.clean(0);
    const Strings said = lines_of(checked.sink.text);
    checked.file.check();
    const Strings left = in_words(checked.errors());
    std::string output;
    const bool is_written = write_text(checked.file, output) == 1;
    EXPECT_TRUE(is_written) << c.where;
    EXPECT_EQ(column_fault(output), "") << c.where;
    Content sound = content_of(c.sound.text());
    const Content written = content_of(output);
    sound.subject = static_cast<std::size_t>(GetParam().subject);

    Content expected = sound;
    Strings says, leaves;
    bool left_given = false;
    for (const std::string& item : c.after) {
      if (item.rfind("says ", 0) == 0) {
        says.push_back(item.substr(5));
      } else if (item.rfind("left ", 0) == 0) {
        left_given = true;
        if (item != "left none") leaves.push_back(expected_error(item.substr(5), GetParam()).description);
      } else if (!change_content(expected, item)) {
        ADD_FAILURE() << c.where << ": no change: " << item;
      }
    }
    if (!left_given) leaves = unrepaired;
    Strings items = changes(sound, written);
    if (left != unrepaired) {
      for (const std::string& error : left) items.push_back("left " + error);
      if (left.empty()) items.emplace_back("left none");
    }
    for (const std::string& line : said) items.push_back("says " + line);
    if (!items.empty()) now += " => " + joined(items, "; ");
    delete_faulty(c, text);
    return is_written && changes(expected, written).empty() && left == leaves && said == says;
  }

  /// What clean(1) deletes is what has errors left.
  static void delete_faulty(const Case& c, const std::string& text) {
    std::set<int> kept, left;
    const auto collect = [](const igsFile& file, std::set<int>& numbers) {
      igsFileIT entities(&file);
      while (++entities != 0) {
        if (entities()->num_logged_errors() == 0) numbers.insert(entities()->de_number());
      }
    };
    Checked repaired(text);
    repaired.file.clean(0);
    collect(repaired.file, kept);
    Checked cleaned(text);
    cleaned.file.clean(1);
    collect(cleaned.file, left);
    EXPECT_EQ(static_cast<int>(left.size()), cleaned.file.num_entities()) << c.where;
    EXPECT_EQ(left, kept) << c.where << ": deleting what is faulty";
  }

  /// An error as case files give it.
  std::string in_words(const igsError& error) const {
    const auto* indexed = dynamic_cast<const igsIndexedError*>(&error);
    const bool has_key = indexed != nullptr && indexed->key() != igs_unset_int;
    const std::string name = error.objtype().id_string(), values = describe(error).substr(name.size());
    const std::size_t key_size = has_key ? 1 + std::to_string(indexed->key()).size() : 0;
    const std::string words = shortened(name, has_key ? indexed->key() : GetParam().subject, GetParam());
    return words + std::regex_replace(values.substr(key_size), std::regex("-1\\.79769313486232e\\+308"), "unset");
  }
  Strings in_words(const std::vector<igsError*>& errors) const {
    Strings words;
    for (const igsError* error : errors) words.push_back(in_words(*error));
    return words;
  }
};

TEST_P(CaseFile, Holds) {
  igs_fuzz::on_broken_promise = [](const char* promise) { throw std::runtime_error(promise); };
  for (const Case& c : GetParam().cases) {
    try {
      run(c);
    } catch (const std::exception& error) {
      ADD_FAILURE() << c.where << ": " << c.line << "\n  " << error.what();
    }
  }
  if (GetParam().prints.empty()) return;
  ASSERT_FALSE(GetParam().cases.empty());
  const Checked checked(GetParam().cases.front().damaged.text());
  for (const auto& [de, expected] : GetParam().prints) {
    ASSERT_TRUE(de == 0 || checked.file.entity(de) != nullptr) << de;
    std::ostringstream text;
    utOstream os(text);
    de == 0 ? checked.file.print(os) : checked.file.entity(de)->print_pd_data(os);
    EXPECT_EQ(joined(lines_of(text.str()), "|"), expected) << "printed";
  }
}

INSTANTIATE_TEST_SUITE_P(All, CaseFile, testing::ValuesIn(all_case_groups()), [](const auto& info) {
  std::string name = info.param.file.substr(0, info.param.file.find('.')) + '_' + info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
});

}  // namespace
}  // namespace igs_test
