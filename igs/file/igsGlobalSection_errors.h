#pragma once

#include <utility>

#include "igs/errors/igsErrorClass.h"
#include "igs/errors/igsRepairs.h"

// The errors of the Global section. A `fix` without a section (see igsGlobalError::key) changes nothing and returns 0.

/// The kinds of parameter that igsGlobalSectionIllegalDefault tells apart. The values are part of the interface.
enum igsGlobalParameterKind { igsGlobalString = 1, igsGlobalInteger = 2, igsGlobalReal = 3 };

/// Gives a parameter (1 to 25) of the section its fallback value and returns 1; returns 0 without a section and for a
/// parameter that has none.
IGS_API int igs_set_global_fallback(igsGlobalSection* section, int parameter);

/// Kind of the errors that are repaired by giving parameter `Parameter` its fallback value.
template <int Parameter>
class IGS_API_TEMPLATE igsGlobalFallback : public igsGlobalError {
 public:
  int fix() override { return igs_set_global_fallback(key(), Parameter); }

 protected:
  igsGlobalFallback() = default;
};

/// A parameter that must be given is not: its number and its igsGlobalParameterKind. Repaired with the fallback value
/// (the units flag, 14, stays as it is), which is announced.
class IGS_API igsGlobalSectionIllegalDefault
    : public igsErrorClass<igsGlobalSectionIllegalDefault, "igsGlobalSectionIllegalDefault", igsGlobalError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Kind of the errors that say that a delimiter is unusable; carries the text that stands in its place. No repair: the
/// file cannot be read.
class IGS_API igsUnusableDelimiter : public igsErrorValues<igsGlobalError, utString> {
 public:
  using igsErrorValues::igsErrorValues;
  explicit igsUnusableDelimiter(char found) : igsErrorValues(utString(1, found)) {}
};

/// Parameter 1, the parameter delimiter, is unusable.
using igsGlobalSectionInvalidParamDelim = igsNamedError<"igsGlobalSectionInvalidParamDelim", igsUnusableDelimiter>;
/// Parameter 2, the record delimiter, is unusable.
using igsGlobalSectionInvalidRecordDelim = igsNamedError<"igsGlobalSectionInvalidRecordDelim", igsUnusableDelimiter>;

// Values out of range, with the value found.

/// Parameter 7, bits of an integer, is out of range; carries it.
using igsGlobalSectionInvalidIntegerSize =
    igsNamedError<"igsGlobalSectionInvalidIntegerSize", igsGlobalFallback<7>, int>;
/// Parameter 8, largest power of ten in single precision, is out of range; carries it.
using igsGlobalSectionInvalidSinglePrecMagnitude =
    igsNamedError<"igsGlobalSectionInvalidSinglePrecMagnitude", igsGlobalFallback<8>, int>;
/// Parameter 9, significant digits in single precision, is out of range; carries it.
using igsGlobalSectionInvalidSinglePrecSignificance =
    igsNamedError<"igsGlobalSectionInvalidSinglePrecSignificance", igsGlobalFallback<9>, int>;
/// Parameter 10, largest power of ten in double precision, is out of range; carries it.
using igsGlobalSectionInvalidDoublePrecMagnitude =
    igsNamedError<"igsGlobalSectionInvalidDoublePrecMagnitude", igsGlobalFallback<10>, int>;
/// Parameter 11, significant digits in double precision, is out of range; carries it.
using igsGlobalSectionInvalidDoublePrecSignificance =
    igsNamedError<"igsGlobalSectionInvalidDoublePrecSignificance", igsGlobalFallback<11>, int>;
/// Parameter 13, the model space scale, is out of range; carries it.
using igsGlobalSectionInvalidModelSpaceScale =
    igsNamedError<"igsGlobalSectionInvalidModelSpaceScale", igsGlobalFallback<13>, double>;
/// Parameter 17, the width of the thickest line, is out of range; carries it.
using igsGlobalSectionInvalidMaxLineWeightWidth =
    igsNamedError<"igsGlobalSectionInvalidMaxLineWeightWidth", igsGlobalFallback<17>, double>;
/// Parameter 18, the creation date, is no date; carries it.
using igsGlobalSectionInvalidFileCreationDate =
    igsNamedError<"igsGlobalSectionInvalidFileCreationDate", igsGlobalFallback<18>, utString>;
/// Parameter 19, the resolution, is out of range; carries it.
using igsGlobalSectionInvalidMinResolution =
    igsNamedError<"igsGlobalSectionInvalidMinResolution", igsGlobalFallback<19>, double>;
/// Parameter 20, the largest coordinate, is out of range; carries it.
using igsGlobalSectionInvalidMaxCoordinate =
    igsNamedError<"igsGlobalSectionInvalidMaxCoordinate", igsGlobalFallback<20>, double>;
/// Parameter 23, the version flag, is out of range; carries it.
using igsGlobalSectionInvalidIgesVersion =
    igsNamedError<"igsGlobalSectionInvalidIgesVersion", igsGlobalFallback<23>, int>;
/// Parameter 24, the drafting standard flag, is out of range; carries it.
using igsGlobalSectionInvalidDraftingStandard =
    igsNamedError<"igsGlobalSectionInvalidDraftingStandard", igsGlobalFallback<24>, int>;
/// Parameter 25, the modification date, is no date; carries it.
using igsGlobalSectionInvalidFileModificationDate =
    igsNamedError<"igsGlobalSectionInvalidFileModificationDate", igsGlobalFallback<25>, utString>;

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

/// The units name is no standard one, but was understood (igsFileOptions::recover): the name as it stands in the file,
/// and the standard name that was taken. Repaired already: the standard name is what is written.
using igsGlobalSectionReadUnitsName =
    igsNamedError<"igsGlobalSectionReadUnitsName", igsAccepted<igsGlobalError>, utString, utString>;

/// A file of a version before 8 gives a modification date, which is ignored. No repair.
using igsGlobalSectionExtraModificationDate = igsNamedError<"igsGlobalSectionExtraModificationDate", igsGlobalError>;

/// The count of a string is wrong; the string was read up to the delimiter behind which the other parameters make sense
/// (igsFileOptions::recover). Value: the parameter. `fix` does nothing and returns 1: writing counts anew.
using igsGlobalSectionWrongStringCount =
    igsNamedError<"igsGlobalSectionWrongStringCount", igsAccepted<igsGlobalError>, int>;

// Not raised by the library; no repair.

/// The units are defined by their name alone.
using igsGlobalSectionUserDefinedUnits = igsNamedError<"igsGlobalSectionUserDefinedUnits", igsGlobalError>;
/// The section cannot be read.
using igsGlobalSectionFatal = igsNamedError<"igsGlobalSectionFatal", igsGlobalError>;
/// The section cannot be built.
using igsGlobalSectionNoConstruct = igsNamedError<"igsGlobalSectionNoConstruct", igsGlobalError>;
/// The section ends without a record delimiter.
using igsGlobalSectionEndNoRecordDelim = igsNamedError<"igsGlobalSectionEndNoRecordDelim", igsGlobalError>;
/// The section ends before all parameters are given.
using igsGlobalSectionEndPremature = igsNamedError<"igsGlobalSectionEndPremature", igsGlobalError>;
/// The section has more parameters than the standard.
using igsGlobalSectionEndExtraData = igsNamedError<"igsGlobalSectionEndExtraData", igsGlobalError>;
