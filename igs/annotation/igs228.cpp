#include "igs/annotation/igs228.h"

#include "igs/annotation/igs228_errors.h"
#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/fields/igsEntityFields.h"

igs228::igs228() { set_directory_entry_type(igsEntity228, 0); }

void igs228::check_pd() const {
  m_geometry.restart_index();
  m_leaders.restart_index();
  const igsDimensionCheck<"igs228"> check(*this);
  if (form() == 1 || note().object() != nullptr) check.note();
  if (number_of_geometry() == 0) tag<igs228NoGeometry>();
  check.members<"Geometry", igs228, &igs228::remove_null_geometry>(m_geometry, igsAnyEntity());
  check.members<"Leader", igs228, &igs228::remove_null_leaders>(m_leaders, a_leader);
}
