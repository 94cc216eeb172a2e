#pragma once

#include "igs/support/igsWritingStyle.h"

/// What a host may ask of a file beyond the documented behaviour; everything is off unless asked for. To be given
/// before the file is read (igsFile::set_options).
struct igsFileOptions {
  /// Reading loses nothing that can be told apart: an entity whose type or form has no class stays, as an igsUnknown
  /// with its fields as texts; what stands in an entity's records beside its own fields stays as its igsKeptParts; so
  /// do Global parameters beyond the last known one and the text behind that section's end. Global parameters that are
  /// not given are not written (igsGlobalSection::given). A negative structure field (field 3 of a directory entry) is
  /// a reference then. With `strict`, an entity whose parameter data do not fit its class is written as they stand
  /// (igsKeptParts::unread_fields); one that cannot be read at all is an empty one of its class (igsFileUnreadData).
  /// While texts that may hold DE numbers are among what was kept, writing leaves every entity of the input its DE
  /// number and writes a null entity in the place of one that went.
  bool keep = false;
  /// Reading reports parameter fields that cannot have been read as they stand: igsFileFieldNotNumber,
  /// igsFileWrongStringCount, igsFilePrematureObjectEnd, igsFileObjectExtraData and igsFileNoRecordDelimiter; with
  /// `keep`, whose pointers keep the numbers of entities that are missing, igsFileLostReference, too. Fields that are
  /// left out are no fault where the standard gives them a default, nor are zeros behind the last one.
  bool strict = false;
  /// More is understood than the documented repairs do, and an error says what was assumed: igsFileColumn65,
  /// igsFileMixedLineEnds, igsFileLostDirectoryEntry, igsFileMissingSection, igsFileReadEnded and igsFileSecondFile. A
  /// file whose last sections are missing, or in which reading comes to a record that cannot be one, counts as read.
  /// Strings of the Global section with a wrong count (igsGlobalSectionWrongStringCount), and units names in any
  /// letters and words (igsUnits::recognised, igsGlobalSectionReadUnitsName), are understood.
  bool recover = false;
  /// The lines on which things stand in the input are noted (igsFile::lines, igsFile::global_line).
  bool lines = false;
  /// How the file is written. What is to be as in the input (`as_read`) is noted by reading, which puts what it has met
  /// in its place here; where it has met none, and in a file that was not read, it is as by default.
  igsWritingStyle style = {};
  /// Lines of form 1 (semi-bounded) and form 2 (unbounded) are read as such (igs110). Without it they become lines of
  /// form 0, as igsFileDefaultedForm reports.
  bool unbounded_lines = false;
};
