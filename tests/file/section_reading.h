#pragma once

#include <sstream>
#include <string>

#include "iges_builder.h"
#include "igs/input/igsInStream.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/systemDate.h"

/// What the tests of the sections share: records of one section, and an input stream that stands at the first of them.
namespace igs_test {

/// `data` cut into records of 72 columns.
inline std::string section_records(char letter, const std::string& data) {
  std::string text;
  int number = 0;
  for (std::size_t i = 0; i < data.size(); i += 72) {
    text += left(data.substr(i, 72), 72) + letter + right(++number, 7) + '\n';
  }
  return text;
}

/// An input stream over a text.
class SectionInput {
 public:
  explicit SectionInput(const std::string& text) : m_text(text), in(m_text) { in.reset(); }

 private:
  std::istringstream m_text;

 public:
  igsInStream in;
};

/// Sets the library's clock to 2026-11-21 12:30:59 for its life.
class FixedClock {
 public:
  FixedClock() {
    ut_set_clock([] { return utDateTime{2026, 11, 21, 12, 30, 59}; });
  }
  ~FixedClock() { ut_set_clock(nullptr); }
  FixedClock(const FixedClock&) = delete;
  FixedClock& operator=(const FixedClock&) = delete;
};

/// What a section writes: its records, the delimiter that ends the Global section included.
template <class Write>
std::string written_records(Write write) {
  std::ostringstream text;
  igsOutStream out(&text);
  write(out);
  out.set_section(igsDirectorySectionId);
  return text.str();
}

}  // namespace igs_test
