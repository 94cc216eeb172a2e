#include <algorithm>
#include <cctype>
#include <iostream>
#include <numeric>

#include "commands.h"
#include "exit_status.h"
#include "explain_table.h"
#include "report.h"
#include "text.h"

namespace {

std::string lower_case(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](unsigned char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : static_cast<char>(c);
  });
  return result;
}

/// How many characters must be put in, taken out or changed to make one text of the other.
std::size_t edit_distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

/// The classes whose name contains `name` or is nearly the same, the nearest first.
std::vector<std::string_view> near_names(const std::string& name) {
  constexpr std::size_t most_names = 5;
  constexpr std::size_t longest_name = 200;
  if (name.empty() || name.size() > longest_name) return {};
  const std::string wanted = lower_case(name);
  std::vector<std::pair<std::size_t, std::string_view>> near;
  for (const ErrorText* text : all_error_texts()) {
    const std::string candidate = lower_case(text->name);
    const std::size_t distance = edit_distance(wanted, candidate);
    const bool is_part = wanted.size() > 3 && candidate.find(wanted) != std::string::npos;
    if (is_part || distance <= wanted.size() / 3) near.emplace_back(distance, text->name);
  }
  std::sort(near.begin(), near.end());
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < std::min(near.size(), most_names); ++i) names.push_back(near[i].second);
  return names;
}

void list(const ErrorText& text) {
  std::cout << text.name << "  " << general_sentence(text) << " ["
            << (text.repair.empty() ? "not repaired" : "repaired") << "]\n";
}

void describe(const ErrorText& text) {
  std::cout << text.name << "\n  Meaning: " << general_sentence(text) << ".\n  Repair: "
            << (text.repair.empty() ? "It is not repaired; --delete-faulty deletes the entity, if it is about one."
                                    : text.repair)
            << '\n';
}

void complain_of_name(const std::string& name) {
  std::string reason = "no error class of this name";
  const char* separator = "; near names: ";
  for (const std::string_view near : near_names(name)) {
    reason += separator;
    reason += near;
    separator = ", ";
  }
  complain(name, reason);
}

}  // namespace

int run_explain(const std::vector<std::string>& names) {
  int status = exit_clean;
  if (names.empty()) {
    for (const ErrorText* text : all_error_texts()) list(*text);
  }
  for (const std::string& name : names) {
    if (const ErrorText* text = find_error_text(name)) {
      describe(*text);
    } else {
      complain_of_name(name);
      status = exit_failed;
    }
  }
  return flush_output() ? status : exit_failed;
}
