#pragma once

#include <type_traits>

#include "igs/errors/igsRepairs.h"
#include "igs/file/igsDirectoryEntry.h"

// Faults of an entity's directory entry. Each is tagged with the entity's DE number.

/// Kind of the errors that are repaired by making an attribute 0 in the directory entry, with its setter.
template <class Attribute, void (igsDirectoryEntry::*Set)(Attribute)>
void igs_reset_attribute(igsObject& object) {
  (object.directory_entry().*Set)(std::remove_cvref_t<Attribute>(0));
}
template <class Attribute, void (igsDirectoryEntry::*Set)(Attribute)>
using igsResetAttribute = igsRepairedBy<igsObject, &igs_reset_attribute<Attribute, Set>>;

/// Neither a colour number nor a pointer to a colour definition. `fix` sets colour 0.
using igsDEInvalidColour =
    igsNamedError<"igsDEInvalidColour", igsResetAttribute<const igsColour&, &igsDirectoryEntry::set_colour>, int>;
/// Neither a level number nor a pointer to a list of levels. `fix` sets level 0.
using igsDEInvalidLevel =
    igsNamedError<"igsDEInvalidLevel", igsResetAttribute<const igsLevel&, &igsDirectoryEntry::set_level>, int>;
/// Neither a line font pattern nor a pointer to a line font definition. `fix` sets pattern 0.
using igsDEInvalidLineFont =
    igsNamedError<"igsDEInvalidLineFont", igsResetAttribute<const igsLineFont&, &igsDirectoryEntry::set_line_font>,
                  int>;
/// A line weight number that is negative or above the Global section's gradations. `fix` sets weight 0.
using igsDEInvalidLineWeight =
    igsNamedError<"igsDEInvalidLineWeight", igsResetAttribute<int, &igsDirectoryEntry::set_line_weight>, int>;

/// Another entity use flag than the entity type demands. Value: the flag demanded, which `fix` sets.
class IGS_API igsDEInvalidEntityUse
    : public igsErrorClass<igsDEInvalidEntityUse, "igsDEInvalidEntityUse", igsObjectError, int> {
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
using igsDEInvalidMatrix = igsNamedError<"igsDEInvalidMatrix">;
/// Some number of the status has no meaning.
using igsDEInvalidStatusFlags = igsNamedError<"igsDEInvalidStatusFlags">;
/// The blank status has no meaning.
using igsDEInvalidBlankStatus = igsNamedError<"igsDEInvalidBlankStatus", igsObjectError, int>;
/// The subordinate entity switch has no meaning.
using igsDEInvalidSubordinateSwitch = igsNamedError<"igsDEInvalidSubordinateSwitch", igsObjectError, int>;
/// The hierarchy has no meaning.
using igsDEInvalidHierarchy = igsNamedError<"igsDEInvalidHierarchy", igsObjectError, int>;
/// The view pointer is to no view.
using igsDEInvalidView = igsNamedError<"igsDEInvalidView">;
/// The label display pointer is to no label display associativity.
using igsDEInvalidLabelDisplay = igsNamedError<"igsDEInvalidLabelDisplay">;
/// The entity label is not valid.
using igsDEInvalidEntityLabel = igsNamedError<"igsDEInvalidEntityLabel">;
/// A negative entity subscript number.
using igsDEInvalidEntitySubscript = igsNamedError<"igsDEInvalidEntitySubscript", igsObjectError, int>;
