#pragma once

#include <iosfwd>

#include "igs/input/igsIOError.h"
#include "igs/support/export.h"

/// Hands finished records to the destination stream and notes what goes wrong there: igsIOStreamBad when the stream's
/// bad bit is set or the stream throws, and igsIOStreamFailed when its fail or bad bit is set. A null destination
/// counts as a stream with both set. No exception of the stream escapes.
class IGS_API igsOutBufferPurger {
 public:
  /// The stream is not owned.
  explicit igsOutBufferPurger(std::ostream* destination) : m_destination(destination) {}
  igsOutBufferPurger(const igsOutBufferPurger&) = delete;
  igsOutBufferPurger& operator=(const igsOutBufferPurger&) = delete;
  virtual ~igsOutBufferPurger();

  /// Lines end in CR LF from now on; before, in LF.
  void use_crlf() { m_crlf = true; }
  /// Writes `count` records, each of 80 characters and the end of line after them. Returns how many have been
  /// written whole: on failure less than `count`, the others being cleared to NULs.
  int purge(char* records, int count);
  /// Flushes the present destination, unless it is known to be faulty, and goes on with `destination`. Returns 0 when
  /// the flush failed, else 1.
  int set_destination(std::ostream* destination);

  /// Moves the errors to the end of `errors`.
  void collect_errors(igsIOErrorcoDynArr& errors);
  bool has_errors() const { return !m_errors.empty(); }

 protected:
  bool crlf() const { return m_crlf; }

 private:
  template <class Action>
  int attempt(Action action);
  void set_error(igsIOErrorCode code);

  std::ostream* m_destination;
  igsIOErrorcoDynArr m_errors;
  bool m_crlf = false;
};
