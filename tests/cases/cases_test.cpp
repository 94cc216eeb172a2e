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
  if (expected == actual) return true;
  const auto real = [](std::string text, double& value) {
    std::replace(text.begin(), text.end(), 'D', 'E');
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    return end != text.c_str() && *end == '\0';
  };
  double wanted = 0, found = 0;
  if (expected.empty()) return real(actual, found) && found == 0;  // what is not given
  return real(expected, wanted) && real(actual, found) && wanted == found;
}

Strings lines_of(const std::string& text) {
  Strings lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// The changes that turn `before` into what was written, in the words of the language.
Strings changes(Content before, Content written, int subject) {
  Strings found;
  Content all = before;
  all.insert(written.begin(), written.end());
  const std::string prefix = std::to_string(subject) + '.';
  for (const auto& [key, value] : all) {
    const std::string de = key.substr(0, key.find('.'));
    const bool is_gone = de != key && !written.contains(de + ".d1");
    if (is_gone && key == de + ".d9") found.push_back(de + " gone");
    if (is_gone || same_value(before[key], written[key])) continue;
    if (key[0] == 'g' && before[key].empty()) continue;  // what is not given has a default of its own
    found.push_back(key.substr(key.rfind(prefix, 0) == 0 ? prefix.size() : 0) + '=' + written[key]);
  }
  return found;
}

class CaseFile : public testing::TestWithParam<CaseName> {
 protected:
  const CaseGroup m_group = case_group(GetParam());

  void run(const Case& c) const {
    const Settings settings(c);
    const std::string text = c.damaged.text();
    Strings unrepaired, outcome;
    const Strings errors = errors_of(c, text, unrepaired);
    bool as_expected = errors == c.errors;
    if (errors.empty() || errors[0] != "read 0") as_expected = repair(c, text, unrepaired, outcome) && as_expected;
    EXPECT_TRUE(as_expected) << c.where << ": " << c.line << "\n  now: " << joined(errors, "; ") << " => "
                             << joined(outcome, "; ");
    for (const bool delete_faulty : {false, true}) igs_fuzz::check_file(text, {true, delete_faulty, 15});
  }

 private:
  /// Reads and checks; asks each error for its repair.
  Strings errors_of(const Case& c, const std::string& text, Strings& unrepaired) const {
    const Checked checked(text);
    Strings found;
    if (checked.read != 1) found.push_back("read " + std::to_string(checked.read));
    if (checked.entities != static_cast<int>(igs_fuzz::records_of(c.sound.text(), 'D').size() / 2 - c.gone.size())) {
      found.push_back("entities " + std::to_string(checked.entities));
    }
    const std::vector<igsError*> errors = checked.errors();
    for (std::size_t i = 0; i < errors.size(); ++i) {
      const std::string expected = found.size() < c.errors.size() ? c.errors[found.size()] : "";
      const std::string signs = fix_alone(text, i, expected.size() - (expected.find_last_not_of("+-") + 1));
      if (signs == "-") unrepaired.push_back(in_words(*errors[i]));
      found.push_back(in_words(*errors[i]) + ' ' + signs);
    }
    return found;
  }

  /// Repairs, checks again and writes; then the same with what cannot be repaired deleted.
  bool repair(const Case& c, const std::string& text, const Strings& unrepaired, Strings& outcome) const {
    Checked checked(text);
    checked.sink.text.clear();
    checked.file.clean(0);
    const Strings said = lines_of(checked.sink.text);
    checked.file.check();
    Strings messages, left;
    for (const igsError* error : checked.errors()) left.push_back(in_words(*error));
    if (left != unrepaired) {
      for (const std::string& error : left) messages.push_back("left " + error);
      if (left.empty()) messages.emplace_back("left none");
    }
    for (const std::string& line : said) messages.push_back("says " + line);
    std::string output;
    EXPECT_EQ(write_text(checked.file, output), 1) << c.where;
    EXPECT_EQ(column_fault(output), "") << c.where;
    delete_faulty(c, text);

    const Content written = content_of(output, c.gone, true);
    const int subject = m_group.subject;
    outcome = changes(content_of(c.sound.text(), c.gone, false), written, subject);
    outcome.insert(outcome.end(), messages.begin(), messages.end());
    return messages == c.messages && changes(content_of(c.expected.text(), c.gone, false), written, subject).empty();
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

  /// An error as case files give it: "InvalidStartPoint" for igs110InvalidStartPoint of the subject in a group of 110,
  /// "igs116InvalidPoint@3 1.5" for one of DE 3 with a value.
  std::string in_words(const igsError& error) const {
    const auto* indexed = dynamic_cast<const igsIndexedError*>(&error);
    const bool has_key = indexed != nullptr && indexed->key() != igs_unset_int;
    const std::string key = has_key ? std::to_string(indexed->key()) : "", &prefix = m_group.prefix;
    std::string name = error.objtype().id_string(), values = describe(error).substr(name.size());
    if (has_key) values.erase(0, 1 + key.size());
    if (name.rfind(prefix, 0) == 0 && std::isupper(static_cast<unsigned char>(name[prefix.size()])) != 0) {
      name.erase(0, prefix.size());
    }
    if (has_key && indexed->key() != m_group.subject) name += '@' + key;
    return name + std::regex_replace(values, std::regex("-1\\.79769313486232e\\+308"), "unset");
  }
};

TEST_P(CaseFile, Holds) {
  igs_fuzz::on_broken_promise = [](const char* promise) { throw std::runtime_error(promise); };
  for (const Case& c : m_group.cases) {
    try {
      run(c);
    } catch (const std::exception& error) {
      ADD_FAILURE() << c.where << ": " << c.line << "\n  " << error.what();
    }
  }
  for (const CaseGroup::Print& print : m_group.prints) {
    const Checked checked(print.text);
    ASSERT_TRUE(print.de == 0 || checked.file.entity(print.de) != nullptr) << print.de;
    std::ostringstream text;
    utOstream os(text);
    print.de == 0 ? checked.file.print(os) : checked.file.entity(print.de)->print_pd_data(os);
    EXPECT_EQ(joined(lines_of(text.str()), "|"), print.expected) << "printed";
  }
}

INSTANTIATE_TEST_SUITE_P(All, CaseFile, testing::ValuesIn(all_cases()), [](const auto& info) {
  std::string name = info.param.file.substr(0, info.param.file.find('.')) + '_' + info.param.group;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
});

}  // namespace
}  // namespace igs_test
