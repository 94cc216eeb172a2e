#include "igs/annotation/igs202.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs202::igs202() { set_directory_entry_type(igsEntity202, 0); }

void igs202::check_pd() const {
  const igsDimensionCheck<"igs202"> check(*this);
  check.note();
  check.optional<"Witness1">(m_witness1, a_witness_line);
  check.optional<"Witness2">(m_witness2, a_witness_line);
  check.required<"Leader1">(m_leader1, a_leader);
  check.required<"Leader2">(m_leader2, a_leader);
  check.defined<"Vertex">(m_vertex);
  check.above_0<"Radius">(m_radius);
}
