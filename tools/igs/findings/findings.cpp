#include "findings/findings.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "explain/texts.h"
#include "findings/place.h"

namespace {

bool is_consequence(const igsError& error) {
  const ErrorText* const text = find_error_text(error.objtype().name());
  return text != nullptr && text->is_consequence;
}

/// The entity whose faults a consequence is about.
int cause_of(const Finding& finding) { return static_cast<igsObjectError*>(finding.error)->obj(); }

/// Asks the rules once for each class.
class RuledClasses {
 public:
  explicit RuledClasses(const FindingRules& rules) : m_rules(rules) {}
  bool counts(const igsError& error) {
    const auto [place, is_new] = m_counts.try_emplace(&error.objtype(), true);
    if (is_new) place->second = m_rules.counts(error.objtype().name());
    return place->second;
  }

 private:
  const FindingRules& m_rules;
  std::unordered_map<const kluTypeInfo*, bool> m_counts;
};

bool has_faults(const igsFile& file, int de) {
  const igsObject* const entity = file.entity(de);
  return entity != nullptr && entity->num_logged_errors() != 0;
}

}  // namespace

UseGraph::UseGraph(const std::vector<Finding>& findings) : m_steps_left(1000000 + 16 * findings.size()) {
  for (const Finding& finding : findings) {
    if (!finding.is_consequence) continue;
    const int user = *de_number(*finding.error), used = cause_of(finding);
    if (user != used) m_users[used].push_back(user);
  }
}

std::optional<long long> UseGraph::num_users(int de) {
  std::unordered_set<int> seen{de};
  std::vector<int> reached{de};
  for (std::size_t i = 0; i < reached.size(); ++i) {
    const auto users = m_users.find(reached[i]);
    if (users == m_users.end()) continue;
    if (m_steps_left < users->second.size()) return std::nullopt;
    m_steps_left -= users->second.size();
    for (const int user : users->second) {
      if (seen.insert(user).second) reached.push_back(user);
    }
  }
  return std::ssize(reached) - 1;
}

void UseGraph::spread(std::unordered_map<int, Severity>& severities) const {
  const std::unordered_map<int, Severity> roots = severities;
  for (const Severity severity : {Severity::error, Severity::warning, Severity::note}) {
    std::vector<int> reached;
    for (const auto& [de, worst] : roots) {
      if (worst == severity) reached.push_back(de);
    }
    while (!reached.empty()) {
      const auto users = m_users.find(reached.back());
      reached.pop_back();
      if (users == m_users.end()) continue;
      for (const int user : users->second) {
        const auto [place, is_new] = severities.try_emplace(user, severity);
        if (!is_new && place->second >= severity) continue;
        place->second = severity;
        reached.push_back(user);
      }
    }
  }
}

Findings Findings::of_check(const igsFile& file, const FindingRules& rules) {
  Findings findings;
  findings.add(file, false, rules);
  findings.settle(file);
  findings.add(file, true, rules);
  findings.count_all();
  return findings;
}

Findings Findings::repaired(const igsFile& file, const FindingRules& rules) {
  Findings findings;
  findings.add(file, true, rules);
  findings.count_all();
  return findings;
}

Findings Findings::active(const igsFile& file, const FindingRules& rules) {
  Findings findings;
  findings.add(file, false, rules);
  findings.settle(file);
  findings.count_all();
  return findings;
}

void Findings::add(const igsFile& file, bool fixed, const FindingRules& rules) {
  RuledClasses classes(rules);
  const auto add_one = [&](igsLogID log, igsError& error) {
    if (!classes.counts(error)) return;
    m_list.push_back({&error, log, rules.severity_of(error), is_consequence(error), line_of(file, log, error)});
  };
  const igsErrorLog& log = file.error_log();
  fixed ? for_each_fixed_error(log, add_one) : for_each_active_error(log, add_one);
  drop_repetitions(file);
}

void Findings::settle(const igsFile& file) {
  std::unordered_map<int, Severity> severities;
  for (Finding& finding : m_list) {
    const std::optional<int> de = de_number(*finding.error);
    if (!de) continue;
    // Where nothing is known of the faults of the other entity, this is all there is to report.
    if (finding.is_consequence && (cause_of(finding) == *de || !has_faults(file, cause_of(finding)))) {
      finding.is_consequence = false;
    }
    if (finding.is_consequence) continue;
    const auto [place, is_new] = severities.try_emplace(*de, finding.severity);
    place->second = std::max(place->second, finding.severity);
  }
  UseGraph(m_list).spread(severities);
  std::erase_if(m_list, [&](Finding& finding) {
    if (!finding.is_consequence) return false;
    const auto cause = severities.find(cause_of(finding));
    if (cause != severities.end()) finding.severity = cause->second;
    return cause == severities.end();
  });
}

/// What is said once is not said again: of a Global parameter that is missing, that its value is wrong; of an entity
/// that cannot be read, what the empty one in its place lacks; of a pointer that must not be null, where it leads.
void Findings::drop_repetitions(const igsFile& file) {
  std::set<int> missing, unread, null;
  for_each_active_error(file.error_log(), [&](igsLogID log, const igsError& error) {
    const std::string_view name = error.objtype().name();
    if (error.isa(igsFileUnreadData::type())) unread.insert(*de_number(error));
    if (log == igsObjectLog && name.find("Null") != std::string_view::npos) null.insert(*de_number(error));
  });
  const auto is_missing = [](const Finding& finding) {
    return finding.error->isa(igsGlobalSectionIllegalDefault::type());
  };
  for (const Finding& finding : m_list) {
    if (is_missing(finding)) missing.insert(global_parameter(*finding.error));
  }
  std::erase_if(m_list, [&](const Finding& finding) {
    if (finding.log == igsGlobalLog) return !is_missing(finding) && missing.contains(global_parameter(*finding.error));
    if (finding.error->isa(igsFileLostReference::type())) return null.contains(*de_number(*finding.error));
    if (finding.log != igsObjectLog || unread.empty()) return false;
    const bool is_of_directory = std::string_view(finding.error->objtype().name()).starts_with("igsDE");
    return !is_of_directory && unread.contains(*de_number(*finding.error));
  });
}

void Findings::count_all() {
  std::stable_sort(m_list.begin(), m_list.end(), [](const Finding& a, const Finding& b) {
    return std::tuple(b.severity, a.is_consequence, a.line) < std::tuple(a.severity, b.is_consequence, b.line);
  });
  m_counts = {};
  m_num_consequences = 0;
  for (const Finding& finding : m_list) {
    ++m_counts.at(static_cast<std::size_t>(finding.severity));
    if (finding.is_consequence) ++m_num_consequences;
  }
}

long long Findings::num_from(Severity severity) const {
  long long number = 0;
  for (auto i = static_cast<std::size_t>(severity); i < m_counts.size(); ++i) number += m_counts.at(i);
  return number;
}

void Findings::add(const std::vector<Finding>& more) {
  m_list.insert(m_list.end(), more.begin(), more.end());
  count_all();
}

void Findings::erase_if(const std::function<bool(const Finding&)>& is_gone) {
  std::erase_if(m_list, is_gone);
  count_all();
}
