// What a host may ask of a file beyond the documented behaviour.

#include <gmock/gmock.h>

#include "fuzz/invariants.h"
#include "iges_builder.h"
#include "igs/igs.h"
#include "igs/objects/igsKeptParts.h"

namespace igs_test {
namespace {

struct ReadFile {
  ReadFile(const std::string& text, igsFileOptions options) {
    file.set_options(options);
    read = read_text(file, text);
  }
  /// Class, DE number and values of what reading has found.
  std::string found() {
    std::string all;
    for (const std::string& error : active_errors(file)) all += (all.empty() ? "" : "; ") + error;
    return all;
  }
  igsFile file;
  int read;
};

std::string data_of(const std::string& text, int de) {
  std::string data;
  for (const std::string& record : records_of(text, 'P')) {
    if (igs_fuzz::number_at(record, 66, 7) == de) data += record.substr(0, 64);
  }
  return data.substr(0, data.find_last_not_of(' ') + 1);
}

/// A line (1) in a group (3), with a name (5), a faulty tail (7), a comment (9) and a structure (11), on a named level.
IgesBuilder kept_sample() {
  IgesBuilder builder;
  builder.entity(110, 0, "0.,0.,0.,1.,0.,0.,1,3,1,5");
  builder.entity(402, 7, "1,1");
  builder.entity(406, 15, "1,5HA;B  ");
  builder.entity(116, 0, "1.,2.,3.,0,0,0,17");
  builder.entity(116, 0, "1.,2.,3.,0").structure = 0;
  return builder;
}

}  // namespace
}  // namespace igs_test
