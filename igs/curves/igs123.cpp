#include "igs/curves/igs123.h"

#include "igs/curves/igs123_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/file/igsDirectoryEntry.h"

igs123::igs123() { set_directory_entry_type(igsEntity123, 0); }

void igs123::check_pd() const {
  if (m_direction.is_undefined()) tag<igs123NoConstruct>();
}

void igs123::check_de() const { directory_entry().direction_check(); }
