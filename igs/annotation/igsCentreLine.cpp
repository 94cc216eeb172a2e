#include "igs/annotation/igsCentreLine.h"

#include "igs/fields/igsEntityFields.h"

igsCentreLine::igsCentreLine() { set_directory_entry_type(igsEntity106, 20); }

void igsCentreLine::check_pd() const {
  check_plane();
  check_number_of_points(has_paired_points());
  check_points();
}
