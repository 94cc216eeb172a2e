// Checks a file and prints its errors, log by log, each with its values.
#include <fstream>
#include <iostream>

#include "igs/errors.h"
#include "igs/igs.h"
#include "igs/objects/igsCast.h"

namespace {

// [values]
/// Prints every value that an error carries.
class ValuePrinter : public igsErrorValueVisitor {
 public:
  void value(int number) override { std::cout << ' ' << number; }
  void value(double number) override { std::cout << ' ' << number; }
  void value(const utString& text) override { std::cout << " '" << text << '\''; }
};

void print_error(const igsError& error) {
  std::cout << "  " << error.objtype().name();
  ValuePrinter printer;
  error.visit_values(printer);
  std::cout << '\n';
}
// [values]

// [entity]
/// Errors of entities and of the structure have the DE number of the entity as their key.
void print_entity(const igsFile& file, const igsError& error) {
  if (!error.typeof(igsIndexedError::type())) return;
  const int de = static_cast<const igsIndexedError&>(error).key();
  const igsObject* entity = file.entity(de);  // null when it was dropped
  std::cout << "  DE " << de << ' ' << (entity != nullptr ? entity->name() : "no entity") << '\n';
}
// [entity]

// [logs]
void print_errors(const igsFile& file) {
  constexpr const char* titles[igs_num_section_logs] = {"entities", "structure", "Global", "Start", "Terminate"};
  for (int id = 0; id < igs_num_section_logs; ++id) {
    const igsSimpleSectionLog& log = *file.error_log().get_section_log(static_cast<igsLogID>(id));
    std::cout << titles[id] << ": " << log.num_errors() << '\n';
    igsSimpleSectionLogIT errors(log);
    while (++errors) {
      print_entity(file, *errors());
      print_error(*errors());
    }
  }
}
// [logs]

}  // namespace

int main() {
  utOstream messages(std::cerr);
  std::ifstream in("bracket-faulty.igs", std::ios::binary);
  igsFile file;
  if (file.read(in, messages) == 0) return 1;
  file.check();
  print_errors(file);

  // [kinds]
  igsSimpleSectionLogIT errors(file.error_log().object_log());
  while (++errors) {
    if (!errors()->isa(igs110CoincidentPoints::type())) continue;
    const auto& error = static_cast<const igs110CoincidentPoints&>(*errors());
    std::cout << "DE " << error.key() << " is at most " << error.value<0>() << " long\n";
  }
  // [kinds]
}
