#pragma once

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <vector>

#include "igs/input/igsInStream.h"
#include "igs/support/kelabsOutput.h"

/// What the tests of the input share.
namespace records {

inline std::string right(const std::string& text, std::size_t width) {
  return std::string(width - std::min(width, text.size()), ' ') + text;
}

/// A sound record without its line end; the back-pointer stands in Parameter Data records only.
inline std::string record(char section, int number, std::string data, int backpointer = 1) {
  data.resize(section == 'P' ? 64 : 72, ' ');
  if (section == 'P') data += ' ' + right(std::to_string(backpointer), 7);
  return data + section + right(std::to_string(number), 7);
}
inline std::string line(char section, int number, const std::string& data, int backpointer = 1) {
  return record(section, number, data, backpointer) + "\n";
}

/// Two entities (DE 1 on two records, DE 3 on one) and all that belongs around them, without line ends.
inline std::vector<std::string> small_file() {
  return {record('S', 1, "start"),
          record('G', 1, "1H,,1H;,4HABCD,1Hx,"),
          record('G', 2, right("8H=lon", 72)),
          record('G', 3, "ger;,32;"),
          record('D', 1, "     110       1       0       0       0       0       0       000000000"),
          record('D', 2, "     110       0       0       2       0                        "),
          record('D', 3, "     116       3       0       0       0       0       0       000000000"),
          record('D', 4, "     116       0       0       1       0                   LABEL       7"),
          record('P', 1, "110,1.5,-2.D1, ", 1),
          record('P', 2, "5.0,0.25,1.E2,7.;", 1),
          record('P', 3, "116,1.,2.,3.,0;", 3),
          record('T', 1, "S      1G      3D      4P      3")};
}
inline std::string join(const std::vector<std::string>& lines, const std::string& line_end) {
  std::string text;
  for (const std::string& l : lines) text += l + line_end;
  return text;
}

/// A stream buffer over a text that hands out `step` characters at a time and ends after `size` of them: as at the end
/// of input, or by throwing.
class FailingBuffer : public std::streambuf {
 public:
  FailingBuffer(const std::string& text, std::size_t size, bool throws, std::size_t step)
      : m_text(text), m_size(std::min(size, text.size())), m_throws(throws), m_step(step) {}

 protected:
  int_type underflow() override {
    if (m_taken == m_size) {
      if (m_throws) throw std::runtime_error("the device is gone");
      return traits_type::eof();
    }
    char* const start = m_text.data() + m_taken;
    const std::size_t count = std::min(m_step, m_size - m_taken);
    m_taken += count;
    setg(start, start, start + count);
    return traits_type::to_int_type(*start);
  }

 private:
  std::string m_text;
  std::size_t m_size;
  std::size_t m_taken = 0;
  bool m_throws;
  std::size_t m_step;
};

/// Keeps the messages as "tag|text".
class Messages : public kelabsOutput {
 public:
  std::string texts;

 protected:
  void write(const char* tag, const char* text) override { texts += std::string(tag) + "|" + text; }
};

/// The codes of a list, as "5 9 20".
inline std::string codes(const igsIOErrorcoDynArr& errors) {
  std::string text;
  for (const igsIOError& error : errors) text += (text.empty() ? "" : " ") + std::to_string(error.error_type());
  return text;
}

}  // namespace records
