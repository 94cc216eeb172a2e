#include "progress.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "igs/igs.h"
#include "igs/input/igsInStream.h"
#include "text.h"

namespace {

constexpr std::uintmax_t smallest_size = 4U << 20U;
constexpr std::uintmax_t records_between_updates = 1U << 14U;
constexpr std::uintmax_t bytes_a_record = 81;
constexpr const char* erase_line = "\r\x1b[K";

// The callback takes no argument.
Progress* shown = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace

Progress::Progress(const std::string& name, std::uintmax_t size) : m_name(printable(name)), m_size(size) {
  if (size < smallest_size || shown != nullptr || isatty(STDERR_FILENO) == 0) return;
  shown = this;
  igsInStream::set_line_read_callback(record_read);
}

void Progress::end() const {
  if (shown != this) return;
  igsInStream::set_line_read_callback(nullptr);
  std::cerr << erase_line << std::flush;
  shown = nullptr;
}

void Progress::stage(const char* activity) const { show(activity); }

void Progress::record_read() {
  if (++shown->m_records % records_between_updates != 0) return;
  const std::uintmax_t percent = shown->m_records * bytes_a_record * 100 / shown->m_size;
  shown->show("reading " + std::to_string(std::min<std::uintmax_t>(percent, 99)) + " %");
}

void Progress::show(const std::string& state) const {
  if (shown == this) std::cerr << erase_line << m_name << ": " << state << std::flush;
}
