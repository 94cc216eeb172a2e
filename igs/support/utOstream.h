#pragma once

#include <cstddef>
#include <iosfwd>
#include <string_view>
#include <vector>

#include "igs/support/export.h"

class igsObject;
struct igsPrintPlace;

/// An indentable text stream: the target of every `print`. A child writes to the same stream, some tabs further in; the
/// tabs are written before the first text of each line. The stream beneath is never owned and must outlive this object;
/// a child must not outlive the stream it was made from. Numbers print the same in every locale, and reals print with
/// as many digits as it takes to read the same double back.
class IGS_API utOstream {
 public:
  explicit utOstream(std::ostream& target);
  /// A stream `tabs` tabs further in than `parent` (negative counts as 0).
  utOstream(utOstream& parent, int tabs);
  utOstream(const utOstream&) = delete;
  utOstream& operator=(const utOstream&) = delete;
  ~utOstream() = default;

  /// Put a value on the stream. A text may not be null.
  utOstream& operator<<(std::string_view text);
  utOstream& operator<<(const char* text);
  utOstream& operator<<(char character);
  utOstream& operator<<(int value);
  utOstream& operator<<(double value);
  utOstream& operator<<(utOstream& (*manipulator)(utOstream&)) { return manipulator(*this); }

 private:
  friend IGS_API utOstream& utEndl(utOstream&);
  friend class igsObject;

  struct Target {
    std::ostream* stream;
    bool at_line_start;
    int depth = 0;                                 ///< of entities that are printed within each other
    std::vector<igsPrintPlace>* places = nullptr;  ///< of entities that are to be printed later; null for at once
  };
  /// One entity more while it lives.
  class Level {
   public:
    explicit Level(utOstream& os) : m_target(*os.m_target) { ++m_target.depth; }
    ~Level() { --m_target.depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    Target& m_target;
  };

  void write(const char* text, std::size_t length);

  Target m_own;
  Target* m_target;
  int m_tabs;
};

/// Ends the line.
IGS_API utOstream& utEndl(utOstream& os);

/// Anything with a `print(utOstream&)` can be put on the stream.
template <class T>
requires requires(const T& value, utOstream& os) { value.print(os); }
utOstream& operator<<(utOstream& os, const T& value) {
  value.print(os);
  return os;
}
