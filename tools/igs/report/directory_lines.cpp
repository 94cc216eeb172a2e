#include "report/directory_lines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace {

constexpr int record_length = 80, data_columns = 72;

/// The sequence number of a line that is a whole record; 0 for any other line.
long long sequence_number(std::string_view line) {
  if (line.size() != record_length) return 0;
  line.remove_prefix(data_columns + 1);
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  int number = 0;
  const auto [stop, error] = std::from_chars(line.data(), line.data() + line.size(), number);
  return error == std::errc() && stop == line.data() + line.size() ? number : 0;
}

/// The next line without its end; not valid any more after the next call. Empty at the end of the file and for a line
/// that is longer than a record.
std::string_view next_line(std::istream& in, std::array<char, record_length + 3>& buffer) {
  in.getline(buffer.data(), static_cast<std::streamsize>(buffer.size()));
  const auto size = static_cast<std::size_t>(in ? in.gcount() - (in.eof() ? 0 : 1) : 0);  // the line end is counted
  std::string_view line(buffer.data(), size);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

DirectoryLines DirectoryLines::of(const std::string& name) {
  std::error_code none;
  if (name == "-" || !std::filesystem::is_regular_file(name, none)) return {};
  std::ifstream in(name, std::ios::binary);
  std::array<char, record_length + 3> buffer{};
  std::array<long long, 3> counts{};
  constexpr std::string_view sections = "SGD";
  std::size_t section = 0;
  for (;;) {
    const std::string_view line = next_line(in, buffer);
    const long long number = sequence_number(line);
    if (number == 0) return {};
    const char letter = line[data_columns];
    if (letter != sections[section] && counts.at(section) > 0) ++section;
    if (section == sections.size()) break;
    if (letter != sections[section] || number != ++counts.at(section)) return {};
  }
  DirectoryLines lines;
  lines.m_before = counts[0] + counts[1];
  lines.m_count = counts[2];
  return lines;
}

long long DirectoryLines::line_of(int de_number) const {
  return de_number > 0 && de_number <= m_count ? m_before + de_number : 0;
}
