#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/input/igsFileSection.h"

/// A section letter of the Terminate record is wrong. Values: the section it stands for, the text found. `fix` does
/// nothing and returns 1: writing sets the letters right.
using igsTerminateSectionBadName =
    igsNamedError<"igsTerminateSectionBadName", igsAccepted<igsTerminateError>, igsFileSection, utString>;

/// A count of the Terminate record is not the number of records read. Values: the section, the count in the record, the
/// number of records. `fix` hands the latter to the setter of the count and returns 1, or 0 without a section (see
/// igsTerminateError::key).
class IGS_API igsTerminateSectionBadCount
    : public igsErrorClass<igsTerminateSectionBadCount, "igsTerminateSectionBadCount", igsTerminateError,
                           igsFileSection, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Not raised by the library; no repair.
using igsTerminateSectionNoConstruct = igsNamedError<"igsTerminateSectionNoConstruct", igsTerminateError>;
