// What a host needs of headers, flags and linking: a linker that drops object files which nobody names must not drop
// entity classes. They are made, written and read back.
#include <iostream>
#include <sstream>

#include "igs/igs.h"

int main() {
  utOstream messages(std::cerr);
  std::stringstream text;
  igsFile again, file;  // new entities belong to the newest file
  for (const auto& [type, form] :
       {std::pair{igsEntity100, 0}, {igsEntity106, 2}, {igsEntity106, 11}, {igsEntity116, 0}, {igsEntity124, 1}}) {
    igsObject::create(type, form);
  }
  auto* const line = new igs110;
  line->set_start_point(giPoint3(0, 0, 0));
  line->set_end_point(giPoint3(1, 2.5, -3));
  file.check();
  const bool is_read = file.write(text, messages) == 1 && again.read(text, messages) == 1;
  igsFileTypeIT unknown(&again, igsUnknown::type());
  const auto* const copy = igs_cast<igs110>(again.entity(11));
  const bool is_line = copy != nullptr && copy->typeof(igsCurve::type())&& copy->end_point() == line->end_point();
  if (is_read && is_line && ++unknown == 0) return 0;
  std::cerr << "consumer: failed: " << text.str();
  return 1;
}
