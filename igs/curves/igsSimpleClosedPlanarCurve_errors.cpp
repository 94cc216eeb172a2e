#include "igs/curves/igsSimpleClosedPlanarCurve_errors.h"

#include "igs/objects/igsCast.h"

int igsSimpleClosedPlanarCurveNotClosed::fix() {
  return igs_repair<igsSimpleClosedPlanarCurve>(
      object_at_key(), [](igsSimpleClosedPlanarCurve& curve) { curve.append_point(curve.planar_point(0)); });
}
