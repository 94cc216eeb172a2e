#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "igs/support/export.h"
#include "igs/support/utString.h"

/// Turns one value into the pieces of text that the output engine places into records. A piece whose split flag is set
/// may be broken across lines. The encoder of a value keeps the text, so that encoding allocates only until the longest
/// text so far has been met.
class IGS_API igsEncoder {
 public:
  igsEncoder(const igsEncoder&) = delete;
  igsEncoder& operator=(const igsEncoder&) = delete;

  /// Drops the pieces; done before every field.
  void reset() { m_num_pieces = 0; }
  int num_pieces() const { return m_num_pieces; }
  /// Piece `index` (0-based, below num_pieces()), valid until the next value is encoded.
  std::string_view piece(int index) const { return m_pieces[static_cast<std::size_t>(index)].text; }
  bool get_split_flag(int index) const { return m_pieces[static_cast<std::size_t>(index)].may_split; }

 protected:
  static constexpr int max_pieces = 2;

  igsEncoder() = default;
  ~igsEncoder() = default;

  /// Adds a piece, the max_pieces-th at most. Its text is not copied: it has to last until the next reset.
  void append_string(std::string_view piece, int split) {
    m_pieces[static_cast<std::size_t>(m_num_pieces++)] = {piece, split != 0};
  }

 private:
  struct Piece {
    std::string_view text;
    bool may_split = false;
  };

  std::array<Piece, max_pieces> m_pieces;
  int m_num_pieces = 0;
};

/// An integer in decimal, in one piece.
class IGS_API igsIntEncoder : public igsEncoder {
 public:
  /// Characters of the longest integer.
  static constexpr int max_length = 11;

  void encode(int value);
  /// The value encoded last.
  int value() const { return m_value; }

  /// Prints the piece that encode would make of `value` and returns its end. max_length characters from `text` on may
  /// be overwritten.
  static char* print(char* text, int value);

 private:
  int m_value = 0;
  std::array<char, max_length> m_text{};
};

/// A text in one piece, as it stands, but for line feed, carriage return and NUL, which would tear the record apart: a
/// blank takes the place of each.
class IGS_API igsStrEncoder : public igsEncoder {
 public:
  void encode(const utString& value);
  /// The text encoded last, as it was given.
  const utString& value() const { return m_value; }

 private:
  utString m_value;
  utString m_bytes;  // kept for its memory
};

/// A free-format field as it stands (igsFieldTexts); the text of a string may be split.
class IGS_API igsFieldEncoder : public igsEncoder {
 public:
  /// The text is not copied.
  void encode(std::string_view field);
};

/// A text in Hollerith form (IGES 5.3, section 2.2.2.3): its length and "H" in one piece, then the text, which may be
/// split. Characters are replaced as by igsStrEncoder; after that blanks, tabs, vertical tabs and form feeds at the end
/// are dropped, unless all is to be kept. The empty text is "0H".
class IGS_API igsHolerithEncoder : public igsEncoder {
 public:
  void encode(const utString& value, bool keep_all = false);
  /// The text encoded last, as it was given.
  const utString& value() const { return m_value; }

 private:
  utString m_value;
  utString m_bytes;                // kept for its memory
  std::array<char, 24> m_count{};  // the first piece
};
