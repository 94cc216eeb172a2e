#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iosfwd>
#include <memory>
#include <string_view>

#include "igs/input/igsFileSection.h"
#include "igs/output/igsOutBufferFormatter.h"
#include "igs/output/igsOutBufferPurger.h"
#include "igs/support/export.h"

/// The record being filled, behind those that wait for being written. A record is stamped as soon as its data columns
/// are full, and when the section, the back-pointer or the destination changes. Stamped records go to the destination
/// together, when there is a block of them and whenever any function but those that place text is called: these all see
/// the faults of everything before them. When stamping or writing fails the buffer freezes: it ignores all text until
/// `reset` succeeds.
class IGS_API igsOutBuffer : public igsOutBufferPurger {
 public:
  /// Characters behind the write position that may be overwritten with anything.
  static constexpr int scratch_length = 64;

  explicit igsOutBuffer(std::ostream* destination);
  /// Writes out a partly filled record. Never throws.
  ~igsOutBuffer() override;

  /// Each of these writes out a partly filled record first.
  void set_section(igsFileSection section);
  void set_backpointer(int backpointer);
  void set_destination(std::ostream* destination);
  void use_crlf();
  /// As set_backpointer, but the records go on waiting, so that faults of the destination may come out later. Returns
  /// how many records the section has so far, or -1 when the buffer is frozen.
  int begin_backpointer(int backpointer);

  /// Unfreezes the buffer and writes out a partly filled record. Returns 1; returns 0, and stays frozen, while the
  /// purger's errors have not been collected, after a number was too large, and when writing fails again.
  int reset();
  bool frozen() const { return m_frozen; }

  int num_lines(igsFileSection section);

 protected:
  /// Number of data columns of a record, and how many of them are still free (never 0).
  int data_width() const { return m_formatter.data_width(); }
  int room() const { return data_width() - m_column; }
  /// The write position, 0-based.
  int column() const { return m_column; }

  /// Leaves the next `columns` (not negative) columns blank, up to the end of the record at most.
  void advance(int columns) {
    if (m_frozen) return;
    const int length = std::min(columns, room());
    std::memset(position(), ' ', static_cast<std::size_t>(length));
    move_on(length);
  }
  /// Writes `text`, whose length may be that of several records, from the write position on.
  void write_split(std::string_view text) {
    while (!text.empty() && !m_frozen) {
      const std::size_t length = std::min(text.size(), static_cast<std::size_t>(room()));
      std::memcpy(position(), text.data(), length);
      text.remove_prefix(length);
      move_on(static_cast<int>(length));
    }
  }
  /// Writes `text` on the present record if `columns` (at least the text's length) are free there, else on the next.
  void write_on_one_line(std::string_view text, std::size_t columns) {
    if (columns > static_cast<std::size_t>(room()) && !m_frozen) prepare_for_next_line();
    write_split(text);
  }

  /// The text to come can be printed here, to be kept or copied away.
  char* position() { return m_line + m_column; }
  /// Makes the `length` characters at position() part of the record if `columns`, at least as many, are free there, and
  /// returns 1. Else, or when the buffer is frozen, changes nothing and returns 0.
  int keep_printed(std::ptrdiff_t length, std::ptrdiff_t columns) {
    if (columns > room() || m_frozen) return 0;
    move_on(static_cast<int>(length));
    return 1;
  }

  /// Goes on with the next record unless nothing stands on this one.
  void end_line() {
    if (m_column > 0 && !m_frozen) prepare_for_next_line();
  }

  igsOutBufferFormatter& formatter() { return m_formatter; }
  /// Hands the records that wait over to the destination. Returns 1, or 0 when the buffer is or becomes frozen.
  int write_out_block();

 private:
  void move_on(int columns) {
    m_column += columns;
    if (room() == 0) prepare_for_next_line();
  }
  void prepare_for_next_line();
  void write_out_partial_line();

  igsOutBufferFormatter m_formatter;
  std::unique_ptr<char[]> m_block;
  char* m_line;  // in m_block, behind the records that wait
  int m_num_waiting = 0;
  int m_column = 0;  // below the data width; nothing stands from here on
  bool m_frozen = false;
};
