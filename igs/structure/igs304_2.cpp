#include "igs/structure/igs304_2.h"

#include <utility>

#include "igs/fields/igsEntityFields.h"
#include "igs/structure/igs304_2_errors.h"

igs304_2::igs304_2() { set_directory_entry_type(igsEntity304, 2); }

void igs304_2::set_lengths(std::vector<double> lengths) { m_lengths = std::move(lengths); }

void igs304_2::check_pd() const {
  if (m_lengths.empty()) tag<igs304_2NoSegments>();
  for (int i = 0; const double length : m_lengths) {
    if (!(length >= 0)) tag<igs304_2InvalidLength>(i, length);
    ++i;
  }
  if (m_pattern.empty() || m_pattern.find_first_not_of("0123456789ABCDEFabcdef") != utString::npos) {
    tag<igs304_2InvalidPattern>();
  }
}
