#include "igs/geometry/igsPointset.h"

#include "igs/geometry/igsPointset_errors.h"
#include "igs/objects/igsEntityFields.h"

igsPointset::igsPointset() = default;

void igsPointset::check_pd() const {
  check_layout();
  if (number_of_points() < 1) tag<igsPointsetNoPoints>();
  check_points();
}
