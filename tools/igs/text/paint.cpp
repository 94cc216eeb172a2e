#include "text/paint.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): there is one thread
  return value != nullptr ? value : "";
}

/// Whether the terminals of this system take the codes for colours.
bool has_color_codes() {
#if defined(_WIN32)
  return !variable("WT_SESSION").empty() || !variable("TERM").empty();  // the old console shows them as text
#else
  return variable("TERM") != "dumb";
#endif
}

bool shows_colors(int descriptor) {
  return is_terminal(descriptor) && variable("NO_COLOR").empty() && has_color_codes();
}

constexpr std::string_view code_of(Ink ink) {
  if (ink == Ink::heading) return "\x1b[1m";
  if (ink == Ink::doubtful) return "\x1b[33m";
  return ink == Ink::good ? "\x1b[32m" : "\x1b[31m";
}

}  // namespace

bool is_terminal(int descriptor) {
  // As WebAssembly isatty says so of every standard stream.
  struct stat status {};
  return isatty(descriptor) != 0 && fstat(descriptor, &status) == 0 && S_ISCHR(status.st_mode);
}

Paint::Paint(ColorMode mode, int descriptor)
    : m_is_on(mode == ColorMode::always || (mode == ColorMode::automatic && shows_colors(descriptor))) {}

std::string Paint::operator()(Ink ink, std::string_view text) const {
  constexpr std::string_view plain = "\x1b[0m";
  if (!m_is_on || text.empty()) return std::string(text);
  return std::string(code_of(ink)).append(text).append(plain);
}
