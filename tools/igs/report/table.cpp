#include <algorithm>
#include <ostream>

#include "report/report.h"
#include "text/text.h"

namespace {

/// Number of characters of valid UTF-8.
std::size_t num_characters(const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string left_aligned(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, num_characters(text)), ' ');
}

std::string right_aligned(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string verdict(const Tally& tally, const Paint& paint) {
  if (tally.status == exit_failed) return paint(Ink::bad, "failed");
  return tally.status == exit_errors ? paint(Ink::bad, "errors") : paint(Ink::good, "sound");
}

long long num_with(const std::vector<Tally>& tallies, ExitStatus status) {
  return std::count_if(tallies.begin(), tallies.end(), [&](const Tally& tally) { return tally.status == status; });
}

}  // namespace

void write_table(std::ostream& out, const std::vector<std::string>& names, const std::vector<Tally>& tallies,
                 const Paint& paint) {
  constexpr std::size_t most_columns = 60, count_columns = 10, error_columns = 8;
  std::size_t width = 0;
  for (const std::string& name : names) width = std::max(width, num_characters(printable(name)));
  width = std::min(width, most_columns);
  out << '\n'
      << paint(Ink::heading, left_aligned("file", width) + right_aligned("entities", count_columns) +
                                 right_aligned("errors", error_columns) + "  status")
      << '\n';
  for (std::size_t i = 0; i < tallies.size(); ++i) {
    out << left_aligned(printable(names[i]), width) << right_aligned(std::to_string(tallies[i].entities), count_columns)
        << right_aligned(std::to_string(tallies[i].errors), error_columns) << "  " << verdict(tallies[i], paint)
        << '\n';
  }
  out << counted(std::ssize(tallies), "file", "files") << ": " << num_with(tallies, exit_clean) << " sound, "
      << num_with(tallies, exit_errors) << " with errors, " << num_with(tallies, exit_failed) << " failed\n";
}
