#pragma once

#include <iosfwd>
#include <string_view>

#include "igs/output/igsOutBuffer.h"
#include "igs/support/export.h"
#include "igs/support/utString.h"

class igsEncoder;

/// Places the pieces of encoded fields into records and writes the delimiters between them.
///
/// In the delimited sections (Global and Parameter Data) the parameter delimiter is written just before the next
/// field, directly behind the last one, because only then is it known not to be the record delimiter. A field keeps one
/// column beyond its own for it, so that a delimiter never begins a line on which its field does not stand; a split
/// piece that ends with its line is the exception.
class IGS_API igsOutEngine : public igsOutBuffer {
 public:
  explicit igsOutEngine(std::ostream* destination) : igsOutBuffer(destination) {}

  /// Selects the encoder whose pieces the next fields take. It is not owned; null gives empty fields.
  void set_encoder(const igsEncoder* encoder) { m_encoder = encoder; }

  /// Writes a free-format field.
  void encode();
  /// As encode(), for a field of one piece that is not split. `print` puts the piece, of at most scratch_length - 1
  /// characters, where it is told and returns its end; as many may be overwritten.
  template <class Print>
  void encode_printed(Print print) {
    char* const begin = position();
    *begin = m_parameter_delimiter[0];  // of an empty one, NUL, which is not kept
    char* const piece = begin + (m_delimiter_pending ? 1 : 0);
    const char* const end = print(piece);
    if (m_is_plain_delimiter && keep_printed(end - begin, end - begin + (m_delimited_section ? 1 : 0))) {
      m_delimiter_pending = m_delimited_section;
    } else {
      encode_copy(piece, end - piece);
    }
  }
  /// Writes a field right-justified in `width` columns; pieces are cut off after `width` characters.
  void fixed_encode(int width);
  /// Writes the columns of several fields of fixed width.
  void write_columns(std::string_view columns) { write_split(columns); }

  void set_delimiters(const utString& parameter_delimiter, const utString& record_delimiter);
  /// A text that is to stand behind the next record delimiter.
  void set_comment(const utString& comment);

  /// Ends the record of the Global section, if that is the current one, and begins `section`.
  void set_section(igsFileSection section);
  /// Ends the record of an entity; the next one has the back-pointer `backpointer`.
  void set_backpointer(int backpointer);
  /// As set_backpointer, for igsOutBuffer::begin_backpointer.
  int begin_backpointer(int backpointer);
  /// As igsOutBuffer::reset, but a sound line whose last field waits for its delimiter stays, so that the delimiter
  /// can follow the field directly.
  int reset();

  /// Moves all errors to the end of `errors` and stamps every error there with the present section, sequence number and
  /// column.
  void collect_errors(igsIOErrorcoDynArr& errors);

 private:
  void write_pending_delimiter();
  void end_record();
  void write_piece(std::string_view piece, bool may_split, bool is_last);
  void encode_copy(const char* piece, std::ptrdiff_t length);

  const igsEncoder* m_encoder = nullptr;
  utString m_parameter_delimiter = ",";
  utString m_record_delimiter = ";";
  utString m_comment;
  bool m_is_plain_delimiter = true;  // one character
  bool m_delimited_section = false;
  bool m_delimiter_pending = false;  // only ever in a delimited section
};
