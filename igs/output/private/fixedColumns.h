#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "igs/input/private/record.h"
#include "igs/output/private/decimalDigits.h"

/// Fields of fixed width put side by side, in the form that igsOutStream::write_integer(width, value) and write_string
/// give them: for records that are written again and again. The fields take `Size` columns at most.
template <std::size_t Size>
class FixedColumns {
 public:
  /// `width` 1 to 8.
  void add_integer(int width, int value) {
    if (!print_right_justified(m_end, width, value)) std::memset(m_end, ' ', static_cast<std::size_t>(width));
    m_end += width;
  }
  void add_character(char c) { *m_end++ = c; }
  void add_text(int width, std::string_view text) {
    const auto columns = static_cast<std::size_t>(width);
    text = text.substr(0, columns);
    std::memset(m_end, ' ', columns);
    m_end += width;
    if (text.empty()) return;
    std::transform(text.begin(), text.end(), m_end - text.size(), record_character);
  }
  std::string_view text() const { return {m_text.data(), static_cast<std::size_t>(m_end - m_text.data())}; }

 private:
  static constexpr std::size_t overrun = 8;  // of a printed integer

  std::array<char, Size + overrun> m_text;
  char* m_end = m_text.data();
};
