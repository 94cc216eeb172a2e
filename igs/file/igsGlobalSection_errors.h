#pragma once

#include <utility>

#include "igs/errors/igsErrorClass.h"

// The errors of the Global section. A `fix` without a section (see igsGlobalError::key) changes nothing and returns 0.

/// The kinds of parameter that igsGlobalSectionIllegalDefault tells apart. The values are part of the interface.
enum igsGlobalParameterKind { igsGlobalString = 1, igsGlobalInteger = 2, igsGlobalReal = 3 };

/// Gives a parameter (1 to 25) of the section its fallback value and returns 1; returns 0 without a section and for a
/// parameter that has none.
IGS_API int igs_set_global_fallback(igsGlobalSection* section, int parameter);

/// An error that is repaired by giving parameter `Parameter` its fallback value.
template <class Self, igsName Name, int Parameter, class... Values>
class IGS_API_TEMPLATE igsGlobalParameterError : public igsErrorClass<Self, Name, igsGlobalError, Values...> {
 public:
  using igsErrorClass<Self, Name, igsGlobalError, Values...>::igsErrorClass;
  int fix() override { return igs_set_global_fallback(this->key(), Parameter); }
};

/// A parameter that must be given is not: its number and its igsGlobalParameterKind. Repaired with the fallback value
/// (the units flag, 14, stays as it is), which is announced.
class IGS_API igsGlobalSectionIllegalDefault
    : public igsErrorClass<igsGlobalSectionIllegalDefault, "igsGlobalSectionIllegalDefault", igsGlobalError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

// Delimiters, with the text that stands in their place. No repair: the file cannot be read.

/// Parameter 1, the parameter delimiter, is unusable.
class IGS_API igsGlobalSectionInvalidParamDelim
    : public igsErrorClass<igsGlobalSectionInvalidParamDelim, "igsGlobalSectionInvalidParamDelim", igsGlobalError,
                           utString> {
 public:
  using igsErrorClass::igsErrorClass;
  explicit igsGlobalSectionInvalidParamDelim(char found) : igsErrorClass(utString(1, found)) {}
};

/// Parameter 2, the record delimiter, is unusable.
class IGS_API igsGlobalSectionInvalidRecordDelim
    : public igsErrorClass<igsGlobalSectionInvalidRecordDelim, "igsGlobalSectionInvalidRecordDelim", igsGlobalError,
                           utString> {
 public:
  using igsErrorClass::igsErrorClass;
  explicit igsGlobalSectionInvalidRecordDelim(char found) : igsErrorClass(utString(1, found)) {}
};

// Values out of range, with the value found.

/// Parameter 7, bits of an integer, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidIntegerSize
    : public igsGlobalParameterError<igsGlobalSectionInvalidIntegerSize, "igsGlobalSectionInvalidIntegerSize", 7, int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 8, largest power of ten in single precision, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidSinglePrecMagnitude
    : public igsGlobalParameterError<igsGlobalSectionInvalidSinglePrecMagnitude,
                                     "igsGlobalSectionInvalidSinglePrecMagnitude", 8, int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 9, significant digits in single precision, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidSinglePrecSignificance
    : public igsGlobalParameterError<igsGlobalSectionInvalidSinglePrecSignificance,
                                     "igsGlobalSectionInvalidSinglePrecSignificance", 9, int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 10, largest power of ten in double precision, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidDoublePrecMagnitude
    : public igsGlobalParameterError<igsGlobalSectionInvalidDoublePrecMagnitude,
                                     "igsGlobalSectionInvalidDoublePrecMagnitude", 10, int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 11, significant digits in double precision, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidDoublePrecSignificance
    : public igsGlobalParameterError<igsGlobalSectionInvalidDoublePrecSignificance,
                                     "igsGlobalSectionInvalidDoublePrecSignificance", 11, int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 13, the model space scale, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidModelSpaceScale
    : public igsGlobalParameterError<igsGlobalSectionInvalidModelSpaceScale, "igsGlobalSectionInvalidModelSpaceScale",
                                     13, double> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 17, the width of the thickest line, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidMaxLineWeightWidth
    : public igsGlobalParameterError<igsGlobalSectionInvalidMaxLineWeightWidth,
                                     "igsGlobalSectionInvalidMaxLineWeightWidth", 17, double> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 18, the creation date, is no date; carries it.
