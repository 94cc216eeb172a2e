#include "igs/annotation/igs206.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs206::igs206() { set_directory_entry_type(igsEntity206, 0); }

void igs206::check_pd() const {
  const igsDimensionCheck<"igs206"> check(*this);
  check.note();
  check.required<"Leader1">(m_leader1, a_leader);
  check.optional<"Leader2">(m_leader2, a_leader);
  check.defined<"Centre">(m_centre);
}
