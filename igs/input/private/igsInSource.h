#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <istream>
#include <memory>

/// The characters of an input stream, taken in blocks from its stream buffer. The conditions of the stream become
/// visible only when somebody looks past the last character, as if every line had been read from the stream by itself;
/// the stream's own position runs ahead. Nothing is thrown: a stream buffer that throws counts as the bad bit, and a
/// stream whose exceptions() are enabled keeps them to itself.
class igsInSource {
 public:
  /// The stream is not owned and must outlive this object. A stream that is not good is never read.
  explicit igsInSource(std::istream& in, bool count_lines = false);

  /// Makes `wanted` characters available, at most `max_required`, where the stream still has as many, and returns how
  /// many there are. Whatever was handed out before may be overwritten.
  std::size_t require(std::size_t wanted) {
    while (available() < wanted && read_more()) {
    }
    return available();
  }
  static constexpr std::size_t max_required = 4096;

  /// The characters not yet consumed, as far as they are available. They may be changed once they are consumed.
  char* data() { return m_cursor; }
  std::size_t available() const { return static_cast<std::size_t>(m_limit - m_cursor); }
  /// Steps over `count` available characters.
  void consume(std::size_t count) { m_cursor += count; }

  /// Number of characters consumed so far.
  std::uint64_t position() const { return m_num_read - available(); }

  /// The line, counted from 1, of the character at this position, where lines are counted: LF, CR LF and CR end one.
  /// The position may not be before that of the last question.
  int line_at(std::uint64_t position);

  /// True when there is a further character; otherwise the condition that ended the stream becomes visible.
  bool look_ahead();

  bool good() const { return m_state == std::ios_base::goodbit; }
  bool eof() const { return (m_state & std::ios_base::eofbit) != 0; }
  bool bad() const { return (m_state & std::ios_base::badbit) != 0; }
  /// The fail or the bad bit.
  bool fail() const { return (m_state & (std::ios_base::failbit | std::ios_base::badbit)) != 0; }

 private:
  bool read_more();
  void note_lines(const char* text, std::size_t length);

  std::istream& m_in;
  std::ios_base::iostate m_state;
  std::ios_base::iostate m_ending = std::ios_base::goodbit;  ///< what ended the stream; good while it goes on
  std::unique_ptr<char[]> m_block;
  char* m_cursor;
  char* m_limit;
  std::uint64_t m_num_read = 0;  ///< characters taken from the stream
  bool m_count_lines;
  bool m_after_cr = false;                  ///< the last character was a carriage return
  std::deque<std::uint64_t> m_line_begins;  ///< of the lines behind the one that was asked for last
  int m_line = 1;                           ///< that line
};
