#pragma once

// What the text of a written file has to look like, for tests and fuzz targets.

#include <array>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace igs_fuzz {

/// The records of a written text by section letter. Lines without a letter in column 73 go under '?'.
inline std::vector<std::string> records_of(const std::string& text, char section) {
  std::vector<std::string> records;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    const char letter =
        line.size() == 80 && std::string_view("SGDPT").find(line[72]) != std::string_view::npos ? line[72] : '?';
    if (letter == section) records.push_back(line);
  }
  return records;
}

/// The number in `width` columns from column `first` (1-based) on; -1 when they hold anything but a right-justified
/// integer.
inline int number_at(const std::string& record, std::size_t first, std::size_t width) {
  const std::string field = record.substr(first - 1, width);
  const std::size_t begin = field.find_first_not_of(' ');
  if (begin == std::string::npos || field.find_first_not_of("0123456789", begin) != std::string::npos) return -1;
  return std::stoi(field);
}

/// Checks every column rule of a written file: 80 columns, LF ends, letters and their order, sequence numbers,
/// directory entries in pairs, back-pointers, Parameter Data pointers and line counts, Terminate counts. Returns the
/// first fault, or the empty string.
inline std::string column_fault(const std::string& text) {
  if (text.empty() || text.back() != '\n') return "no line end at the end";
  std::array<int, 5> counts{};
  std::size_t section = 0;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    const std::string here = " in [" + line + "]";
    if (line.size() != 80) return "not 80 columns" + here;
    if (line.find_first_of(std::string_view("\0\r", 2)) != std::string::npos) return "control character" + here;
    const std::size_t found = std::string_view("SGDPT").find(line[72]);
    if (found == std::string_view::npos || found < section) return "section letter" + here;
    section = found;
    if (number_at(line, 74, 7) != ++counts[section]) return "sequence number" + here;
  }
  const std::vector<std::string> directory = records_of(text, 'D'), data = records_of(text, 'P'),
                                 terminate = records_of(text, 'T');
  if (counts[0] == 0 || counts[1] == 0) return "no Start or Global section";
  if (directory.size() % 2 != 0) return "odd number of directory records";
  std::size_t next = 0;
  for (std::size_t i = 0; i < directory.size(); i += 2) {
    const std::string here = " in [" + directory[i] + "]";
    const int lines = number_at(directory[i + 1], 25, 8);
    if (directory[i].substr(0, 8) != directory[i + 1].substr(0, 8)) return "entity types differ" + here;
    if (lines < 1 || number_at(directory[i], 9, 8) != static_cast<int>(next + 1)) return "data pointer" + here;
    for (int n = 0; n < lines; ++n, ++next) {
      if (next >= data.size() || data[next][64] != ' ') return "line count" + here;
      if (number_at(data[next], 66, 7) != static_cast<int>(i + 1)) return "back-pointer in [" + data[next] + "]";
    }
  }
  if (next != data.size()) return "parameter data of no entity";
  if (terminate.size() != 1) return "not one Terminate record";
  for (std::size_t i = 0; i < 4; ++i) {
    if (terminate[0][8 * i] != "SGDP"[i] || number_at(terminate[0], 8 * i + 2, 7) != counts[i])
      return "Terminate counts";
  }
  return {};
}

}  // namespace igs_fuzz
