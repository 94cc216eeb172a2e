#include "igs/curves/igsSimpleClosedPlanarCurve_errors.h"

#include "igs/curves/igsConvert.h"
#include "igs/curves/igsPolyline.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsCast.h"

namespace {
int make_polyline(igsSimpleClosedPlanarCurve& curve) {
  return curve.file().replace_entity(&curve, igsConvert::closed_curve_to_polyline(&curve));
}
}  // namespace

int igs_settle_dimensionality(igsSimpleClosedPlanarCurve& curve) {
  if (curve.layout() != igsCopiousData::planar) return make_polyline(curve);
  curve.accept_dimensionality();
  return 1;
}

int igsSimpleClosedPlanarCurveNotClosed::fix() {
  if (igs_cast<igsPolyline>(object_at_key()) != nullptr) return 1;  // its other repair has made it one
  return igs_repair<igsSimpleClosedPlanarCurve>(object_at_key(), make_polyline);
}
