#include "igs/curves/igs116.h"

#include "igs/curves/igs116_errors.h"
#include "igs/fields/igsEntityFields.h"

igs116::igs116() { set_directory_entry_type(igsEntity116, 0); }

int igs116::set_point(const giPoint3& point) {
  if (!point.is_undefined()) m_point = point;
  return 1;
}

void igs116::check_pd() const {
  if (m_point.is_undefined()) tag<igs116InvalidPoint>();
}
