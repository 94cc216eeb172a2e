#include "igs/surfaces/igs122.h"

#include "igs/curves/igs110.h"
#include "igs/curves/igsPolyline.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsReferenceTest.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs122_errors.h"

namespace {
using DirectrixTest = igsReferenceTest<igs122NullDirectrix, igs122WrongDirectrixType, igs122InvalidDirectrix>;

// Undefined for what has none, for curves that would have to be evaluated, and for those moved by a matrix.
giPoint3 start_point(const igsObject& curve) {
  if (curve.directory_entry().matrix().object() != nullptr) return {};
  if (const igs110* const line = igs_cast<igs110>(&curve)) return line->has_start() ? line->start_point() : giPoint3();
  const igsPolyline* const polyline = igs_cast<igsPolyline>(&curve);
  if (polyline == nullptr || polyline->is_point_undefined(0)) return {};
  if (polyline->layout() != igsCopiousData::planar) return polyline->point(0);
  const giPoint2 point = polyline->planar_point(0);
  return {point.x(), point.y(), polyline->z_level()};
}
}  // namespace

igs122::igs122() { set_directory_entry_type(igsEntity122, 0); }

void igs122::check_pd() const {
  const igsObject* const directrix = DirectrixTest::check(*this, m_directrix, igsKindOf<igsCurve>());
  if (m_terminate_point.is_undefined()) {
    tag<igs122InvalidTerminatePoint>();
    return;
  }
  const giPoint3 start = directrix != nullptr ? start_point(*directrix) : giPoint3();
  const double tolerance = kel_resource_table_inquire().value(kelTolZeroLength);
  if (!start.is_undefined() && giPoint3::coincident(start, m_terminate_point, tolerance)) {
    tag<igs122CoincidentPoints>(tolerance);
  }
}
