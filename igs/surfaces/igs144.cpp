#include "igs/surfaces/igs144.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/surfaces/igs142.h"
#include "igs/surfaces/igs144_errors.h"
#include "igs/surfaces/private/igsBoundaries.h"

namespace {
using OuterTest = igsReferenceTest<igsNullIsLegal, igs144InvalidOuterBoundType, igs144InvalidOuterBoundData>;
using InnerTest = igsReferenceTest<igs144NullInnerBoundPtr, igs142InvalidInnerBoundType, igs144InvalidInnerBoundData>;
}  // namespace

igs144::igs144() { set_directory_entry_type(igsEntity144, 0); }

const std::vector<igsObjectPtr>& igs144::inner_boundaries() const {
  return std::as_const(m_inner_boundaries).elements();
}

int igs144::inner_boundary(int i, igsObjectPtr& boundary) const {
  return igs_get_element(inner_boundaries(), i, boundary);
}

bool igs144::lies_on_surface(const igsObjectPtr& boundary) const { return igs_lies_on<igs142>(boundary, m_surface); }

void igs144::check_pd() const {
  using SurfaceTest = igsReferenceTest<igs144NullSurfacePtr, igs144InvalidSurfaceType, igs144InvalidSurfaceData>;
  m_inner_boundaries.restart_index();
  if (!igs_is_flag(m_outer_boundary_flag)) tag<igs144InvalidOuterBoundaryFlag>(m_outer_boundary_flag);
  SurfaceTest::check(*this, m_surface, igsKindOf<igsSurface>());
  const igsObject* const outer = OuterTest::check(*this, m_outer_boundary, igsExactly<igs142>());
  if (outer != nullptr && !lies_on_surface(m_outer_boundary)) tag<igs144OuterBoundSurfaceMismatch>();
  check_inner_boundaries();
  if (m_outer_boundary.object() == nullptr && inner_boundaries().empty()) tag<igs144NoBoundaries>();
}

void igs144::check_inner_boundaries() const {
  for (int i = 0; const igsObjectPtr& boundary : inner_boundaries()) {
    const igsObject* const found = InnerTest::check(*this, boundary, igsExactly<igs142>(), i);
    if (found != nullptr && !lies_on_surface(boundary)) tag<igs144InnerBoundSurfaceMismatch>(i);
    ++i;
  }
}
