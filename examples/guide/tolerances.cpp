// Changes tolerances and options, for the process and for one piece of work.
#include <iostream>
#include <numbers>
#include <sstream>

#include "igs/igs.h"

namespace {

// [scope]
/// Gives the tables of the process back as they were.
class KeepOptions {
 public:
  KeepOptions() = default;
  KeepOptions(const KeepOptions&) = delete;
  KeepOptions& operator=(const KeepOptions&) = delete;
  ~KeepOptions() { kel_resource_table_inquire() = m_before; }

 private:
  const coResourceTable m_before = kel_resource_table_inquire();
};
// [scope]

int number_of_errors(const igsFile& file) {
  file.check();
  return file.error_log().object_log().num_errors();
}

utString last_number_written(igsFile& file) {
  std::stringstream text;
  utOstream messages(std::cerr);
  if (file.write(text, messages) == 0) return "";
  const utString written = text.str();
  const auto record = written.find("110,0.,0.,0.,");
  return written.substr(record, written.find(';', record) - record);
}

}  // namespace

int main() {
  igsFile file;
  auto* line = new igs110;
  line->set_start_point(giPoint3(0, 0, 0));
  line->set_end_point(giPoint3(std::numbers::pi * 1e-5, 0, 0));

  // [tolerance]
  std::cout << number_of_errors(file) << " errors\n";
  {
    const KeepOptions keep;
    kel_resource_table_inquire().set_value(kelTolZeroLength, 1e-3);  // in model units
    std::cout << number_of_errors(file) << " error\n";
  }
  // [tolerance]

  // [precision]
  std::cout << last_number_written(file) << '\n';
  kel_resource_table_inquire().set_value(kelOptDoubleGeometricPrecision, 5);
  std::cout << last_number_written(file) << '\n';
  // [precision]

  // [refused]
  if (kel_resource_table_inquire().set_value(kelTolZeroLength, -1) == 0) std::cout << "refused\n";
  if (kel_resource_table_inquire().set_value("kelTolNoSuchKey", 1) == 0) std::cout << "refused\n";
  // [refused]
}
