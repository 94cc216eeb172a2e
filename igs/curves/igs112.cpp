#include "igs/curves/igs112.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "igs/curves/igs112_errors.h"
#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"

namespace {
bool leaves_plane(const igsCubicSegment& segment, double tolerance) {
  const auto& z = segment.z.coefficients();
  return std::any_of(z.begin() + 1, z.end(), [tolerance](double coefficient) {
    return !igs_is_undefined_real(coefficient) && std::abs(coefficient) > tolerance;
  });
}
}  // namespace

igs112::igs112() {
  set_directory_entry_type(igsEntity112, 0);
  m_end_values.set_unset_to_zero();
}

int igs112::set_size(int segments) {
  if (segments < 1 || segments == INT_MAX) return 0;
  const auto size = static_cast<std::size_t>(segments);
  std::vector<igsCubicSegment> unset_segments(size);
  m_break_points.assign(size + 1, igs_undefined_real);
  m_segments.swap(unset_segments);
  return 1;
}

int igs112::raise_break_point(int i, double previous, double tolerance) {
  return igs_raise_knot(m_break_points, i, previous, tolerance);
}

int igs112::read_pd_data(igsInStream& in) {
  const int is_usable = igsEntity::read_pd_data(in);
  m_end_values.set_unset_to_zero();
  if (is_usable == 0) {
    m_break_points = std::vector<double>();
    m_segments.clear();
  }
  return is_usable;
}

void igs112::check_pd() const {
  if (m_spline_type < 1 || m_spline_type > 6) tag<igs112InvalidSplineType>(m_spline_type);
  if (m_continuity < 0 || m_continuity > 3) tag<igs112InvalidContinuity>(m_continuity);
  if (m_dimension < 2 || m_dimension > 3) tag<igs112InvalidDimension>(m_dimension);
  if (number_of_segments() < 1) tag<igs112BadNumSegments>(number_of_segments());
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincBreakPoints);
  igs_check_break_points<igs112BreakPointErrors>(*this, m_break_points, tolerance);
  check_segments();
}

void igs112::check_segments() const {
  for (int i = 0; const igsCubicSegment& segment : m_segments) {
    if (segment.has_unset()) tag<igs112UnsetCoefficient>(i);
    ++i;
  }
  if (m_dimension != 2) return;
  const double tolerance = kel_resource_table_inquire().value(kelTolMinValue);
  for (int i = 0; const igsCubicSegment& segment : m_segments) {
    if (leaves_plane(segment, tolerance)) {
      tag<igs112NotPlanar>(i);
      break;
    }
    ++i;
  }
}
