// Makes a line, writes the file and reads it back: what a host needs of headers, flags and linking, and no more.
#include <iostream>
#include <sstream>

#include "igs/igs.h"

namespace {
int failures = 0;

void expect(bool condition, const std::string& what) {
  if (condition) return;
  std::cerr << "consumer: failed: " << what << "\n";
  ++failures;
}

void write_and_read_line(utOstream& messages) {
  igsFile file;
  auto* const line = new igs110;  // belongs to the file
  line->set_start_point(giPoint3(0, 0, 0));
  line->set_end_point(giPoint3(1, 2.5, -3));
  file.check();
  std::stringstream text;
  expect(file.write(text, messages) == 1, "write");
  igsFile again;
  expect(again.read(text, messages) == 1 && again.num_entities() == 1, "read");
  const igsObject* const entity = again.entity(1);
  const bool is_line = entity != nullptr && entity->isa(igs110::type()) && entity->typeof(igsCurve::type());
  expect(is_line && static_cast<const igs110*>(entity)->end_point() == giPoint3(1, 2.5, -3), "the line");
}

// A linker that drops object files which nobody names must not drop entity classes.
void make_entities_that_nobody_names() {
  igsFile file;
  for (const auto& [type, form] :
       {std::pair{igsEntity100, 0}, {igsEntity106, 2}, {igsEntity106, 11}, {igsEntity116, 0}, {igsEntity124, 1}}) {
    expect(!igsFactory::make_one(type, form)->isa(igsUnknown::type()), igsInfoDB::entity_name(type).c_str());
  }
}
}  // namespace

int main() {
  utOstream messages(std::cerr);
  write_and_read_line(messages);
  make_entities_that_nobody_names();
  return failures == 0 ? 0 : 1;
}
