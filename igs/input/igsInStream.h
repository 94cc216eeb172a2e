#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <istream>
#include <utility>

#include "igs/input/igsDoubleDecoder.h"
#include "igs/input/igsHolerithDecoder.h"
#include "igs/input/igsInEngine.h"
#include "igs/input/igsIntDecoder.h"
#include "igs/input/igsStrDecoder.h"
#include "igs/support/export.h"
#include "igs/support/utString.h"

/// The reading side of a file: one call per field, then questions about what the field has met.
///
/// Order of use: read a field; ask whether it was given (`error_type(igsIOValuePresent)` or `take_value_present`) and
/// for the other codes of interest; after the last field of a section or an entity call `reset`, which steps over the
/// boundary. A field that is not given, and every field read past the end of an entity or a section, has the value 0
/// or the empty string. Nothing is thrown and nothing is printed on account of the input, apart from two warnings about
/// repaired lines (igsInOptions).
class IGS_API igsInStream : public igsInEngine {
 public:
  /// Reads and checks the first record. The stream is not owned and must outlive this object; it is read ahead, so that
  /// its position afterwards means nothing.
  explicit igsInStream(std::istream& in, const igsInOptions& options = {});

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
  /// As read_string of `width` columns, a multiple of 8, that are all blank; returns false, nothing done, where they
  /// are not, or there are not as many.
  bool take_blanks(unsigned width);
  /// Passes over `width` columns.
  void skip_columns(unsigned width) {
    begin_field(0);
    *this += static_cast<unsigned>(std::min(static_cast<std::ptrdiff_t>(width), record_end() - cursor()));
  }

  /// 1 when the fields read since the last field, or since the last question before it, have met any condition; asking
  /// collects the conditions, and a later collection forgets them. Fatal conditions stay for ever.
  int error();
  /// As error(), for one code.
  int error_type(igsIOErrorCode code) {
    if (!m_collected) collect_errors();
    if (fatal_error() != 0) m_collected_errors.merge(take_errors());  // whenever they were met
    return m_collected_errors.holds(code) ? 1 : 0;
  }
  /// The conditions of error(), each once, with the place where reading stood when they were collected.
  const igsIOErrorcoDynArr& errors();
  using igsInEngine::collect_errors;
  /// 1 when the field just read holds a value. Forgets code 0 and no other code, so that one may ask after every field
  /// and ask for the other codes after the last one.
  int take_value_present();
  /// As take_value_present, but forgets nothing.
  int value_present() const { return m_value_present; }
  /// Asks whether a list may have `count` elements (0 or more) that the records do not supply. All lists of a file
  /// together may have always_granted, and one more for each bytes_per_granted bytes read: a file of a moderate size
  /// cannot claim a large model. Returns 1 and takes them off what is left; 0 when there are not as many left.
  int grant_missing(std::int64_t count);
  /// For all lists of a file, and for its size, as grant_missing says.
  static constexpr std::int64_t always_granted = 65536;
  static constexpr std::int64_t bytes_per_granted = 64;

  /// Whether a free-format field since the last question was anything but a number, or nothing, from one delimiter to
  /// the next: a string, a number with other characters, a field that its record does not have.
  bool take_met_odd_field() { return std::exchange(m_met_odd_field, false); }

  /// Forgets the conditions collected so far.
  void clear_errors() { m_collected_errors.clear(); }
  /// Leaves the frozen state at a boundary (igsInBuffer::reset) and forgets the conditions collected. Returns 1;
  /// returns 0 after a fatal error, the conditions kept.
  int reset();

 protected:
  /// Collects what the fields read since the last time have met.
  void collect_errors();

 private:
  void begin_field(int value_present) {
    m_collected = false;
    m_value_present = value_present;
  }
  void note_value() {
    m_field_errors.set(igsIOValuePresent);
    m_value_present = 1;
  }
  bool read_plain_integer(int& value);
  bool read_plain_double(double& value);
  int* const* read_plain_columns(int* const* value, int* const* end);
  bool read_plain_pairs(std::initializer_list<int*> values);
  bool end_fast_field(std::size_t length);
  template <class Decoder, class Decode>
  decltype(auto) decoded(Decoder& decoder, Decode decode);

  igsIntDecoder m_integer;
  igsDoubleDecoder m_real;
  igsHolerithDecoder m_hollerith;
  igsStrDecoder m_string;
  igsIOErrorSet m_field_errors;  ///< of the fields since they were last collected
  igsIOErrorSet m_collected_errors;
  igsIOErrorcoDynArr m_error_list;  ///< m_collected_errors with their place, filled by errors()
  igsFileSection m_collected_section = igsStartSectionId;
  int m_collected_line = 0;
  int m_collected_column = 0;
  bool m_collected = false;
  int m_value_present = 0;
  bool m_met_odd_field = false;
  std::int64_t m_granted = 0;  ///< list elements that no record supplied
};
