#include "igs/annotation/igs210.h"

#include "igs/annotation/igs208_errors.h"
#include "igs/annotation/igs210_errors.h"
#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs210::igs210() { set_directory_entry_type(igsEntity210, 0); }

void igs210::check_pd() const {
  m_leaders.restart_index();
  const igsDimensionCheck<"igs210"> check(*this);
  check.note();
  if (number_of_leaders() == 0) tag<igs210NoLeaders>();
  check.members<"Leader", igs210, &igs210::remove_null_leaders>(m_leaders, a_leader);
}
