#include "files/names.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "files/complaints.h"
#include "files/exit_status.h"
#include "files/input_file.h"
#include "text/text.h"

namespace {

namespace fs = std::filesystem;

bool is_called_iges(std::string name) {
  constexpr std::array<std::string_view, 4> endings{".igs", ".iges", ".igs.gz", ".iges.gz"};
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return std::any_of(endings.begin(), endings.end(), [&](std::string_view ending) { return name.ends_with(ending); });
}

/// Collects what is below a folder.
class Search {
 public:
  explicit Search(int& status) : m_status(status) {}
  /// Sorted; a folder that holds none is complained of.
  std::vector<std::string> run(const std::string& folder);

 private:
  void visit(const fs::path& folder);
  void fault(const std::string& folder, const std::string& reason);

  int& m_status;
  std::vector<fs::path> m_folders;  ///< yet to be visited
  std::vector<std::string> m_found;
};

std::vector<std::string> Search::run(const std::string& folder) {
  const int before = std::exchange(m_status, exit_clean);
  m_folders.emplace_back(folder);
  while (!m_folders.empty()) {
    const fs::path next = std::move(m_folders.back());
    m_folders.pop_back();
    visit(next);
  }
  if (m_found.empty() && m_status == exit_clean) fault(folder, "there is no *.igs or *.iges in it");
  m_status = std::max(m_status, before);
  std::sort(m_found.begin(), m_found.end());
  return std::exchange(m_found, {});
}

void Search::visit(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    std::error_code none;
    const bool is_folder = each->is_directory(none) && !each->is_symlink(none);
    if (is_folder) m_folders.push_back(each->path());
    if (is_called_iges(each->path().filename().string()) && each->is_regular_file(none)) {
      m_found.push_back(each->path().string());
    }
  }
  if (error) fault(folder.string(), error.message());
}

void Search::fault(const std::string& folder, const std::string& reason) {
  complain(std::cerr, folder, reason);
  m_status = exit_failed;
}

/// The names in a list: between NUL characters when it has any, a line each otherwise.
std::vector<std::string> names_in(const std::string& list) {
  const char separator = list.find('\0') != std::string::npos ? '\0' : '\n';
  std::vector<std::string> names;
  for (std::size_t begin = 0; begin < list.size();) {
    const std::size_t end = std::min(list.find(separator, begin), list.size());
    std::string name = list.substr(begin, end - begin);
    if (separator == '\n' && name.ends_with('\r')) name.pop_back();
    if (!name.empty()) names.push_back(std::move(name));
    begin = end + 1;
  }
  return names;
}

std::vector<std::string> listed_names(const std::string& list) {
  InputFile file(list);
  if (file.error().empty()) file.keep_bytes();
  if (!file.error().empty()) throw std::runtime_error(printable(list) + ": " + file.error());
  return names_in(file.take_bytes());
}

}  // namespace

std::vector<std::string> expanded_names(const NameSources& sources, int& status) {
  std::vector<std::string> given = sources.names;
  if (!sources.list.empty()) {
    const std::vector<std::string> listed = listed_names(sources.list);
    given.insert(given.end(), listed.begin(), listed.end());
    if (sources.list == "-" && std::find(given.begin(), given.end(), "-") != given.end()) {
      throw std::runtime_error("standard input cannot be the list of names and a file, too");
    }
  }
  Search search(status);
  std::unordered_set<std::string> seen;
  std::vector<std::string> names;
  for (const std::string& name : given) {
    std::error_code none;
    const bool is_folder = sources.searches_folders && name != "-" && std::filesystem::is_directory(name, none);
    for (std::string& found : is_folder ? search.run(name) : std::vector<std::string>{name}) {
      if (seen.insert(found).second) names.push_back(std::move(found));
    }
  }
  return names;
}
