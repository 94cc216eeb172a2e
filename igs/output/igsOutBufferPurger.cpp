#include "igs/output/igsOutBufferPurger.h"

#include <algorithm>
#include <ostream>
#include <streambuf>

#include "igs/input/private/record.h"

namespace {

/// Sets a state bit of a stream whose `exceptions()` may be enabled.
void set_state(std::ostream& stream, std::ios_base::iostate bit) {
  try {
    stream.setstate(bit);
  } catch (...) {  // the bit is set all the same
  }
}

}  // namespace

igsOutBufferPurger::~igsOutBufferPurger() = default;

/// Performs `action` on the destination's buffer and checks the stream. The buffer is used directly: a formatted or
/// unformatted write through the stream may throw from a destructor, and drops the text without a word when only the
/// end-of-file bit is set.
template <class Action>
int igsOutBufferPurger::attempt(Action action) {
  if (m_destination == nullptr) {
    set_error(igsIOStreamBad);
    set_error(igsIOStreamFailed);
    return 0;
  }
  std::ostream& stream = *m_destination;
  if (!stream.good()) {
    set_state(stream, std::ios_base::failbit);
  } else {
    bool done = false;
    try {
      done = action(*stream.rdbuf());
    } catch (...) {
    }
    if (done) return 1;
    set_state(stream, std::ios_base::badbit);
  }
  if (stream.bad()) set_error(igsIOStreamBad);
  set_error(igsIOStreamFailed);
  return 0;
}

int igsOutBufferPurger::purge(char* records, int count) {
  const std::streamsize line_length = record_length + (m_crlf ? 2 : 1);
  const std::streamsize length = count * line_length;
  std::streamsize written = 0;
  const auto write = [&](std::streambuf& buffer) {
    written = buffer.sputn(records, length);
    return written == length;
  };
  if (attempt(write)) return count;
  const std::streamsize whole = std::clamp<std::streamsize>(written, 0, length) / line_length;
  std::fill(records + whole * line_length, records + length, '\0');
  return static_cast<int>(std::min<std::streamsize>(whole, count - 1));
}

int igsOutBufferPurger::set_destination(std::ostream* destination) {
  int flushed = 1;
  if (m_destination != nullptr && m_destination->good()) {
    flushed = attempt([](std::streambuf& buffer) { return buffer.pubsync() != -1; });
  }
  m_destination = destination;
  return flushed;
}

void igsOutBufferPurger::collect_errors(igsIOErrorcoDynArr& errors) {
  errors.insert(errors.end(), m_errors.begin(), m_errors.end());
  m_errors.clear();
}

void igsOutBufferPurger::set_error(igsIOErrorCode code) { m_errors.emplace_back().set_error_type(code); }
