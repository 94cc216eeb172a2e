#include "igs/surfaces/igs140.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs140_errors.h"

igs140::igs140() { set_directory_entry_type(igsEntity140, 0); }

void igs140::check_pd() const {
  using SurfaceTest = igsReferenceTest<igs140NullSurface, igs140WrongSurfaceType, igs140InvalidSurface>;
  const double tolerance = kel_resource_table_inquire().value(kelTolMinValue);
  if (m_indicator.is_undefined() || m_indicator.length() < tolerance) tag<igs140ZeroIndicator>();
  if (igs_is_undefined_real(m_distance)) tag<igs140InvalidDistance>();
  SurfaceTest::check(*this, m_surface, igsKindOf<igsSurface>());
}
