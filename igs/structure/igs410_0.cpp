#include "igs/structure/igs410_0.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/structure/igs410_0_errors.h"
#include "igs/surfaces/igs108.h"

namespace {
using PlaneTest = igsReferenceTest<igsNullIsLegal, igs410_0WrongPlaneType, igs410_0InvalidPlane>;
}  // namespace

igs410_0::igs410_0() { set_directory_entry_type(igsEntity410, 0); }

void igs410_0::check_pd() const {
  if (m_scale <= 0) tag<igs410_0InvalidScale>(m_scale);
  for (int i = 0; const igsObjectPtr& plane : m_planes) PlaneTest::check(*this, plane, igsExactly<igs108>(), i++);
}
