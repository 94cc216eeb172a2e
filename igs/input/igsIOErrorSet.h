#pragma once

#include "igs/input/igsIOError.h"

/// The conditions a part of the stream has met since it was last asked, each at most once.
class igsIOErrorSet {
 public:
  /// Adds a condition.
  void set(igsIOErrorCode code) { m_bits |= bit(code); }
  /// Takes a condition out.
  void erase(igsIOErrorCode code) { m_bits &= ~bit(code); }
  /// True when it is there.
  bool holds(igsIOErrorCode code) const { return (m_bits & bit(code)) != 0; }
  bool empty() const { return m_bits == 0; }
  /// Takes all out.
  void clear() { m_bits = 0; }
  /// Adds those of another set.
  void merge(igsIOErrorSet other) { m_bits |= other.m_bits; }

  /// Appends one error a code, in rising order; their location stays unset.
  void append_to(igsIOErrorcoDynArr& list) const {
    for (int code = 0; code <= igsIOBlankLine; ++code) {
      if (!holds(static_cast<igsIOErrorCode>(code))) continue;
      igsIOError error;
      error.set_error_type(static_cast<igsIOErrorCode>(code));
      error.set_location(igsNoSectionId, 0, 0);
      list.push_back(error);
    }
  }

 private:
  static unsigned bit(igsIOErrorCode code) { return 1U << static_cast<unsigned>(code); }

  unsigned m_bits = 0;
};
