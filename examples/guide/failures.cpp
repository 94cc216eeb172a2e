// What can fail, and what is left then: a file that is cut, a target that cannot be written, memory that runs out.
#include <fstream>
#include <iostream>
#include <sstream>

#include "igs/igs.h"

namespace {

// [why]
/// Why reading ended early, in words.
const char* reason(const igsFile& file) {
  if (file.out_of_memory()) return "memory ran out";
  switch (static_cast<int>(file.read_fault().code)) {
    case 7:
      return "an entity number is bad";
    case 10:
      return "a section letter is missing";
    case 12:
    case 14:
      return "the stream failed";
    case 13:
      return "the records ended";
    default:
      return "a section cannot be used";
  }
}
// [why]

utString text_of(const char* path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace

int main() {
  utOstream messages(std::cerr);
  // [read]
  const utString whole = text_of("bracket.igs");
  std::stringstream cut(whole.substr(0, whole.size() * 9 / 10));
  igsFile file;
  if (file.read(cut, messages) == 0) {
    std::cout << "reading ended after " << file.read_fault().records_before << " records: " << reason(file) << '\n';
  }
  std::cout << file.num_entities() << " entities, "
            << (file.parameter_data_read() != 0 ? "all with their data\n" : "some without their data\n");
  // [read]

  // [write]
  std::ofstream nowhere("no-such-folder/copy.igs", std::ios::binary);
  if (file.write(nowhere, messages) == 0) std::cout << "not written\n";
  // [write]

  // [memory]
  file.check();
  file.clean(0);
  if (file.out_of_memory()) std::cout << "the check and the repair are not complete\n";
  // [memory]
}
