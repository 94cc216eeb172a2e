// Makes a file with one line, writes it, reads it back and reports what a check finds.
#include <iostream>
#include <sstream>

#include "igs/igs.h"

int main() {
  utOstream messages(std::cerr);
  std::stringstream text;
  {
    igsFile drawing;          // new entities belong to the newest file
    auto* line = new igs110;  // ... which owns them
    line->set_start_point(giPoint3(0, 0, 0));
    line->set_end_point(giPoint3(100, 0, 0));
    if (drawing.write(text, messages) == 0) return 1;
  }
  igsFile copy;
  if (copy.read(text, messages) == 0) return 1;
  copy.check();
  igsSimpleSectionLogIT errors(copy.error_log().get_section_log(igsObjectLog));
  while (++errors) std::cout << errors()->objtype().name() << '\n';
  std::cout << copy.num_entities() << " entity, " << copy.entity(1)->name() << '\n';
}
