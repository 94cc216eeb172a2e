#pragma once

#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "igs/input/igsFileSection.h"
#include "igs/input/record.h"
#include "igs/output/igsOutBufferFormatter.h"
#include "igs/output/igsOutBufferPurger.h"
#include "igs/support/export.h"

/// The record being filled. A record is stamped and written out as soon as its data columns are full, and when the
/// section, the back-pointer or the destination changes. When either fails the buffer freezes: it ignores all text
/// until `reset` succeeds.
class IGS_API igsOutBuffer : public igsOutBufferPurger {
 public:
  explicit igsOutBuffer(std::ostream* destination);
  /// Writes out a partly filled record. Never throws.
  ~igsOutBuffer() override;

  /// Each of these writes out a partly filled record first.
  void set_section(igsFileSection section);
  void set_backpointer(int backpointer);
  void set_destination(std::ostream* destination);

  /// Unfreezes the buffer and writes out a partly filled record. Returns 1; returns 0, and stays frozen, while the
  /// purger's errors have not been collected, after a number was too large, and when writing fails again.
  int reset();
  bool frozen() const { return m_frozen; }

  int num_lines(igsFileSection section) const { return m_formatter.num_lines(section); }

 protected:
  /// Number of data columns of a record, and how many of them are still free (never 0).
  int data_width() const { return m_formatter.data_width(); }
  int room() const { return data_width() - m_column; }
  /// The write position, 0-based.
  int column() const { return m_column; }

  /// Leaves the next `columns` columns blank, up to the end of the record at most.
  void advance(int columns);
  /// Writes `text`, whose length may be that of several records, from the write position on.
  void write_split(std::string_view text);
  /// Writes `text` on the present record if `columns` (at least the text's length) are free there, else on the next.
  void write_on_one_line(std::string_view text, std::size_t columns);

  igsOutBufferFormatter& formatter() { return m_formatter; }

 private:
  void prepare_for_next_line();
  void write_out_partial_line();

  igsOutBufferFormatter m_formatter;
  char m_line[record_length + 1];  // with the line feed
  int m_column = 0;                // below the data width
  bool m_frozen = false;
};
