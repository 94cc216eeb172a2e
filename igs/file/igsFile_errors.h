#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of the file as a whole. The first constructor argument is the location: a DE number, or for
// igsFileDENullCharacters the sequence number of the entry's first Directory record.

/// The two entity type fields of a directory entry differ. Values: field 1, field 11.
class IGS_API igsFileDEEntityTypeMismatch
    : public igsErrorClass<igsFileDEEntityTypeMismatch, "igsFileDEEntityTypeMismatch", igsStructureError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The entity type is none of the standard's. Value: the type.
class IGS_API igsFileInvalidIGESEntity
    : public igsErrorClass<igsFileInvalidIGESEntity, "igsFileInvalidIGESEntity", igsStructureError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The type has no such form; its default form was taken. Values: entity type, form read.
class IGS_API igsFileDefaultedForm
    : public igsErrorClass<igsFileDefaultedForm, "igsFileDefaultedForm", igsStructureError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The type has no such form and no default form. Values: entity type, form read.
class IGS_API igsFileUnknownForm
    : public igsErrorClass<igsFileUnknownForm, "igsFileUnknownForm", igsStructureError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

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
class IGS_API igsFileIncorrectStartOfPD
    : public igsErrorClass<igsFileIncorrectStartOfPD, "igsFileIncorrectStartOfPD", igsStructureError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Parameter data are longer or shorter than the directory entry says. Values: lines found, lines stated.
class IGS_API igsFileIncorrectPDLineCount
    : public igsErrorClass<igsFileIncorrectPDLineCount, "igsFileIncorrectPDLineCount", igsStructureError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The entity had no parameter data and was deleted. `fix` warns and returns 1.
class IGS_API igsFileNoPDData : public igsErrorClass<igsFileNoPDData, "igsFileNoPDData", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Parameter data begin with another entity type than the directory entry's. Value: the type read.
class IGS_API igsFilePDEntityTypeMismatch
    : public igsErrorClass<igsFilePDEntityTypeMismatch, "igsFilePDEntityTypeMismatch", igsStructureError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// NUL characters in parameter data were replaced by blanks. `fix` warns and returns 1.
class IGS_API igsFilePDNullCharacters
    : public igsErrorClass<igsFilePDNullCharacters, "igsFilePDNullCharacters", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Parameter data hold a real that is not a number.
class IGS_API igsFileCorruptObjectData
    : public igsErrorClass<igsFileCorruptObjectData, "igsFileCorruptObjectData", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Parameter data end before all fields.
class IGS_API igsFilePrematureObjectEnd
    : public igsErrorClass<igsFilePrematureObjectEnd, "igsFilePrematureObjectEnd", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Parameter data hold more fields than the entity defines.
class IGS_API igsFileObjectExtraData
    : public igsErrorClass<igsFileObjectExtraData, "igsFileObjectExtraData", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A null entity was deleted.
class IGS_API igsFileDeletedNullEntity
    : public igsErrorClass<igsFileDeletedNullEntity, "igsFileDeletedNullEntity", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// An entity of unknown type was deleted.
class IGS_API igsFileDeletedUnknownEntity
    : public igsErrorClass<igsFileDeletedUnknownEntity, "igsFileDeletedUnknownEntity", igsStructureError> {
 public:
  using igsErrorClass::igsErrorClass;
};

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
