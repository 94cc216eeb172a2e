#include "igs/structure/igs416.h"

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs416_errors.h"

igs416::igs416() { set_directory_entry_type(igsEntity416, 1); }

void igs416::check_pd() const {
  if (m_file_name.find_first_not_of(' ') == utString::npos) tag<igs416NoFileName>();
}