class IGS_API igsGlobalSectionInvalidFileCreationDate
    : public igsGlobalParameterError<igsGlobalSectionInvalidFileCreationDate, "igsGlobalSectionInvalidFileCreationDate",
                                     18, utString> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 19, the resolution, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidMinResolution
    : public igsGlobalParameterError<igsGlobalSectionInvalidMinResolution, "igsGlobalSectionInvalidMinResolution", 19,
                                     double> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 20, the largest coordinate, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidMaxCoordinate
    : public igsGlobalParameterError<igsGlobalSectionInvalidMaxCoordinate, "igsGlobalSectionInvalidMaxCoordinate", 20,
                                     double> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 23, the version flag, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidIgesVersion
    : public igsGlobalParameterError<igsGlobalSectionInvalidIgesVersion, "igsGlobalSectionInvalidIgesVersion", 23,
                                     int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 24, the drafting standard flag, is out of range; carries it.
class IGS_API igsGlobalSectionInvalidDraftingStandard
    : public igsGlobalParameterError<igsGlobalSectionInvalidDraftingStandard, "igsGlobalSectionInvalidDraftingStandard",
                                     24, int> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 25, the modification date, is no date; carries it.
class IGS_API igsGlobalSectionInvalidFileModificationDate
    : public igsGlobalParameterError<igsGlobalSectionInvalidFileModificationDate,
                                     "igsGlobalSectionInvalidFileModificationDate", 25, utString> {
 public:
  using igsGlobalParameterError::igsGlobalParameterError;
};

/// Parameter 16 was out of range and has become the value given. Repaired by setting that value.
class IGS_API igsGlobalSectionInvalidMaxNumLineWeightGrads
    : public igsErrorClass<igsGlobalSectionInvalidMaxNumLineWeightGrads, "igsGlobalSectionInvalidMaxNumLineWeightGrads",
                           igsGlobalError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// The units flag is not one of 1 to 11. Repaired with the flag that the units name stands for, else millimetres.
class IGS_API igsGlobalSectionInvalidUnitsFlag
    : public igsErrorClass<igsGlobalSectionInvalidUnitsFlag, "igsGlobalSectionInvalidUnitsFlag", igsGlobalError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Units flag and name disagree. Repaired by giving the flag its standard name, which is announced.
class IGS_API igsGlobalSectionUnitNameTypeMismatch
    : public igsErrorClass<igsGlobalSectionUnitNameTypeMismatch, "igsGlobalSectionUnitNameTypeMismatch", igsGlobalError,
                           int, utString> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// A file of a version before 8 gives a modification date, which is ignored. No repair.
class IGS_API igsGlobalSectionExtraModificationDate
    : public igsErrorClass<igsGlobalSectionExtraModificationDate, "igsGlobalSectionExtraModificationDate",
                           igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};

// Not raised by the library; no repair.

/// The units are defined by their name alone.
class IGS_API igsGlobalSectionUserDefinedUnits
    : public igsErrorClass<igsGlobalSectionUserDefinedUnits, "igsGlobalSectionUserDefinedUnits", igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The section cannot be read.
class IGS_API igsGlobalSectionFatal
    : public igsErrorClass<igsGlobalSectionFatal, "igsGlobalSectionFatal", igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The section cannot be built.
class IGS_API igsGlobalSectionNoConstruct
    : public igsErrorClass<igsGlobalSectionNoConstruct, "igsGlobalSectionNoConstruct", igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The section ends without a record delimiter.
class IGS_API igsGlobalSectionEndNoRecordDelim
    : public igsErrorClass<igsGlobalSectionEndNoRecordDelim, "igsGlobalSectionEndNoRecordDelim", igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The section ends before all parameters are given.
class IGS_API igsGlobalSectionEndPremature
    : public igsErrorClass<igsGlobalSectionEndPremature, "igsGlobalSectionEndPremature", igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The section has more parameters than the standard.
class IGS_API igsGlobalSectionEndExtraData
    : public igsErrorClass<igsGlobalSectionEndExtraData, "igsGlobalSectionEndExtraData", igsGlobalError> {
 public:
  using igsErrorClass::igsErrorClass;
};
