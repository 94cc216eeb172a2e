#include "paint.h"

#include <unistd.h>

#include <cstdlib>

namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): there is one thread
  return value != nullptr ? value : "";
}

bool shows_colors(int descriptor) {
  return isatty(descriptor) != 0 && variable("NO_COLOR").empty() && variable("TERM") != "dumb";
}

constexpr std::string_view code_of(Ink ink) {
  if (ink == Ink::heading) return "\x1b[1m";
  return ink == Ink::good ? "\x1b[32m" : "\x1b[31m";
}

}  // namespace

Paint::Paint(ColorMode mode, int descriptor)
    : m_is_on(mode == ColorMode::always || (mode == ColorMode::automatic && shows_colors(descriptor))) {}

std::string Paint::operator()(Ink ink, std::string_view text) const {
  constexpr std::string_view plain = "\x1b[0m";
  if (!m_is_on || text.empty()) return std::string(text);
  return std::string(code_of(ink)).append(text).append(plain);
}
