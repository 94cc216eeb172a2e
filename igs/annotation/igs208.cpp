#include "igs/annotation/igs208.h"

#include "igs/annotation/igs208_errors.h"
#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs208::igs208() { set_directory_entry_type(igsEntity208, 0); }

void igs208::check_pd() const {
  m_leaders.restart_index();
  const igsDimensionCheck<"igs208"> check(*this);
  check.note();
  check.members<"Leader", igs208, &igs208::remove_null_leaders>(m_leaders, a_leader);
  check.defined<"Corner">(m_corner);
  check.defined<"Angle">(m_angle);
}
