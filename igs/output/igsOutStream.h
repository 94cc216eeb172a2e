#pragma once

#include <iosfwd>
#include <memory>
#include <string_view>

#include "igs/input/igsFileSection.h"
#include "igs/input/igsIOError.h"
#include "igs/support/export.h"
#include "igs/support/igsWritingStyle.h"
#include "igs/support/utString.h"

/// The writing side of a file: takes one field after the other and packs them into 80-column records (IGES 5.3,
/// section 2.2), with section letters, sequence numbers and back-pointers, on a character output stream.
///
/// Order of use: `set_section`, the section's fields, `reset`. In the Global and Parameter Data sections fields are
/// free format and delimiters go between them by themselves; the record delimiter follows when the section is left
/// (Global) or the next back-pointer is set (Parameter Data, once after every entity). The other sections take fields
/// of fixed width.
///
/// Finished lines go to the destination in blocks, at the latest at the next call that writes no field.
///
/// Nothing is thrown on account of the destination, not even by one whose `exceptions()` are enabled. A fault of the
/// destination (codes 12 and 14), a sequence number above 9999999 (15) or such a back-pointer (16) freezes the stream:
/// whatever is written after it is dropped until `reset` succeeds.
class IGS_API igsOutStream {
 public:
  /// Writes to `destination`, which is not owned and must outlive this object or be replaced before it ends. A null
  /// pointer counts as a stream whose bad bit is set.
  explicit igsOutStream(std::ostream* destination);
  igsOutStream(const igsOutStream&) = delete;
  igsOutStream& operator=(const igsOutStream&) = delete;
  /// Writes out a partly filled line, without a delimiter and without flushing the destination. Never throws.
  ~igsOutStream();

  /// A free-format integer.
  void write_integer(int value);
  /// An integer right-justified in `width` columns. One that does not fit leaves its field blank, which reads as
  /// "not given".
  void write_integer(int width, int value);
  /// A free-format real, in the number format that was pushed last. NaN and infinity have no form in IGES; they are
  /// written as "NAN." and "INF." (with a sign where they have one), which no reader takes for a number.
  void write_double(double value);
  /// A Hollerith string ("5HHello"), without white space at its end; it may run on over several lines.
  void write_holerith(const utString& value);
  /// Has strings keep the white space at their end, and reals that were never set (-DBL_MAX) become empty fields, so
  /// that what was read is what is written. Off at first.
  void set_exact(bool exact);
  bool exact() const;
  /// A free-format field as igsFieldTexts holds it.
  void write_field(std::string_view field);
  /// Has `comment` stand behind the next record delimiter, where readers pass over it.
  void set_comment(const utString& comment);
  /// A text right-justified in `width` columns, cut off after `width` characters.
  void write_string(int width, const utString& value);
  /// Fields of fixed width that have been put together already (FixedColumns), as they stand.
  void write_columns(std::string_view columns);

  /// To be given before anything is written. `as_read` counts as the default.
  void set_style(const igsWritingStyle& style);
  /// Formats reals with up to `precision` significant digits (0 counts as 1; -1 for the fewest that read back as the
  /// same double) until the matching pop. `width` is the
  /// column width of the conversion; its padding is dropped again, so it changes nothing. The format in force at first
  /// comes from the options kelOptDoubleFieldWidth and kelOptDoubleGeometricPrecision at construction.
  void push_double_format(int width, int precision);
  /// Back to the format before the last push; the first format stays.
  void pop_double_format();

  /// Begins a section: ends the Global section's record if that was the current one, writes out a partly filled line,
  /// counts the lines of `section` from 0 again and, for Parameter Data, sets the back-pointer to 1.
  void set_section(igsFileSection section);
  /// Ends the entity's record with the record delimiter, writes out its last line and stamps the following lines with
  /// `backpointer` (the DE number of the next entity).
  void set_backpointer(int backpointer);
  /// As set_backpointer and reset, for entities one behind the other: a fault of the destination may come out only when
  /// later ones are written, or at the next call of any other function that writes no field. Returns the number of
  /// lines that the section has so far; -1 where reset would return 0.
  int end_entity(int backpointer);
  /// Writes out a partly filled line, flushes the present destination and goes on with `destination` (as for the
  /// constructor). A flush that fails counts as a fault of the stream.
  void set_destination(std::ostream* destination);
  /// The delimiter between fields and the one that ends a record; "," and ";" at first.
  void set_delimiters(const utString& parameter_delimiter, const utString& record_delimiter);

  /// Lines written in `section` since it was last begun; 0 for igsNoSectionId.
  int num_lines(igsFileSection section) const;

  /// 1 when a fault has been met since the errors were last cleared, else 0. Asking collects the faults: a fault of the
  /// destination, once asked for, no longer keeps `reset` from succeeding.
  int error();
  /// As error(), for one code.
  int error_type(igsIOErrorCode code);
  /// Writes out a partly filled line unless its record still waits for a delimiter, and makes a frozen stream usable
  /// again. Returns 1 and clears the errors; returns 0, the errors kept, while a fault of the destination has not been
  /// asked for, and for ever after codes 15 and 16.
  int reset();
  /// Forgets the faults collected so far.
  void clear_errors();

 private:
  struct State;

  void collect_errors();

  std::unique_ptr<State> m_state;
};
