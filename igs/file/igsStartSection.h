#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>

#include "igs/support/export.h"
#include "igs/support/utString.h"

class igsFile;
class igsInStream;
class igsOutStream;
class igsStartError;
class utOstream;

/// The Start section (IGES 5.3, section 2.2.4.2): free text for people, one line a record. A new section holds one
/// empty line. Lines that were read keep the blanks at their end.
class IGS_API igsStartSection {
 public:
  /// A section without a file, or of `owner`, which is not owned.
  igsStartSection() = default;
  explicit igsStartSection(igsFile* owner) : m_owner(owner) {}

  /// Copies the lines and the owner.
  void become(const igsStartSection& other) { *this = other; }

  int num_lines() const { return static_cast<int>(m_lines.size()); }
  /// Copies line `i` (0-based) to `out` and returns 1; returns 0 when there is no such line.
  int line(int i, utString& out) const;
  /// Makes `text` line `i` (0-based), with empty lines in between where there are fewer than `i`, and returns 1.
  /// Refuses with 0: a negative index, one that no sequence number can reach (9999999 and above), an empty text, and
  /// one of more than 72 characters.
  int set_line(int i, const utString& text);
  /// 1 when no line is longer than 72 characters.
  int valid() const;

  void print(utOstream& os) const;

 protected:
  friend class igsFile;

  /// Reads the records up to the next section; the first replaces the empty line. 0 only when the stream cannot go on.
  int read(igsInStream& in);
  /// Writes one record a line. 0 only when the stream cannot go on.
  int write(igsOutStream& out);
  /// Gives the error the message stream of the owner.
  void tag_error(igsStartError* error) const;

 private:
  void set_owner(igsFile* owner) { m_owner = owner; }

  // Files may have millions of short lines: their texts stand in one pool, without the blanks at their end.
  struct Line {
    std::uint64_t at : 48 = 0;  ///< of the text in the pool
    std::uint64_t length : 8 = 0;
    std::uint64_t blanks : 8 = 0;
  };

  utString text_of(const Line& line) const;
  Line pooled(std::string_view text);
  void replace(std::size_t index, std::string_view text);
  void drop_unused_text();

  std::deque<char> m_text;  // deques grow without copies and without room to spare
  std::deque<Line> m_lines{Line()};
  std::size_t m_unused = 0;  ///< characters of the pool that belong to no line any more
  igsFile* m_owner = nullptr;
};
