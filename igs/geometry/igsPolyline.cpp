#include "igs/geometry/igsPolyline.h"

#include "igs/geometry/igsPolyline_errors.h"
#include "igs/objects/igsEntityFields.h"

igsPolyline::igsPolyline() = default;

void igsPolyline::check_pd() const {
  check_layout();
  if (number_of_points() < 2) tag<igsPolylineTooFewPoints>(number_of_points());
  check_points();
}
