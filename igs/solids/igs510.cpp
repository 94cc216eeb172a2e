#include "igs/solids/igs510.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/objects/igsSurface.h"
#include "igs/solids/igs508.h"
#include "igs/solids/igs510_errors.h"

namespace {
using LoopTest = igsReferenceTest<igs510NullLoop, igs510WrongLoopType, igs510InvalidLoop>;
}  // namespace

igs510::igs510() { set_directory_entry_type(igsEntity510, 1); }

void igs510::check_pd() const {
  using SurfaceTest = igsReferenceTest<igs510NullSurface, igs510WrongSurfaceType, igs510InvalidSurface>;
  SurfaceTest::check(*this, m_surface, igsKindOf<igsSurface>());
  if (!igs_is_flag(m_outer_loop_flag)) tag<igs510InvalidOuterLoopFlag>();
  if (m_loops.empty()) tag<igs510NoLoops>();
  for (int i = 0; const igsObjectPtr& loop : m_loops) LoopTest::check(*this, loop, igsExactly<igs508>(), i++);
}
