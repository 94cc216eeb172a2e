#include "igs/annotation/igs204.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/objects/igsCurve.h"

igs204::igs204() { set_directory_entry_type(igsEntity204, 0); }

void igs204::check_pd() const {
  const igsDimensionCheck<"igs204"> check(*this);
  check.note();
  check.required<"Curve1">(m_curve1, igsKindOf<igsCurve>());
  check.optional<"Curve2">(m_curve2, igsKindOf<igsCurve>());
  check.required<"Leader1">(m_leader1, a_leader);
  check.required<"Leader2">(m_leader2, a_leader);
  check.optional<"Witness1">(m_witness1, a_witness_line);
  check.optional<"Witness2">(m_witness2, a_witness_line);
}
