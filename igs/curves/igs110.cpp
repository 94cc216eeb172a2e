#include "igs/curves/igs110.h"

#include "igs/curves/igs110_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/support/coResourceTable.h"

igs110::igs110() { set_directory_entry_type(igsEntity110, 0); }

int igs110::form() const { return directory_entry().form_number(); }

int igs110::set_start_point(const giPoint3& start) {
  if (!start.is_undefined()) m_start_point = start;
  return 1;
}

int igs110::set_end_point(const giPoint3& end) {
  if (!end.is_undefined()) m_end_point = end;
  return 1;
}

bool igs110::coincident_end_points(double tolerance) const {
  return giPoint3::coincident(m_start_point, m_end_point, tolerance);
}

void igs110::check_pd() const {
  const bool no_start = m_start_point.is_undefined();
  const bool no_end = m_end_point.is_undefined();
  if (no_start) tag<igs110InvalidStartPoint>();
  if (no_end) tag<igs110InvalidEndPoint>();
  const double tolerance = kel_resource_table_inquire().value(kelTolZeroLength);
  if (!no_start && !no_end && coincident_end_points(tolerance)) tag<igs110CoincidentPoints>(tolerance);
}
