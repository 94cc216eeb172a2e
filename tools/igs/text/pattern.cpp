#include "text/pattern.h"

#include <cstddef>

bool matches(std::string_view pattern, std::string_view name) {
  constexpr std::string_view any = "*";
  std::size_t end = pattern.find(any);
  if (end == std::string_view::npos) return pattern == name;
  if (!name.starts_with(pattern.substr(0, end))) return false;
  // What stands between two stars may as well be found as early as possible: that leaves the most for the rest.
  for (name.remove_prefix(end);; name.remove_prefix(end)) {
    pattern.remove_prefix(pattern.find(any) + any.size());
    const std::string_view part = pattern.substr(0, pattern.find(any));
    if (part.size() == pattern.size()) return name.ends_with(part);
    const std::size_t at = name.find(part);
    if (at == std::string_view::npos) return false;
    end = at + part.size();
  }
}
