#pragma once

/// What a host may ask of a file beyond the documented behaviour; everything is off unless asked for. To be given
/// before the file is read (igsFile::set_options).
struct igsFileOptions {
  /// Reading loses nothing that can be told apart: an entity whose type or form has no class stays, as an igsUnknown
  /// with its fields as texts; what stands in an entity's records beside its own fields stays as its igsKeptParts; so
  /// do Global parameters beyond the last known one and the text behind that section's end. A negative structure field
  /// (field 3 of a directory entry) is a reference then. While texts that may hold DE numbers are among what was kept,
  /// writing leaves every entity of the input its DE number and writes a null entity in the place of one that went.
  bool keep = false;

  /// Lines of form 1 (semi-bounded) and form 2 (unbounded) are read as such (igs110). Without it they become lines of
  /// form 0, as igsFileDefaultedForm reports.
  bool unbounded_lines = false;
};
