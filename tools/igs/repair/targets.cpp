#include "repair/targets.h"

#include <filesystem>
#include <map>
#include <system_error>

#include "text/text.h"

namespace {

namespace fs = std::filesystem;

/// Where the file stands below the folder of the call in which it was found.
fs::path place_of_file(const fs::path& name, const std::vector<std::string>& folders) {
  for (const std::string& folder : folders) {
    fs::path place = name.lexically_relative(folder);
    if (!place.empty() && *place.begin() != ".." && *place.begin() != ".") return place;
  }
  return name.filename();
}

}  // namespace

std::string target_of(const std::string& name, const RepairOptions& options) {
  if (!options.target.empty()) return options.target;
  if (options.output_dir.empty()) return name;
  fs::path place = place_of_file(name, options.folders);
  const std::string ending = place.extension().string();
  if (ending == ".gz" || ending == ".GZ") place.replace_extension();
  return (fs::path(options.output_dir) / place).string();
}

std::string targets_fault(const RepairOptions& options) {
  if (options.output_dir.empty() || options.dry_run) return "";
  std::map<std::string, std::string> sources;  // by their targets
  for (const std::string& name : options.names) {
    const std::string target = target_of(name, options);
    const auto [other, is_new] = sources.emplace(target, name);
    if (!is_new)
      return printable(other->second) + " and " + printable(name) + " would both become " + printable(target);
  }
  for (const auto& [target, source] : sources) {
    std::error_code error;
    fs::create_directories(fs::path(target).parent_path(), error);
    if (error) return error.message();
  }
  return "";
}
