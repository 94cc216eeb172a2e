#include "findings/rules.h"

#include <algorithm>

#include "explain/texts.h"
#include "text/pattern.h"

namespace {

bool matches_any(const std::vector<std::string>& patterns, std::string_view class_name) {
  return std::any_of(patterns.begin(), patterns.end(),
                     [class_name](const std::string& pattern) { return matches(pattern, class_name); });
}

}  // namespace

bool FindingRules::counts(std::string_view class_name) const {
  return !matches_any(ignored, class_name) && (only.empty() || matches_any(only, class_name));
}

Severity FindingRules::severity_of(const igsError& error) const {
  const auto rule = std::find_if(rated.rbegin(), rated.rend(),
                                 [&](const auto& each) { return matches(each.first, error.objtype().name()); });
  return rule != rated.rend() ? rule->second : ::severity_of(error);
}
