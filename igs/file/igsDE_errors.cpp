#include "igs/file/igsDE_errors.h"

#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsObject.h"

namespace {
/// Applies `change` to the directory entry of the entity at an error's key.
template <class Change>
int change_entry(igsObject* object, const Change& change) {
  if (object == nullptr) return 0;
  change(object->directory_entry());
  return 1;
}
}  // namespace

int igsDEInvalidColour::fix() {
  return change_entry(object_at_key(), [](igsDirectoryEntry& entry) { entry.set_colour(igsColour(0)); });
}

int igsDEInvalidLevel::fix() {
  return change_entry(object_at_key(), [](igsDirectoryEntry& entry) { entry.set_level(igsLevel(0)); });
}

int igsDEInvalidLineFont::fix() {
  return change_entry(object_at_key(), [](igsDirectoryEntry& entry) { entry.set_line_font(igsLineFont(0)); });
}

int igsDEInvalidLineWeight::fix() {
  return change_entry(object_at_key(), [](igsDirectoryEntry& entry) { entry.set_line_weight(0); });
}

int igsDEInvalidEntityUse::fix() {
  return change_entry(object_at_key(), [use = value<0>()](igsDirectoryEntry& entry) {
    const igsStatusFlags& flags = entry.status_flags();
    entry.set_status_flags({flags.blank_status(), flags.subordinate_status(), use, flags.hierarchy()});
  });
}

int igsDEInvalidMatrixData::obj() {
  if (m_obj == 0) {
    const igsObject* const object = object_at_key();
    if (object != nullptr) m_obj = object->directory_entry().matrix().de_number();
  }
  return igsReferenceDataError::obj();
}
