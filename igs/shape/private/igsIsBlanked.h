#pragma once

#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsObject.h"

/// The entity itself; nothing is said of what it is part of.
inline bool igs_is_blanked(const igsObject& entity) {
  return entity.directory_entry().status_flags().blank_status() == 1;
}
