#pragma once

#include <algorithm>
#include <istream>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>

#include "igs/support/utOstream.h"

// The stream buffers of the tests. None takes memory of its own but for what it keeps.
namespace igs_test {

/// Supplies the first `size` bytes of a text that lives elsewhere, at most `step` at a time, and then ends, or throws.
class LimitedInput : public std::streambuf {
 public:
  explicit LimitedInput(std::string_view text, std::size_t size = std::string::npos, bool throws = false,
                        std::size_t step = std::string::npos)
      : m_rest(text.substr(0, size)), m_throws(throws), m_step(step) {}

 protected:
  int_type underflow() override {
    if (m_rest.empty()) return m_throws ? throw std::runtime_error("the device is gone") : traits_type::eof();
    char* const start = const_cast<char*>(m_rest.data());  // never written to
    m_rest.remove_prefix(std::min(m_step, m_rest.size()));
    setg(start, start, const_cast<char*>(m_rest.data()));
    return traits_type::to_int_type(*start);
  }

 private:
  std::string_view m_rest;
  bool m_throws;
  std::size_t m_step;
};

/// Keeps nothing of what is written.
class NoOutput : public std::streambuf {
 protected:
  int_type overflow(int_type character) override { return traits_type::not_eof(character); }
  std::streamsize xsputn(const char* /*bytes*/, std::streamsize size) override { return size; }
};

/// A text to read, and where to write what nobody reads.
struct Streams {
  explicit Streams(std::string_view text) : input(text) {}
  LimitedInput input;
  NoOutput output;
  std::istream in{&input};
  std::ostream out{&output};
  utOstream messages{out};
};

/// Accepts `room` bytes, then fails as a full disk does, or throws. Flushes may fail, too.
class LimitedOutput : public std::streambuf {
 public:
  explicit LimitedOutput(std::size_t room, bool throws = false, bool flush_fails = false)
      : m_room(room), m_throws(throws), m_flush_fails(flush_fails) {}
  std::string text;

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize size) override {
    const std::size_t length = std::min(static_cast<std::size_t>(size), m_room - text.size());
    text.append(bytes, length);
    if (m_throws && length < static_cast<std::size_t>(size)) throw std::runtime_error("the device is gone");
    return static_cast<std::streamsize>(length);
  }
  int_type overflow(int_type c) override {
    const char character = traits_type::to_char_type(c);
    return xsputn(&character, 1) == 1 ? c : traits_type::eof();
  }
  int sync() override { return m_flush_fails ? -1 : 0; }

 private:
  std::size_t m_room;
  bool m_throws, m_flush_fails;
};

}  // namespace igs_test
