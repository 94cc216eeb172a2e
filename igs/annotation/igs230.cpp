#include "igs/annotation/igs230.h"

#include "igs/annotation/igs230_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/objects/igsCurve.h"

igs230::igs230() { set_directory_entry_type(igsEntity230, 0); }

void igs230::check_pd() const {
  using BoundaryTest = igsReferenceTest<igs230NullBoundary, igs230WrongBoundaryType, igs230InvalidBoundary>;
  m_islands.restart_index();
  BoundaryTest::check(*this, m_boundary, igsKindOf<igsCurve>());
  if (m_pattern < 0) tag<igs230InvalidPattern>(m_pattern);
  if (m_point.is_undefined()) tag<igs230InvalidPoint>();
  if (!(m_distance >= 0)) tag<igs230InvalidDistance>(m_distance);
  if (igs_is_undefined_real(m_angle)) tag<igs230InvalidAngle>();
  for (int i = 0; const igsObjectPtr& island : islands()) {
    igs230IslandErrors::Test::check(*this, island, igsKindOf<igsCurve>(), i++);
  }
}
