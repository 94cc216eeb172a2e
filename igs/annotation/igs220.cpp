#include "igs/annotation/igs220.h"

#include "igs/annotation/private/igsDimensionCheck.h"
#include "igs/curves/igs100.h"
#include "igs/curves/igs102.h"
#include "igs/curves/igsPolyline.h"
#include "igs/curves/igsSimpleClosedPlanarCurve.h"
#include "igs/fields/igsEntityFields.h"

igs220::igs220() { set_directory_entry_type(igsEntity220, 0); }

void igs220::check_pd() const {
  const igsDimensionCheck<"igs220"> check(*this);
  check.note();
  check.required<"Leader">(m_leader, a_leader);
  check.optional<"Geometry">(m_geometry, igsOneOf<igs100, igs102, igsSimpleClosedPlanarCurve, igsPolyline>());
}
