#pragma once

#include <vector>

#include "igs/input/igsFileSection.h"

/// Conditions met while reading and writing fields and records. The values are part of the interface and never change.
enum igsIOErrorCode : int {
  igsIOValuePresent = 0,          ///< the field holds a value; also: a real with characters left over
  igsIOBlankInValue = 1,          ///< a blank inside a value
  igsIOExtraCharacters = 2,       ///< an integer with characters left over; text after a Hollerith count below 1
  igsIOReserved3 = 3,             ///< not raised
  igsIOSplitValue = 4,            ///< a value split across a record end
  igsIONextEntity = 5,            ///< the back-pointer changed: the next entity's parameter data begins
  igsIONextSection = 6,           ///< the section changed
  igsIOBadBackPointer = 7,        ///< back-pointer field is not a 7-character number (fatal)
  igsIOBadSequenceNumber = 8,     ///< sequence number field is not a 7-character number
  igsIOSequenceOutOfOrder = 9,    ///< sequence number out of order, in a section other than Start
  igsIONoSectionLetter = 10,      ///< no section letter in column 73 (fatal)
  igsIOReserved11 = 11,           ///< fatal; not raised
  igsIOStreamBad = 12,            ///< the stream's bad bit is set (fatal)
  igsIOEndOfInput = 13,           ///< end of input with no record (fatal)
  igsIOStreamFailed = 14,         ///< the stream's fail or bad bit is set (fatal)
  igsIOSequenceTooLarge = 15,     ///< output: a sequence number exceeds 9999999
  igsIOBackPointerTooLarge = 16,  ///< output: a back-pointer exceeds 9999999
  igsIONotANumber = 17,           ///< a real that is not a number
  igsIOStartOutOfOrder = 18,      ///< sequence number out of order in the Start section
  igsIONullCharacter = 19,        ///< a NUL character was replaced by a blank
  igsIOBlankLine = 20             ///< a blank physical line was skipped
};

/// A condition with its place. Not a logged error: a record of the input or output stream, copied by value. The
/// constructor leaves the fields unset.
class igsIOError {
 public:
  igsIOError() {}  // NOLINT(modernize-use-equals-default): the fields stay unset on purpose

  igsIOErrorCode error_type() const { return m_type; }
  void set_error_type(igsIOErrorCode type) { m_type = type; }

  /// `line` is the record's sequence number, `column` the 0-based offset of the stream's position within the record.
  void set_location(igsFileSection section, int line, int column) {
    m_section = section;
    m_line = line;
    m_column = column;
  }
  igsFileSection section() const { return m_section; }
  int line() const { return m_line; }
  int column() const { return m_column; }

 private:
  igsIOErrorCode m_type;
  igsFileSection m_section;
  int m_line;
  int m_column;
};

using igsIOErrorcoDynArr = std::vector<igsIOError>;
