#include "igs/file/igsDE_errors.h"

int igsDEInvalidEntityUse::fix() {
  return igs_repair<igsObject>(object_at_key(), [use = value<0>()](igsObject& object) {
    const igsStatusFlags& flags = object.directory_entry().status_flags();
    object.directory_entry().set_status_flags(
        {flags.blank_status(), flags.subordinate_status(), use, flags.hierarchy()});
  });
}

int igsDEInvalidMatrixData::obj() {
  if (m_obj == 0) {
    const igsObject* const object = object_at_key();
    if (object != nullptr) m_obj = object->directory_entry().matrix().de_number();
  }
  return igsReferenceDataError::obj();
}
