#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "igs/support/export.h"
#include "igs/support/utString.h"

/// What a free-format field holds, as far as its text tells.
enum class igsFieldKind { empty, integer, real, string, other };

/// The texts of free-format fields (IGES 5.3, section 2.2.2) as they stand in a file, in order. Nothing is converted,
/// so nothing is rounded.
class IGS_API igsFieldTexts {
 public:
  /// Appends the fields that `records`, the data columns of one record after the other, hold from the character `begin`
  /// to the record delimiter or the end; blanks around a field are left out. A string whose count goes beyond the
  /// records ends at the next delimiter and is given the count that it has. Returns the position behind the record
  /// delimiter, or the size of `records` where there is none. `begins`, where given, receives where each field begins.
  std::size_t take(std::string_view records, std::size_t begin, char parameter_delimiter, char record_delimiter,
                   std::vector<std::size_t>* begins = nullptr);
  /// Appends a field. Characters that cannot stand in a record become blanks.
  void append(std::string_view field);

  bool empty() const { return m_text.empty(); }
  /// The fields, valid until the next change.
  std::vector<std::string_view> fields() const;

  /// The index of the first string that was given another count; -1 where none was.
  int first_recounted() const { return m_first_recounted; }

  static igsFieldKind kind(std::string_view field);
  /// The value of an integer field; `otherwise` for any other field and for an integer beyond 32 bits.
  static int integer(std::string_view field, int otherwise);
  /// The value of an integer or real field; -DBL_MAX for any other.
  static double real(std::string_view field);
  /// The text of a string field, without its count; empty for any other.
  static std::string_view string(std::string_view field);

 private:
  utString m_text;  ///< a NUL, which no record holds, ends each field
  int m_first_recounted = -1;
};
