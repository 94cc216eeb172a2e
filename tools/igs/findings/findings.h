#pragma once

#include <array>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "files/model.h"
#include "findings/rules.h"

/// An error of a file as it is reported. The file's log owns the error.
struct Finding {
  igsError* error = nullptr;
  igsLogID log = igsObjectLog;
  Severity severity = Severity::error;
  bool is_consequence = false;  ///< it only says that an entity referred to has faults
  int line = 0;                 ///< of the input, from 1
};

/// Errors of a file as findings, without those that do not count. A consequence is as severe as the worst of what it
/// comes from, and goes with it where that does not count. The worst come first, roots before
/// consequences, then in the order of their lines.
class Findings {
 public:
  Findings() = default;
  /// The active errors, and the bookkeeping faults that check_faults() has taken for repaired; before the file is
  /// written.
  static Findings of_check(const igsFile& file, const FindingRules& rules);
  /// The errors that were repaired, and those that were not.
  static Findings repaired(const igsFile& file, const FindingRules& rules);
  static Findings active(const igsFile& file, const FindingRules& rules);

  const std::vector<Finding>& list() const { return m_list; }
  bool empty() const { return m_list.empty(); }
  long long size() const { return std::ssize(m_list); }
  long long count(Severity severity) const { return m_counts[static_cast<std::size_t>(severity)]; }
  /// How many are at least so severe; roots alone, or all.
  long long num_from(Severity severity) const;
  long long num_consequences() const { return m_num_consequences; }
  void add(const std::vector<Finding>& more);
  void erase_if(const std::function<bool(const Finding&)>& is_gone);

 private:
  void add(const igsFile& file, bool fixed, const FindingRules& rules);
  void drop_repetitions(const igsFile& file);
  void settle(const igsFile& file);
  void count_all();

  std::vector<Finding> m_list;
  std::array<long long, 3> m_counts{};
  long long m_num_consequences = 0;
};

/// Which entities use which, as far as consequences tell.
class UseGraph {
 public:
  explicit UseGraph(const std::vector<Finding>& findings);

  /// How many entities use this one, directly or not. Nothing once the questions have taken too long in all.
  std::optional<long long> num_users(int de);
  /// Gives every entity from which one of these can be reached the severity of the worst such.
  void spread(std::unordered_map<int, Severity>& severities) const;

 private:
  std::unordered_map<int, std::vector<int>> m_users;
  std::size_t m_steps_left;
};
