#include "igs/annotation/igs218.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs218::igs218() { set_directory_entry_type(igsEntity218, 0); }

void igs218::check_pd() const {
  const igsDimensionCheck<"igs218"> check(*this);
  check.note();
  if (form() == 1) {
    check.required<"Witness">(m_witness_or_leader, a_witness_line);
    check.required<"Leader">(m_leader, a_leader);
  } else {
    check.required<"WitnessOrLeader">(m_witness_or_leader, igsOneOf<igsWitnessLine, igs214>());
  }
}
