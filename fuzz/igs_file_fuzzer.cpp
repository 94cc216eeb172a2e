// Any bytes at all as a file: read, checked, printed, repaired, written and read back (check_file). The last byte
// chooses the treatment: its lowest bit asks the repair to delete faulty entities, so that a file that ends with a line
// end keeps them; the next one that reals are written with every digit; the others differ from those of a line end
// where an option of the file is on.

#include <cstddef>
#include <cstdint>
#include <string>

#include "invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const unsigned choice = size > 0 ? data[size - 1] : 0U;
  igs_fuzz::Treatment treatment;
  treatment.delete_faulty = (choice & 1) != 0;
  treatment.digits = (choice & 2) != 0 ? 15 : 17;
  const unsigned asked = choice ^ static_cast<unsigned char>('\n');
  treatment.options.keep = (asked & 4) != 0;
  treatment.options.strict = (asked & 8) != 0;
  treatment.options.recover = (asked & 16) != 0;
  treatment.options.lines = (asked & 32) != 0;
  treatment.options.unbounded_lines = (asked & 64) != 0;
  treatment.options.style.shortest_reals = (asked & 128) != 0;
  igs_fuzz::check_file(std::string(data, data + size), treatment);
  return 0;
}
