// Makes a line, writes the file and reads it back: what a host needs of headers, flags and linking, and no more.
#include <cstdio>
#include <iostream>
#include <sstream>

#include "igs/igs.h"

namespace {
int failures = 0;

void expect(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "consumer: failed: %s\n", what);
  ++failures;
}

std::string written_line(utOstream& messages) {
  igsFile file;
  auto* const line = new igs110;  // belongs to the file
  line->set_start_point(giPoint3(0, 0, 0));
  line->set_end_point(giPoint3(1, 2.5, -3));
  file.check();
  std::ostringstream out;
  expect(file.write(out, messages) == 1, "write");
  return out.str();
}

void read_line(const std::string& text, utOstream& messages) {
  igsFile file;
  std::istringstream in(text);
  expect(file.read(in, messages) == 1, "read");
  expect(file.num_entities() == 1, "one entity");
  const igsObject* const entity = file.entity(1);
  expect(entity != nullptr && entity->isa(igs110::type()) && entity->typeof(igsCurve::type()), "the line is a curve");
  if (failures != 0) return;
  const auto* const line = static_cast<const igs110*>(entity);
  expect(line->start_point() == giPoint3(0, 0, 0), "start point");
  expect(line->end_point() == giPoint3(1, 2.5, -3), "end point");
}

// A linker that drops object files which nobody names must not drop entity classes.
void make_entities_that_nobody_names() {
  igsFile file;
  for (const auto& [type, form] :
       {std::pair{igsEntity100, 0}, {igsEntity106, 2}, {igsEntity106, 11}, {igsEntity116, 0}, {igsEntity124, 1}}) {
    const igsObject* const entity = igsFactory::make_one(type, form);
    expect(!entity->isa(igsUnknown::type()), igsInfoDB::entity_name(type).c_str());
  }
}
}  // namespace

int main() {
  utOstream messages(std::cerr);
  const std::string text = written_line(messages);
  read_line(text, messages);
  make_entities_that_nobody_names();
  return failures == 0 ? 0 : 1;
}
