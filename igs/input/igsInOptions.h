#pragma once

class kelabsOutput;

/// How a file is read.
struct igsInOptions {
  /// Takes the warnings about repaired lines, with the tag "iges"; not owned; null for silence.
  kelabsOutput* messages = nullptr;
  /// False sends every record through the repair steps, also those that need none. The results are the same; tests
  /// compare the two.
  bool shortcuts = true;
  /// Reads a character in column 65 of Parameter Data as data, and takes a carriage return as a line end even where
  /// line feeds end others (igsFileOptions::recover).
  bool recover = false;
  /// Counts the lines of the input (igsInBuffer::input_line).
  bool lines = false;
  /// Has the end of the first line be noted (igsInBufferFiller::first_line_end).
  bool note_line_end = false;
};
