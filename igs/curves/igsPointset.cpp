#include "igs/curves/igsPointset.h"

#include "igs/curves/igsPointset_errors.h"
#include "igs/fields/igsEntityFields.h"

igsPointset::igsPointset() = default;

void igsPointset::check_pd() const {
  check_layout();
  if (number_of_points() < 1) tag<igsPointsetNoPoints>();
  check_points();
}
