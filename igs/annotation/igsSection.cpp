#include "igs/annotation/igsSection.h"

#include "igs/fields/igsEntityFields.h"

igsSection::igsSection() { set_directory_entry_type(igsEntity106, 31); }

void igsSection::check_pd() const {
  check_plane();
  check_number_of_points(has_paired_points());
  check_points();
}
