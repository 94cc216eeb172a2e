#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "igs/support/export.h"
#include "igs/support/utString.h"

/// Turns one value into the pieces of text that the output engine places into records. A piece whose split flag is set
/// may be broken across lines. Encoders keep their strings from field to field, so that encoding allocates only until
/// the longest text so far has been met.
class IGS_API igsEncoder {
 public:
  igsEncoder(const igsEncoder&) = delete;
  igsEncoder& operator=(const igsEncoder&) = delete;

  /// Drops the pieces; done before every field.
  void reset() { m_num_pieces = 0; }
  int num_pieces() const { return static_cast<int>(m_num_pieces); }
  /// Piece `index` (0-based, below num_pieces()), valid until the next append.
  const utString& piece(int index) const { return m_pieces[static_cast<std::size_t>(index)]; }
  bool get_split_flag(int index) const { return m_split_flags[static_cast<std::size_t>(index)]; }

 protected:
  igsEncoder() = default;
  ~igsEncoder() = default;

  void append_string(std::string_view piece, int split);

 private:
  std::vector<utString> m_pieces;   // those beyond m_num_pieces are kept for their memory
  std::vector<bool> m_split_flags;  // parallel to m_pieces
  std::size_t m_num_pieces = 0;
};

/// An integer in decimal, in one piece.
class IGS_API igsIntEncoder : public igsEncoder {
 public:
  void encode(int value);
  /// The value encoded last.
  int value() const { return m_value; }

 private:
  int m_value = 0;
};

/// A text as it stands, in one piece. Line feed, carriage return and NUL would tear the record apart; a blank takes the
/// place of each.
class IGS_API igsStrEncoder : public igsEncoder {
 public:
  void encode(const utString& value);
  /// The text encoded last, as it was given.
  const utString& value() const { return m_value; }

 private:
  utString m_value;
  utString m_bytes;  // kept for its memory
};

/// A text in Hollerith form (IGES 5.3, section 2.2.2.3): its length and "H" in one piece, then the text, which may be
/// split. Characters are replaced as by igsStrEncoder; after that blanks, tabs, vertical tabs and form feeds at the end
/// are dropped. The empty text is "0H".
class IGS_API igsHolerithEncoder : public igsEncoder {
 public:
  void encode(const utString& value);
  /// The text encoded last, as it was given.
  const utString& value() const { return m_value; }

 private:
  utString m_value;
  utString m_bytes;  // kept for its memory
};
