#include "files/progress.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "igs/igs.h"
#include "igs/input/igsInStream.h"
#include "text/paint.h"
#include "text/text.h"

namespace {

constexpr std::uintmax_t smallest_size = 4U << 20U;
constexpr std::uintmax_t records_between_updates = 1U << 14U;
constexpr std::uintmax_t bytes_a_record = 81;
constexpr const char* erase_line = "\r\x1b[K";

// The callback takes no argument. It is touched by one thread at a time: nothing is shown while there are several.
Progress* shown_now = nullptr;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
bool has_many_files = false;    // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

/// The name, or its end, on so few columns that the line takes no second row, which could not be removed.
std::string short_name(const std::string& name) {
  constexpr std::size_t most_characters = 50;
  std::string text = printable(name);
  if (text.size() <= most_characters) return text;
  std::size_t begin = text.size() - most_characters;
  while (begin < text.size() && utf8_length(std::string_view(text).substr(begin)) == 0) ++begin;
  return "..." + text.substr(begin);
}

}  // namespace

Progress::Progress(const std::string& name, std::uintmax_t size) : m_name(short_name(name)), m_size(size) {
  if (size < smallest_size || has_many_files || shown_now != nullptr || !is_terminal(STDERR_FILENO)) return;
  shown_now = this;
  igsInStream::set_line_read_callback(record_read);
}

void Progress::end() const {
  if (shown_now != this) return;
  igsInStream::set_line_read_callback(nullptr);
  std::cerr << erase_line << std::flush;
  shown_now = nullptr;
}

void Progress::interrupt() {
  if (shown_now != nullptr) std::cerr << erase_line;
}

void Progress::stage(const char* activity) const { show(activity); }

void Progress::record_read() {
  if (++shown_now->m_records % records_between_updates != 0) return;
  const std::uintmax_t percent = shown_now->m_records * bytes_a_record * 100 / shown_now->m_size;
  shown_now->show("reading " + std::to_string(std::min<std::uintmax_t>(percent, 99)) + " %");
}

void Progress::show(const std::string& state) const {
  if (shown_now == this) std::cerr << erase_line << m_name << ": " << state << std::flush;
}

FilesProgress::FilesProgress(std::size_t total) : m_total(total), m_is_on(is_terminal(STDERR_FILENO)) {
  has_many_files = true;
}

FilesProgress::~FilesProgress() {
  hide();
  has_many_files = false;
}

void FilesProgress::show(std::size_t done) const {
  if (m_is_on) std::cerr << erase_line << done << " of " << m_total << " files done" << std::flush;
}

void FilesProgress::hide() const {
  if (m_is_on) std::cerr << erase_line << std::flush;
}
