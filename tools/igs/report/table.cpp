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
  return tally.status == exit_errors ? paint(Ink::bad, "faulty") : paint(Ink::good, "sound");
}

long long num_with(const std::vector<Tally>& tallies, ExitStatus status) {
  return std::count_if(tallies.begin(), tallies.end(), [&](const Tally& tally) { return tally.status == status; });
}

constexpr std::size_t count_columns = 10;

std::string row(const Tally& tally, const Paint& paint) {
  std::string text = right_aligned(std::to_string(tally.entities), count_columns);
  for (auto severity = tally.findings.size(); severity-- > 0;) {
    text += right_aligned(std::to_string(tally.findings.at(severity)), count_columns);
  }
  return text + two_spaces + verdict(tally, paint) + '\n';
}

}  // namespace

void write_table(std::ostream& out, const std::vector<std::string>& names, const std::vector<Tally>& tallies,
                 const Paint& paint) {
  constexpr std::size_t most_columns = 60;
  std::size_t width = std::string_view("file").size();
  const auto is_listed = [&](std::size_t i) { return tallies[i].status != exit_clean; };
  for (std::size_t i = 0; i < tallies.size(); ++i) {
    if (is_listed(i)) width = std::max(width, num_characters(printable(names[i])));
  }
  width = std::min(width, most_columns);
  std::string heading = left_aligned("file", width);
  for (const char* const column : {"entities", "errors", "warnings", "notes"}) {
    heading += right_aligned(column, count_columns);
  }
  const long long num_sound = num_with(tallies, exit_clean);
  out << '\n';
  if (num_sound < std::ssize(tallies)) out << paint(Ink::heading, heading + "  status") << '\n';
  for (std::size_t i = 0; i < tallies.size(); ++i) {
    if (is_listed(i)) out << left_aligned(printable(names[i]), width) << row(tallies[i], paint);
  }
  out << counted(std::ssize(tallies), "file", "files") << ": " << num_sound << " sound, "
      << num_with(tallies, exit_errors) << " faulty, " << num_with(tallies, exit_failed) << " failed\n";
}
