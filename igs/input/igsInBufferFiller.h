#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

#include "igs/input/igsIOErrorSet.h"
#include "igs/input/igsInOptions.h"
#include "igs/support/export.h"
#include "igs/support/igsWritingStyle.h"

class igsInBuffer;
class igsInSource;
class igsPlainRecords;
struct igsRecordMarks;

/// Makes 80-column records of the physical lines of a stream. Repairs tabs, NUL characters (code 19), blank lines (20),
/// lines that were split or run together, missing trailing blanks, shifted section letters and sequence numbers, and a
/// missing or doubled decimal point at the start of a Parameter Data line. Line ends may be LF, CR LF, CR or absent.
class IGS_API igsInBufferFiller {
 public:
  explicit igsInBufferFiller(std::istream& in, const igsInOptions& options = {});
  igsInBufferFiller(const igsInBufferFiller&) = delete;
  igsInBufferFiller& operator=(const igsInBufferFiller&) = delete;
  virtual ~igsInBufferFiller();

  /// Makes the next record the buffer's record and returns 1; 0 when there is none (codes 12 to 14 say why).
  int get(igsInBuffer& buffer);
  /// Forgets the errors and returns 1; returns 0 and keeps them after a fatal one (12, 13, 14).
  int reset();
  /// Appends the errors to the list and forgets them unless one is fatal.
  void collect_errors(igsIOErrorcoDynArr& errors);
  int fatal_error() const { return m_fatal; }
  /// Number of bytes of the file that the records so far were made of; the start of the next record may be among them.
  std::uint64_t bytes_read() const;
  /// What ends the first line, where that was asked for: CR LF or LF; `as_read` where it is not known, as no line feed
  /// is among the first 4096 characters, or was not asked for.
  igsLineEnd first_line_end() const { return m_first_line_end; }
  /// True when the current record held NUL characters.
  bool nul_in_record() const { return m_nul_in_record; }
  /// True when some lines ended with a carriage return alone, and others with a line feed (igsInOptions::recover).
  bool mixed_line_ends() const { return m_lone_cr && m_lf; }
  /// Where `recover` was asked for: how many of the next two lines are records of the section that are numbered on from
  /// `number`; -1 when one of that section has another number.
  int num_numbered_on(igsFileSection section, int number) const;
  /// Every condition met so far, those forgotten meanwhile too.
  igsIOErrorSet ever_met() const { return m_ever_met; }

  /// The delimiters by which damaged lines are told from sound ones; "," and ";" at first. They are independent of the
  /// delimiters of the fields.
  void set_param_delimiter(char delimiter);
  void set_record_delimiter(char delimiter);

 protected:
  /// The errors, as collect_errors hands them over.
  igsIOErrorSet take_errors() {
    const igsIOErrorSet errors = m_errors;
    if (m_fatal == 0) m_errors.clear();
    return errors;
  }
  /// Line of the input on which the last record begins, 1-based; 0 unless lines are counted.
  int line_of_record() const;
  /// The marks of the last record when it needed no repair, else null.
  const igsRecordMarks* plain_marks() const { return m_plain_marks; }

 private:
  void note_line_end();
  bool get_plain(igsInBuffer& buffer);
  void rebuild(std::string& line);
  void settle_continuation();

  int get_line(std::string& line);
  bool drain_overflow(std::string& line);
  bool read_chunk(std::string& line);
  int check_buffer(std::string& line, bool joined);
  void append_cleaned(std::string& line, const char* text, std::size_t length);
  void store_overflow(std::string& line);
  void insert_point(std::string& line);
  void remove_point(std::string& line);
  bool check_for_continuation(const char* text, std::size_t length) const;
  void warn_once(bool& pending, const char* text);
  void set_error(igsIOErrorCode code);

  static bool buffer_empty(const std::string& line);
  static bool looks_like_iges(const std::string& line, std::size_t& letter);
  static void format_buffer(std::string& line);
  static void remove_excess_127s(std::string& line);

  std::unique_ptr<igsInSource> m_source;
  kelabsOutput* m_messages;
  bool m_shortcuts;
  bool m_recover;
  std::size_t m_wanted;  ///< characters that have to be at hand for a record to be recognised, and for a look ahead
  bool m_lines;
  std::uint64_t m_record_begin = 0;  ///< of the last record in the input, where lines are counted
  bool m_lone_cr = false;            ///< noted with m_recover
  bool m_lf = false;
  igsLineEnd m_first_line_end = igsLineEnd::as_read;
  int m_fatal = 0;
  igsIOErrorSet m_errors;
  igsIOErrorSet m_ever_met;
  bool m_nul_in_record = false;
  char m_param_delimiter = ',';
  char m_record_delimiter = ';';
  bool m_continuation = false;
  /// The last record while its continuation flag has not been worked out: few records ever need it.
  char* m_unsettled = nullptr;
  bool m_missing_point_pending = true;
  bool m_two_points_pending = true;
  /// Characters read from the stream that belong to the next record; never more than a few lines.
  std::string m_overflow;
  std::unique_ptr<igsPlainRecords> m_plain_records;
  const igsRecordMarks* m_plain_marks = nullptr;
};
