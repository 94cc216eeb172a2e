#pragma once

#include "igs/input/igsFileSection.h"

/// The fixed columns of an IGES record (IGES 5.3, section 2.2). Widths in characters, offsets 0-based.
inline constexpr int record_length = 80;
/// A record and the longest end of line that is written, CR LF.
inline constexpr int max_line_length = record_length + 2;
/// Data columns of every section but Parameter Data.
inline constexpr int data_columns = 72;
/// Data columns of a Parameter Data record; column 65 stays blank, the back-pointer fills columns 66 to 72.
inline constexpr int pd_data_columns = 64;
/// Width of a sequence number and of a Parameter Data back-pointer.
inline constexpr int sequence_columns = 7;
/// Largest number that those 7 columns hold.
inline constexpr int max_sequence_number = 9999999;

/// Number of real sections.
inline constexpr int num_file_sections = 5;
/// The letters of the sections, in the order of igsFileSection.
inline constexpr char section_letters[] = "SGDPT";

/// The section of a letter; igsNoSectionId for any other character.
constexpr igsFileSection convert_char_to_section(char letter) {
  int section = 0;
  while (section < num_file_sections && section_letters[section] != letter) ++section;
  return static_cast<igsFileSection>(section);
}

/// A byte of a text as it may stand inside a record. Line feed, carriage return and NUL would tear the record apart; a
/// blank takes the place of each.
constexpr char record_character(char c) { return c == '\n' || c == '\r' || c == '\0' ? ' ' : c; }
