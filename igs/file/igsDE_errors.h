#pragma once

#include "igs/errors/igsErrorClass.h"

// Faults of an entity's directory entry. Each is tagged with the entity's DE number.

/// One class of this family. Where a value is carried it is the field as it stands in the file.
template <class Self, igsName Name, class... Values>
using igsDEError = igsErrorClass<Self, Name, igsObjectError, Values...>;

/// Neither a colour number nor a pointer to a colour definition. `fix` sets colour 0.
class IGS_API igsDEInvalidColour : public igsDEError<igsDEInvalidColour, "igsDEInvalidColour", int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Neither a level number nor a pointer to a list of levels. `fix` sets level 0.
class IGS_API igsDEInvalidLevel : public igsDEError<igsDEInvalidLevel, "igsDEInvalidLevel", int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Neither a line font pattern nor a pointer to a line font definition. `fix` sets pattern 0.
class IGS_API igsDEInvalidLineFont : public igsDEError<igsDEInvalidLineFont, "igsDEInvalidLineFont", int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// A line weight number that is negative or above the Global section's gradations. `fix` sets weight 0.
class IGS_API igsDEInvalidLineWeight : public igsDEError<igsDEInvalidLineWeight, "igsDEInvalidLineWeight", int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// Another entity use flag than the entity type demands. Value: the flag demanded, which `fix` sets.
class IGS_API igsDEInvalidEntityUse : public igsDEError<igsDEInvalidEntityUse, "igsDEInvalidEntityUse", int> {
 public:
  using igsErrorClass::igsErrorClass;
  int fix() override;
};

/// The transformation matrix fails its own check. `fix` answers whether it has become sound.
class IGS_API igsDEInvalidMatrixData
    : public igsErrorClass<igsDEInvalidMatrixData, "igsDEInvalidMatrixData", igsReferenceDataError> {
 public:
  using igsErrorClass::igsErrorClass;
  int obj() override;
};

/// The matrix pointer names an entity that is no transformation matrix.
class IGS_API igsDEInvalidMatrix : public igsDEError<igsDEInvalidMatrix, "igsDEInvalidMatrix"> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// Some number of the status has no meaning.
class IGS_API igsDEInvalidStatusFlags : public igsDEError<igsDEInvalidStatusFlags, "igsDEInvalidStatusFlags"> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The blank status has no meaning.
class IGS_API igsDEInvalidBlankStatus : public igsDEError<igsDEInvalidBlankStatus, "igsDEInvalidBlankStatus", int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The subordinate entity switch has no meaning.
class IGS_API igsDEInvalidSubordinateSwitch
    : public igsDEError<igsDEInvalidSubordinateSwitch, "igsDEInvalidSubordinateSwitch", int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The hierarchy has no meaning.
class IGS_API igsDEInvalidHierarchy : public igsDEError<igsDEInvalidHierarchy, "igsDEInvalidHierarchy", int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The view pointer is to no view.
class IGS_API igsDEInvalidView : public igsDEError<igsDEInvalidView, "igsDEInvalidView"> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The label display pointer is to no label display associativity.
class IGS_API igsDEInvalidLabelDisplay : public igsDEError<igsDEInvalidLabelDisplay, "igsDEInvalidLabelDisplay"> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The entity label is not valid.
class IGS_API igsDEInvalidEntityLabel : public igsDEError<igsDEInvalidEntityLabel, "igsDEInvalidEntityLabel"> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A negative entity subscript number.
class IGS_API igsDEInvalidEntitySubscript
    : public igsDEError<igsDEInvalidEntitySubscript, "igsDEInvalidEntitySubscript", int> {
 public:
  using igsErrorClass::igsErrorClass;
};
