#include "igs/surfaces/igs142.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCurve.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs142_errors.h"

namespace {
using Curve2dTest = igsReferenceTest<igsNullIsLegal, igs142InvalidCurve2dType, igs142InvalidCurve2dData>;
using Curve3dTest = igsReferenceTest<igsNullIsLegal, igs142InvalidCurve3dType, igs142InvalidCurve3dData>;
}  // namespace

igs142::igs142() { set_directory_entry_type(igsEntity142, 0); }

void igs142::check_pd() const {
  using SurfaceTest = igsReferenceTest<igs142NullSurfacePtr, igs142InvalidSurfaceType, igs142InvalidSurfaceData>;
  if (m_curve_creation < 0 || m_curve_creation > 3) tag<igs142InvalidCurveCreation>(m_curve_creation);
  if (m_preferred_representation < 0 || m_preferred_representation > 3) {
    tag<igs142InvalidPrefRepresentation>(m_preferred_representation);
  }
  const igsObject* const surface = SurfaceTest::check(*this, m_surface, igsKindOf<igsSurface>());
  Curve2dTest::check(*this, m_curve_2d, igsKindOf<igsCurve>());
  const bool has_curve_2d = m_curve_2d.object() != nullptr;
  if (has_curve_2d && surface != nullptr && surface->isa(igs108::type())) tag<igs142Trim2DNonParametricSurface>();
  Curve3dTest::check(*this, m_curve_3d, igsKindOf<igsCurve>());
  if (!has_curve_2d && m_curve_3d.object() == nullptr) tag<igs142NoTrimCurves>();
}

void igs142::check_de() const { directory_entry().shape_check(true); }
