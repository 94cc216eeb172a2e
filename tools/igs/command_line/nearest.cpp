#include "command_line/nearest.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

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

}  // namespace

std::vector<std::string_view> nearest(std::string_view name, const std::vector<std::string_view>& candidates) {
  constexpr std::size_t most_names = 5;
  constexpr std::size_t longest_name = 200;
  if (name.empty() || name.size() > longest_name) return {};
  const std::string wanted = lower_case(name);
  const bool is_short = wanted.size() <= 3;
  const std::size_t most_changes = is_short ? 1 : std::max<std::size_t>(2, wanted.size() / 3);
  std::vector<std::pair<std::size_t, std::string_view>> near;
  for (const std::string_view candidate : candidates) {
    const std::string found = lower_case(candidate);
    const std::size_t distance = edit_distance(wanted, found);
    const bool is_part = !is_short && found.find(wanted) != std::string::npos;
    if (is_part || distance <= most_changes) near.emplace_back(distance, candidate);
  }
  std::sort(near.begin(), near.end());
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < std::min(near.size(), most_names); ++i) names.push_back(near[i].second);
  return names;
}

std::string joined(const std::vector<std::string_view>& names) {
  std::string result;
  for (const std::string_view name : names) {
    if (!result.empty()) result += ", ";
    result += name;
  }
  return result;
}

std::string suggestion(std::string_view name, const std::vector<std::string_view>& candidates) {
  const std::vector<std::string_view> near = nearest(name, candidates);
  return near.empty() ? "" : "; did you mean " + joined(near) + '?';
}
