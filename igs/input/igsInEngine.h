#pragma once

#include <cstddef>
#include <istream>

#include "igs/input/igsDecoder.h"
#include "igs/input/igsInBuffer.h"
#include "igs/support/export.h"

/// Cuts the data of the records into fields and hands each to the selected decoder.
class IGS_API igsInEngine : public igsInBuffer {
 public:
  explicit igsInEngine(std::istream& in, const igsInOptions& options = {});

  /// Selects the decoder of the next field, which may be a host's own. Not owned; one must be selected before a field
  /// is read.
  void configure_for_decode(igsDecoder* decoder) { m_decoder = decoder; }
  /// Reads a free-format field, which ends behind a delimiter. The record delimiter freezes the reader.
  void decode();
  /// Reads a field of `width` columns. A field that is not one value from its first column to its last is decoded
  /// without its last column.
  void fixed_decode(unsigned width);

  /// Appends the errors of the records and of the selected decoder, then gives every error of the list the present
  /// section, line and column.
  void collect_errors(igsIOErrorcoDynArr& errors);

  /// The delimiters of free-format fields; "," and ";" at first.
  void set_param_delimiter(char delimiter) { m_param_delimiter = delimiter; }
  void set_record_delimiter(char delimiter) { m_record_delimiter = delimiter; }
  char param_delimiter() const { return m_param_delimiter; }
  char record_delimiter() const { return m_record_delimiter; }

 protected:
  /// Gives every error of the list the present section, line and column.
  void stamp(igsIOErrorcoDynArr& errors) const;

  /// True for either delimiter; `ends_record` tells the record delimiter, also when both are the same.
  bool delimiter(char c, int& ends_record) const {
    ends_record = c == m_record_delimiter ? 1 : 0;
    return ends_record != 0 || c == m_param_delimiter;
  }
  bool delimiter_check(int enabled, char c, int& ends_record) const {
    ends_record = 0;
    return enabled != 0 && delimiter(c, ends_record);
  }
  void halt_buffer(int halt) {
    if (halt != 0) freeze();
  }
  /// Steps over a value of `length` columns at the read position and the delimiter behind it; false, nothing done, when
  /// no delimiter of the data follows.
  bool step_over_field(std::size_t length) {
    const char* const behind = cursor() + length;
    int ends_record = 0;
    // The columns behind the data hold digits and a letter, too, which might be a delimiter.
    if (behind >= data_end() || *behind == '\0' || !delimiter(*behind, ends_record)) return false;
    *this += static_cast<unsigned>(length + 1);
    halt_buffer(ends_record);
    return true;
  }
  void pre_decode();
  void slow_decode();
  void fixed_slow_decode(unsigned width);
  bool fixed_fast_decode(unsigned width);

 private:
  igsDecoder* m_decoder = nullptr;
  char m_param_delimiter = ',';
  char m_record_delimiter = ';';
};
