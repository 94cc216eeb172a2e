#include "igs/annotation/igs216.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs216::igs216() { set_directory_entry_type(igsEntity216, 0); }

void igs216::check_pd() const {
  const igsDimensionCheck<"igs216"> check(*this);
  check.note();
  check.required<"Leader1">(m_leader1, a_leader);
  check.required<"Leader2">(m_leader2, a_leader);
  check.optional<"Witness1">(m_witness1, a_witness_line);
  check.optional<"Witness2">(m_witness2, a_witness_line);
}
