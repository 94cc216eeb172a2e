// Any bytes at all as a file: read, checked, printed, repaired, written and read back (check_file). The last byte
// chooses the treatment: its lowest bit asks the repair to delete faulty entities, so that a file that ends with a line
// end keeps them; the next one that reals are written with every digit.

#include <cstddef>
#include <cstdint>
#include <string>

#include "invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const unsigned choice = size > 0 ? data[size - 1] : 0U;
  igs_fuzz::Treatment treatment;
  treatment.delete_faulty = (choice & 1) != 0;
  treatment.digits = (choice & 2) != 0 ? 15 : 17;
  igs_fuzz::check_file(std::string(data, data + size), treatment);
  return 0;
}
