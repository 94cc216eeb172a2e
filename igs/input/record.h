#pragma once

/// The fixed columns of an IGES record (IGES 5.3, section 2.2). Widths in characters, offsets 0-based.
inline constexpr int record_length = 80;
/// A record and its end of line, as they are written.
inline constexpr int line_length = record_length + 1;
/// Data columns of every section but Parameter Data.
inline constexpr int data_columns = 72;
/// Data columns of a Parameter Data record; column 65 stays blank, the back-pointer fills columns 66 to 72.
inline constexpr int pd_data_columns = 64;
/// Width of a sequence number and of a Parameter Data back-pointer.
inline constexpr int sequence_columns = 7;
/// Largest number that those 7 columns hold.
inline constexpr int max_sequence_number = 9999999;
