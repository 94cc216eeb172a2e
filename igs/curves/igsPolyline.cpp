#include "igs/curves/igsPolyline.h"

#include "igs/curves/igsPolyline_errors.h"
#include "igs/fields/igsEntityFields.h"

igsPolyline::igsPolyline() = default;

void igsPolyline::check_pd() const {
  check_layout();
  if (number_of_points() < 2) tag<igsPolylineTooFewPoints>(number_of_points());
  check_points();
}
