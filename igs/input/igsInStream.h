#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <memory>

#include "igs/input/igsIOError.h"
#include "igs/input/igsInOptions.h"
#include "igs/support/export.h"
#include "igs/support/utString.h"

class igsDecoder;
class igsInEngine;

/// The reading side of a file: one call per field, then questions about what the field has met.
///
/// Order of use: read a field; ask whether it was given (`error_type(igsIOValuePresent)` or `take_value_present`) and
/// for the other codes of interest; after the last field of a section or an entity call `reset`, which steps over the
/// boundary. A field that is not given, and every field read past the end of an entity or a section, has the value 0
/// or the empty string. Nothing is thrown and nothing is printed on account of the input, apart from two warnings about
/// repaired lines (igsInOptions).
class IGS_API igsInStream {
 public:
  /// Reads and checks the first record. The stream is not owned and must outlive this object; it is read ahead, so that
  /// its position afterwards means nothing.
  explicit igsInStream(std::istream& in, const igsInOptions& options = {});
  ~igsInStream();
  igsInStream(const igsInStream&) = delete;
  igsInStream& operator=(const igsInStream&) = delete;

  /// A free-format integer; a value beyond 32 bits becomes the nearest 32-bit value.
  void read_integer(int& value);
  /// An integer of `width` columns.
  void read_integer(unsigned width, int& value);
  /// Integers of `width` columns each, one after the other.
  void read_integers(unsigned width, std::initializer_list<int*> values);
  /// A free-format real.
  void read_double(double& value);
  /// A Hollerith string.
  void read_holerith(utString& value);
  /// A text of `width` columns.
  void read_string(unsigned width, utString& value);
  /// Passes over `width` columns.
  void skip_columns(unsigned width);

  /// 1 when the fields read since the last field, or since the last question before it, have met any condition; asking
  /// collects the conditions, and a later collection forgets them. Fatal conditions stay for ever.
  int error();
  /// As error(), for one code.
  int error_type(igsIOErrorCode code);
  /// The conditions of error(), each once, with the place where reading stood when they were collected.
  const igsIOErrorcoDynArr& errors();
  /// 1 when the field just read holds a value. Forgets code 0 and no other code, so that one may ask after every field
  /// and ask for the other codes after the last one.
  int take_value_present();
  /// As take_value_present, but forgets nothing.
  int value_present() const;
  /// Asks whether a list may have `count` elements (0 or more) that the records do not supply. All lists of a file
  /// together may have always_granted, and one more for each bytes_per_granted bytes read: a file of a moderate size
  /// cannot claim a large model. Returns 1 and takes them off what is left; 0 when there are not as many left.
  int grant_missing(std::int64_t count);
  /// For all lists of a file, and for its size, as grant_missing says.
  static constexpr std::int64_t always_granted = 65536;
  static constexpr std::int64_t bytes_per_granted = 64;

  /// Forgets the conditions collected so far.
  void clear_errors();
  /// 1 after an error that forbids reading on.
  int fatal_error() const;
  /// True when the records read so far have met the condition, collected and forgotten or not.
  bool ever_met(igsIOErrorCode code) const;

  /// Leaves the frozen state at a boundary (igsInBuffer::reset) and forgets the conditions collected. Returns 1;
  /// returns 0 after a fatal error, the conditions kept.
  int reset();

  /// Section and sequence number of the current record (of the last one at the end of input) and the 0-based column of
  /// the read position.
  void position(igsFileSection& section, int& line, int& column) const;
  /// 1 while a record of this section can be read from; 0 at a boundary and at the end of input. Loops over the records
  /// of a section that ask this question end on every input.
  int in_section(igsFileSection section) const;
  /// Number of records read so far in the section.
  int num_lines(igsFileSection section) const;
  /// DE number of the owner of the current record; 0 for a record outside the Parameter Data section and when there is
  /// no record.
  int backpointer() const;
  /// Length of the current record in characters.
  std::size_t capacity() const;
  /// True when the current record held NUL characters.
  bool nul_in_record() const;
  /// True at a boundary, until `reset`: no more fields are to be had.
  bool frozen() const;
  /// Goes to a boundary's state.
  void freeze();
  /// Drops the rest of the current record and reads the next one, also at a boundary.
  void skip_line();
  /// The delimiters of free-format fields; "," and ";" at first.
  void set_param_delimiter(char delimiter);
  void set_record_delimiter(char delimiter);

  /// A field that needs a decoder of the host's own: as igsInEngine's. What such a decoder has met, its owner asks of
  /// it.
  void configure_for_decode(igsDecoder* decoder);
  void decode();
  void fixed_decode(unsigned width);
  /// Calls `callback` after every record read, in every file of the process (to show progress); null for none.
  static void set_line_read_callback(void (*callback)());
  /// The reader beneath, for whatever else it can do.
  operator igsInEngine&();  // NOLINT(google-explicit-constructor): a stream stands wherever a reader is wanted

 protected:
  /// Collects what the fields read since the last time have met.
  void collect_errors();

 private:
  class Reader;

  std::unique_ptr<Reader> m_reader;
};
