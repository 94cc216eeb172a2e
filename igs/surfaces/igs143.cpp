#include "igs/surfaces/igs143.h"

#include "igs/curves/private/igsGeometryChecks.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs143_errors.h"
#include "igs/surfaces/private/igsBoundaries.h"

igs143::igs143() { set_directory_entry_type(igsEntity143, 0); }

bool igs143::lies_on_surface(const igsObjectPtr& boundary) const {
  return igs_lies_on<igs141>(boundary, m_basis_surface);
}

void igs143::check_pd() const {
  using BoundaryTest = igsReferenceTest<igs143NullBoundaryPtr, igs143InvalidBoundaryType, igs143InvalidBoundaryData>;
  using SurfaceTest = igsReferenceTest<igs143NullSurfacePtr, igs143InvalidSurfaceType, igs143InvalidSurfaceData>;
  const int type = m_surface_representation;
  if (!igs_is_flag(type)) tag<igs143InvalidSurfaceRepresentation>(type);
  SurfaceTest::check(*this, m_basis_surface, igsKindOf<igsSurface>());
  if (m_boundaries.empty()) tag<igs143NoBoundaries>();
  for (int i = 0; const igsObjectPtr& boundary : m_boundaries) {
    const igsObject* const found = BoundaryTest::check(*this, boundary, igsExactly<igs141>(), i);
    if (found != nullptr && !lies_on_surface(boundary)) tag<igs143SurfacePointerMismatch>(i);
    ++i;
  }
}

void igs143::check_de() const { directory_entry().shape_check(false); }
