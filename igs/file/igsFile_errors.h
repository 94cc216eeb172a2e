#pragma once

#include "igs/errors/igsErrorClass.h"
#include "igs/errors/igsRepairs.h"
#include "igs/input/igsFileSection.h"
#include "igs/support/utString.h"

// Faults of the file as a whole. The first constructor argument is the location: a DE number, or for
// igsFileDENullCharacters the sequence number of the entry's first Directory record.

/// The two entity type fields of a directory entry differ. Values: field 1, field 11.
using igsFileDEEntityTypeMismatch = igsNamedError<"igsFileDEEntityTypeMismatch", igsStructureError, int, int>;
/// The entity type is none of the standard's. Value: the type.
using igsFileInvalidIGESEntity = igsNamedError<"igsFileInvalidIGESEntity", igsStructureError, int>;
/// The type has no such form; its default form was taken. Values: entity type, form read.
using igsFileDefaultedForm = igsNamedError<"igsFileDefaultedForm", igsStructureError, int, int>;
/// The type has no such form and no default form. Values: entity type, form read.
using igsFileUnknownForm = igsNamedError<"igsFileUnknownForm", igsStructureError, int, int>;

/// NUL characters in a directory entry were replaced by blanks. `fix` warns and returns 1.
class IGS_API igsFileDENullCharacters
    : public igsErrorClass<igsFileDENullCharacters, "igsFileDENullCharacters", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Sequence numbers were out of order somewhere. `fix` warns and returns 1.
class IGS_API igsFileInvalidLineNumbers
    : public igsErrorClass<igsFileInvalidLineNumbers, "igsFileInvalidLineNumbers", igsTerminateError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Blank lines were skipped. `fix` warns and returns 1.
class IGS_API igsFileBlankLine : public igsErrorClass<igsFileBlankLine, "igsFileBlankLine", igsTerminateError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Parameter data do not begin where the directory entry says. Values: the first line found, the line stated.
using igsFileIncorrectStartOfPD = igsNamedError<"igsFileIncorrectStartOfPD", igsStructureError, int, int>;
/// Parameter data are longer or shorter than the directory entry says. Values: lines found, lines stated.
using igsFileIncorrectPDLineCount = igsNamedError<"igsFileIncorrectPDLineCount", igsStructureError, int, int>;

/// The entity had no parameter data and was deleted. `fix` warns and returns 1.
class IGS_API igsFileNoPDData : public igsErrorClass<igsFileNoPDData, "igsFileNoPDData", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Parameter data begin with another entity type than the directory entry's. Value: the type read.
using igsFilePDEntityTypeMismatch = igsNamedError<"igsFilePDEntityTypeMismatch", igsStructureError, int>;

/// NUL characters in parameter data were replaced by blanks. `fix` warns and returns 1.
class IGS_API igsFilePDNullCharacters
    : public igsErrorClass<igsFilePDNullCharacters, "igsFilePDNullCharacters", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Parameter data hold a real that is not a number.
using igsFileCorruptObjectData = igsNamedError<"igsFileCorruptObjectData", igsStructureError>;
// Those of igsFileOptions::strict. Fields count from 1; the type number is 0.

/// A fault of the parameter data at one field. Value: its position, 0 where it is not known.
template <igsName Name>
class IGS_API_TEMPLATE igsPlacedError : public igsErrorClass<void, Name, igsStructureError, int> {
 public:
  explicit igsPlacedError(int de, int position = 0) : igsErrorClass<void, Name, igsStructureError, int>(de, position) {}
};
/// Parameter data end before all fields: the first that is missing.
using igsFilePrematureObjectEnd = igsPlacedError<"igsFilePrematureObjectEnd">;
/// Parameter data hold more fields than the entity defines, which are no trailing groups of pointers: the first of
/// them.
using igsFileObjectExtraData = igsPlacedError<"igsFileObjectExtraData">;
/// A field that has to be a number is none, has further characters, or is too large for a double. Values: its position,
/// its text.
using igsFileFieldNotNumber = igsNamedError<"igsFileFieldNotNumber", igsStructureError, int, utString>;
/// The parameter data cannot be read as the entity's class has them; they were kept as they stand, in an empty entity.
using igsFileUnreadData = igsNamedError<"igsFileUnreadData", igsStructureError>;
/// Reading ended before the end of the file, at a record that cannot be one; what was read until then counts. Values:
/// the number of records before it.
using igsFileReadEnded = igsNamedError<"igsFileReadEnded", igsTerminateError, int>;
/// A pointer of an entity names one that the file does not have, or a null entity. Value: the DE number that it names.
using igsFileLostReference = igsNamedError<"igsFileLostReference", igsStructureError, int>;
/// Parameter data end without a record delimiter.
using igsFileNoRecordDelimiter = igsNamedError<"igsFileNoRecordDelimiter", igsStructureError>;
/// A string has more or less characters than its count says. Values: its position, the field.
using igsFileWrongStringCount = igsNamedError<"igsFileWrongStringCount", igsStructureError, int, utString>;
/// A null entity was deleted.
using igsFileDeletedNullEntity = igsNamedError<"igsFileDeletedNullEntity", igsStructureError>;
/// An entity of unknown type was deleted.
using igsFileDeletedUnknownEntity = igsNamedError<"igsFileDeletedUnknownEntity", igsStructureError>;

// Those of igsFileOptions::recover: what was assumed. Writing makes a sound file of it, so that `fix` returns 1, but
// where something is missing.

/// Characters in column 65 of Parameter Data, which is to be blank, were read as data.
using igsFileColumn65 = igsNamedError<"igsFileColumn65", igsAccepted<igsStructureError>>;
/// Some lines end with a carriage return alone, others with a line feed; each was taken for a line end.
using igsFileMixedLineEnds = igsNamedError<"igsFileMixedLineEnds", igsAccepted<igsTerminateError>>;
/// One or both records of a directory entry are missing, as the sequence numbers tell. The entity is lost; the others
/// keep their DE numbers.
using igsFileLostDirectoryEntry = igsNamedError<"igsFileLostDirectoryEntry", igsStructureError>;
/// The file has no records of a section. Value: the section.
using igsFileMissingSection = igsNamedError<"igsFileMissingSection", igsTerminateError, igsFileSection>;
/// Behind the Terminate section begins another file, which was not read. Value: the number of records before it.
using igsFileSecondFile = igsNamedError<"igsFileSecondFile", igsTerminateError, int>;

/// A written section exceeded the largest sequence number. Without location. `fix` says so and returns 0.
class IGS_API igsFileLineNumberTooLarge
    : public igsTyped<igsFileLineNumberTooLarge, "igsFileLineNumberTooLarge", igsStructureError> {
 public:
  int fix() override;
};

/// Writing needed a back-pointer above the largest one. Without location. `fix` says so and returns 0.
class IGS_API igsFileBackPtrTooLarge
    : public igsTyped<igsFileBackPtrTooLarge, "igsFileBackPtrTooLarge", igsStructureError> {
 public:
  int fix() override;
};
