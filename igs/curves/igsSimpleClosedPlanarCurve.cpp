#include "igs/curves/igsSimpleClosedPlanarCurve.h"

#include "igs/curves/igsSimpleClosedPlanarCurve_errors.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"

igsSimpleClosedPlanarCurve::igsSimpleClosedPlanarCurve() { set_directory_entry_type(igsEntity106, 63); }

void igsSimpleClosedPlanarCurve::check_pd() const {
  check_plane();
  check_points();
  if (number_of_points() < 3) {
    tag<igsSimpleClosedPlanarCurveTooFewPoints>(number_of_points());
  } else if (!is_point_undefined(0) && !is_point_undefined(number_of_points() - 1)) {
    const double distance = gap();
    const double tolerance = kel_resource_table_inquire().value(kelTolClosureCurve3d);
    if (distance > tolerance) tag<igsSimpleClosedPlanarCurveNotClosed>(distance);
  }
}

double igsSimpleClosedPlanarCurve::gap() const {
  const int last = number_of_points() - 1;
  return layout() == planar ? planar_point(0).distance(planar_point(last)) : point(0).distance(point(last));
}
