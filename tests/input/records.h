#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "igs/input/igsInStream.h"
#include "igs/support/kelabsOutput.h"

/// What the tests of the input share.
namespace records {

inline std::string right(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, text.size()), ' ') + text;
}

/// A sound record without its line end; the back-pointer stands in Parameter Data records only.
inline std::string record(char section, int number, std::string data, int backpointer = 1) {
  data.resize(section == 'P' ? 64 : 72, ' ');
  if (section == 'P') data += ' ' + right(std::to_string(backpointer), 7);
  return data + section + right(std::to_string(number), 7);
}
inline std::string line(char section, int number, const std::string& data, int backpointer = 1) {
  return record(section, number, data, backpointer) + "\n";
}

/// Two entities (DE 1 on two records, DE 3 on one) and all that belongs around them, without line ends.
inline std::vector<std::string> small_file() {
  return {record('S', 1, "start"),
          record('G', 1, "1H,,1H;,4HABCD,1Hx,"),
          record('G', 2, right("8H=lon", 72)),
          record('G', 3, "ger;,32;"),
          record('D', 1, "     110       1       0       0       0       0       0       000000000"),
          record('D', 2, "     110       0       0       2       0                        "),
          record('D', 3, "     116       3       0       0       0       0       0       000000000"),
          record('D', 4, "     116       0       0       1       0                   LABEL       7"),
          record('P', 1, "110,1.5,-2.D1, ", 1),
          record('P', 2, "5.0,0.25,1.E2,7.;", 1),
          record('P', 3, "116,1.,2.,3.,0;", 3),
          record('T', 1, "S      1G      3D      4P      3")};
}
inline std::string join(const std::vector<std::string>& lines, const std::string& line_end) {
  std::string text;
  for (const std::string& l : lines) text += l + line_end;
  return text;
}

/// Keeps the messages as "tag|text".
class Messages : public kelabsOutput {
 public:
  std::string texts;

 protected:
  void write(const char* tag, const char* text) override { texts += std::string(tag) + "|" + text; }
};

/// The codes of a list, as "5 9 20".
inline std::string codes(const igsIOErrorcoDynArr& errors) {
  std::string text;
  for (const igsIOError& error : errors) text += (text.empty() ? "" : " ") + std::to_string(error.error_type());
  return text;
}

}  // namespace records
