#pragma once

#include <string_view>

#include "igs/file/igsDirectoryEntry.h"
#include "igs/input/igsInStream.h"
#include "igs/output/private/fixedColumns.h"

/// The fields of a directory entry as they stand in the file: `Text` is owned where an entry is read, a view where one
/// is written.
template <class Text>
struct igsDirectoryFields {
  int type = 0, parameter_data = 0, structure = 0, line_font = 0, level = 0, view = 0, matrix = 0, label_display = 0;
  int blank_status = 0, subordinate_status = 0, entity_use = 0, hierarchy = 0;
  int second_type = 0, line_weight = 0, colour = 0, parameter_lines = 0, form = 0;
  Text label;
  int subscript = 0;

  static constexpr unsigned field_width = 8, status_width = 2, reserved_width = 16;

  /// Hands the fields to `columns` in the order of the file.
  template <class Columns>
  void layout(Columns&& columns) {
    columns.begin_record();
    columns.integers(type, parameter_data, structure, line_font, level, view, matrix, label_display);
    columns.statuses(blank_status, subordinate_status, entity_use, hierarchy);
    columns.begin_record();
    columns.integers(second_type, line_weight, colour, parameter_lines, form);
    columns.label(label);
    columns.integers(subscript);
  }
};

/// Reads the fields that it is handed.
class igsDirectoryReader {
 public:
  /// With `by_numbers`, a second record that does not have the number behind the first one's is left to be read.
  igsDirectoryReader(igsInStream& in, bool by_numbers) : m_in(in), m_by_numbers(by_numbers) {}

  // The stream has come to the next entry's record before the last field is taken, so each record is asked in its turn.
  void begin_record() {
    m_has_nul = m_has_nul || m_in.nul_in_record();
    if (!m_by_numbers) return;
    const int number = m_in.number_as_read();
    m_lost_second = m_first_number % 2 != 0 && number == m_first_number + 2 &&
                    m_in.num_numbered_on(igsDirectorySectionId, number) >= 0;
    m_first_number = number;
  }
  void integers(auto&... fields) {
    if (!m_lost_second) m_in.read_integers(igsDirectoryFields<utString>::field_width, {&fields...});
  }
  void statuses(auto&... fields) { m_in.read_integers(igsDirectoryFields<utString>::status_width, {&fields...}); }
  void label(utString& label) {
    using Fields = igsDirectoryFields<utString>;
    if (m_lost_second) return;
    if (m_in.take_blanks(Fields::reserved_width + Fields::field_width)) {
      m_label_is_blank = true;
    } else {
      m_in.skip_columns(Fields::reserved_width);
      m_in.read_string(Fields::field_width, label);
    }
  }

  bool has_nul() const { return m_has_nul; }
  /// The label is left empty then.
  bool label_is_blank() const { return m_label_is_blank; }
  bool lost_second_record() const { return m_lost_second; }

 private:
  igsInStream& m_in;
  bool m_by_numbers;
  int m_first_number = 0;
  bool m_lost_second = false;
  bool m_has_nul = false;
  bool m_label_is_blank = false;
};

/// Puts the fields that it is handed side by side.
template <class Records>
class igsDirectoryWriter {
 public:
  explicit igsDirectoryWriter(Records& records) : m_records(records) {}

  void begin_record() {}
  void integers(auto... fields) { (m_records.add_integer(Fields::field_width, fields), ...); }
  void statuses(auto... fields) { (add_status(fields), ...); }
  void label(std::string_view label) {
    m_records.add_text(Fields::reserved_width + Fields::field_width, label.substr(0, Fields::field_width));
  }

 private:
  using Fields = igsDirectoryFields<std::string_view>;

  /// Two columns: a zero and the digit. Other values, none of the standard, stand there as far as they fit.
  void add_status(int status) {
    if (status >= 0 && status <= 9) {
      m_records.add_character('0');
      m_records.add_character(static_cast<char>('0' + status));
    } else {
      m_records.add_integer(Fields::status_width, status);
    }
  }

  Records& m_records;
};
