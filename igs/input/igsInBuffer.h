#pragma once

#include <cstddef>
#include <istream>
#include <string>
#include <utility>
#include <vector>

#include "igs/input/igsInBufferChecker.h"
#include "igs/input/igsInBufferFiller.h"
#include "igs/support/export.h"

/// The current record of a file and a read position in its data. Steps from record to record by itself, but freezes at
/// the first record of the next section, at the first record of the next entity in the Parameter Data section, at a bad
/// record and at the end of input: from then on only NUL is read, until `reset` leaves the frozen state.
class IGS_API igsInBuffer : public igsInBufferFiller {
 public:
  using line_read_callback = void (*)();

  /// Reads and checks the first record. The stream is not owned and must outlive this object; it is read ahead.
  explicit igsInBuffer(std::istream& in, const igsInOptions& options = {});
  ~igsInBuffer() override;

  /// The character at the read position; NUL when frozen. The end of a Global record reads as one line feed.
  char operator*() const { return *m_position; }
  igsInBuffer& operator++() { return *this += 1; }
  /// Advances by `count` columns, and to the next record when that reaches the end of the data. No effect when frozen.
  igsInBuffer& operator+=(unsigned count) {
    if (m_frozen) return *this;
    if (static_cast<std::ptrdiff_t>(count) < m_end - m_position) {
      m_position += count;
    } else {
      get_next_line();
    }
    return *this;
  }

  void freeze();
  bool frozen() const { return m_frozen; }
  /// Leaves the frozen state, stepping over what is left of the current record: the record that caused the freeze
  /// becomes the current one. Clears the errors of the records stepped over. Returns 1; returns 0 and stays frozen
  /// after a fatal error.
  int reset();
  /// Drops the rest of the current record and reads the next one, also when frozen.
  void skip_line();

  /// Section and sequence number of the current record (of the last one at the end of input) and the 0-based column of
  /// the read position.
  void position(igsFileSection& section, int& line, int& column) const {
    m_checker.position(section, line);
    column = static_cast<int>(m_position - m_record);
  }
  /// 1 while a record of this section can be read from; 0 when frozen, also at the end of input. Loops over the records
  /// of a section that ask this question end on every input.
  int in_section(igsFileSection section) const {
    return m_has_record && !m_frozen && m_checker.section() == section ? 1 : 0;
  }
  /// Number of records read so far in the section.
  int num_lines(igsFileSection section) const { return m_checker.num_lines(section); }
  /// Sequence number of the current record as it stands there, whatever its place.
  int number_as_read() const { return m_checker.number_as_read(); }
  /// Line of the input on which the current record begins, 1-based; 0 unless lines are counted.
  int input_line() const { return m_has_record ? line_of_record() : 0; }
  /// As igsInBufferChecker's.
  const std::vector<int>& owners_of_column_65() const { return m_checker.owners_of_column_65(); }
  /// DE number of the owner of the current record; 0 for a record outside the Parameter Data section and when there is
  /// no record.
  int backpointer() const { return m_has_record ? m_checker.backpointer() : 0; }
  /// From the current record on, appends the data columns of the records that belong together (of an entity, or of the
  /// Global section) to `text`, which is not owned; null (the default) for none. `lines`, not owned either, notes for
  /// each record where it begins in the text and in the input (input_line).
  void collect_text(std::string* text, std::vector<std::pair<std::size_t, int>>* lines = nullptr);
  /// As above, from where end_fields() is called; for nothing, if text is collected already. collect_text ends both.
  void collect_rest(std::string* text) {
    m_rest = text;
    m_sound = m_has_record && !m_frozen;
  }
  /// To be called when all fields that have a meaning have been read of an entity.
  void end_fields() {
    if (m_text != nullptr || m_rest != nullptr) note_end_of_fields();
  }
  /// Where they end in the text collected, and whether the record delimiter has ended them.
  std::size_t fields_end() const { return m_fields_end; }
  bool record_ended() const { return m_record_ended; }
  /// Length of the current record in characters.
  std::size_t capacity() const { return m_length; }

  /// 1 after an error that forbids reading on.
  int fatal_error() const { return m_checker.fatal_error() != 0 || igsInBufferFiller::fatal_error() != 0; }
  /// True when the record reader has met the condition anywhere in the file so far, collected and forgotten or not.
  bool ever_met(igsIOErrorCode code) const {
    return m_checker.ever_met().holds(code) || igsInBufferFiller::ever_met().holds(code);
  }
  /// Appends the errors met since they were last collected; fatal ones stay.
  void collect_errors(igsIOErrorcoDynArr& errors);

  /// Called after every record that this thread reads, in whatever file (to show progress); null for none. Each thread
  /// sets its own.
  static void set_line_read_callback(line_read_callback callback);

 protected:
  char* buffer() { return m_record; }
  /// The read position and the first character past the data.
  char* cursor() { return m_position; }
  const char* data_end() const { return m_end; }
  /// The NUL behind the last character of the record.
  const char* record_end() const { return m_record + m_length; }
  igsIOErrorSet take_errors() {
    igsIOErrorSet errors = igsInBufferFiller::take_errors();
    errors.merge(m_checker.take_errors());
    return errors;
  }

 private:
  friend class igsInBufferFiller;

  void set_record(char* record, std::size_t length) {
    m_record = record;
    m_length = length;
  }
  void get_next_line();
  void unfreeze();
  void append_to_text();
  void note_end_of_fields();
  std::size_t text_position() const;

  igsInBufferChecker m_checker;
  std::string m_line;  ///< holds the records that were rebuilt; the others stay where they were read
  char* m_record;
  std::size_t m_length = 0;
  char* m_position;
  char* m_end;
  bool m_has_record = false;
  bool m_frozen = false;
  std::string* m_text = nullptr;
  std::vector<std::pair<std::size_t, int>>* m_text_lines = nullptr;
  std::string* m_rest = nullptr;
  bool m_sound = false;  ///< while text is collected: the current record belongs to it
  std::size_t m_fields_end = 0;
  bool m_record_ended = false;
  char m_saved = '\0';
  const line_read_callback* m_callback;  ///< where the thread has it
};
