#pragma once

#include <string>
#include <string_view>

/// When reports are coloured: on a terminal unless NO_COLOR (https://no-color.org) is set, always, or never.
enum class ColorMode { automatic, always, never };

enum class Ink { heading, good, doubtful, bad };

/// Whether a standard stream is one.
bool is_terminal(int descriptor);

/// Gives parts of a text report a colour, or leaves them as they are.
class Paint {
 public:
  Paint() = default;
  /// For reports that go to `descriptor`.
  Paint(ColorMode mode, int descriptor);

  std::string operator()(Ink ink, std::string_view text) const;

 private:
  bool m_is_on = false;
};
