#include "igs/annotation/igs222.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs222::igs222() { set_directory_entry_type(igsEntity222, 0); }

void igs222::check_pd() const {
  const igsDimensionCheck<"igs222"> check(*this);
  check.note();
  check.required<"Leader">(m_leader, a_leader);
  if (form() == 1) check.optional<"Leader2">(m_leader2, a_leader);
  check.defined<"Centre">(m_centre);
}
