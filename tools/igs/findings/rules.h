#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "explain/severity.h"
#include "igs/igs.h"

/// Which faults count and how much they matter: the patterns (text/pattern.h) of --ignore, --only and --severity.
struct FindingRules {
  std::vector<std::string> ignored;
  std::vector<std::string> only;  ///< without one all classes count
  /// The last one that a class matches decides.
  std::vector<std::pair<std::string, Severity>> rated;

  bool counts(std::string_view class_name) const;
  Severity severity_of(const igsError& error) const;
};
