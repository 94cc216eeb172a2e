#include "igs/support/systemDate.h"

#include <chrono>
#include <ctime>

namespace {
utDateTime system_clock_date() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm parts{};
#if defined(_WIN32)
  gmtime_s(&parts, &now);
#else
  gmtime_r(&now, &parts);
#endif
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

utDateTime (*current_clock)() = system_clock_date;
}  // namespace

utDateTime ut_today() { return current_clock(); }

void ut_set_clock(utDateTime (*clock)()) { current_clock = clock != nullptr ? clock : system_clock_date; }
