#include "igs/curves/igs112.h"

#include <climits>
#include <cmath>
#include <string>

#include "igs/curves/igs112_errors.h"
#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsListAccess.h"
#include "igs/support/coResourceTable.h"

namespace {
struct BreakPointErrors {
  using UnsetKnot = igs112UnsetBreakPoint;
  using KnotOutOfSequence = igs112BreakPointOutOfSequence;
  using KnotsTooClose = igs112BreakPointsTooClose;
};

/// The segments of a curve as a record that can be printed.
struct Segments {
  const igs112& curve;

  template <class E, class V>
  static void fields(E& segments, V& visit) {
    igsCubicSegment segment;
    for (int i = 0; segments.curve.segment(i, segment) != 0; ++i) {
      visit(('(' + std::to_string(i) + ')').c_str(), segment);
    }
  }
};

constexpr igsBadCount<igs112BadNumSegments> bad_count_of_112;
}  // namespace

igs112::igs112() { set_directory_entry_type(igsEntity112, 0); }

int igs112::set_size(int segments) {
  if (segments < 1 || segments == INT_MAX) return 0;
  const auto size = static_cast<std::size_t>(segments);
  std::vector<double> coefficients(size * igsCubicSegment::size, igs_undefined_real);
  m_break_points.assign(size + 1, igs_undefined_real);
  m_coefficients.swap(coefficients);
  return 1;
}

int igs112::number_of_segments() const { return static_cast<int>(m_coefficients.size() / igsCubicSegment::size); }

int igs112::break_point(int i, double& value) const { return igs_get_element(m_break_points, i, value); }
int igs112::set_break_point(int i, double value) { return igs_set_element(m_break_points, i, value); }
int igs112::raise_break_point(int i, double previous, double tolerance) {
  return igs_raise_knot(m_break_points, i, previous, tolerance);
}

int igs112::segment(int i, igsCubicSegment& segment) const {
  return igs_get_piece(m_coefficients, igs_position(i), segment);
}
int igs112::set_segment(int i, const igsCubicSegment& segment) {
  return igs_set_piece(m_coefficients, igs_position(i), segment);
}

igsCubicSegment igs112::end_values() const {
  igsCubicSegment values;
  igs_get_piece(m_end_values, 0, values);
  return values;
}
void igs112::set_end_values(const igsCubicSegment& values) { igs_set_piece(m_end_values, 0, values); }

igsObject* igs112::make_one() { return new igs112; }

int igs112::read_pd_data(igsInStream& in) {
  int count = 0;
  for (int* const field : {&m_spline_type, &m_continuity, &m_dimension, &count}) in.read_integer(*field);
  if (read_segments(in, count) == 0) {
    tag<igs112BadNumSegments>(count);
    m_break_points = std::vector<double>();
    m_coefficients = std::vector<double>();
    return 0;
  }
  for (double& value : m_end_values) in.read_double(value);
  return 1;
}

// The arrays grow as their values arrive.
int igs112::read_segments(igsInStream& in, int count) {
  constexpr std::int64_t size = igsCubicSegment::size;
  return count > 0 && igs_read_reals(in, std::int64_t{count} + 1, m_break_points) != 0 &&
                 igs_read_reals(in, count * size, m_coefficients, m_break_points.size()) != 0
             ? 1
             : 0;
}

template <class V>
void igs112::written_fields(V& visit) const {
  visit("SplineType", m_spline_type);
  visit("Continuity", m_continuity);
  visit("Dimension", m_dimension);
  visit("NumberOfSegments", number_of_segments());
  visit.list("BreakPoints", 0, m_break_points, bad_count_of_112);
  visit("Segments", Segments{*this});
  visit("EndValues", end_values());
}

void igs112::write_pd_data(igsOutStream& out) {
  igsFieldWriter writer(out);
  written_fields(writer);
}

void igs112::visit_fields(igsFieldVisitor& visitor) const {
  igsFieldShower shower(visitor);
  written_fields(shower);
}

void igs112::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  printer("SplineType", m_spline_type);
  printer("Continuity", m_continuity);
  printer("Dimension", m_dimension);
  printer("NumberOfSegments", number_of_segments());
  printer.list("BreakPoints", 0, m_break_points, bad_count_of_112);
  printer("Segments", Segments{*this});
  printer("EndValues", end_values());
}

void igs112::check_pd() const {
  if (m_spline_type < 1 || m_spline_type > 6) tag<igs112InvalidSplineType>(m_spline_type);
  if (m_continuity < 0 || m_continuity > 3) tag<igs112InvalidContinuity>(m_continuity);
  if (m_dimension < 2 || m_dimension > 3) tag<igs112InvalidDimension>(m_dimension);
  if (number_of_segments() < 1) tag<igs112BadNumSegments>(number_of_segments());
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincBreakPoints);
  igs_check_break_points<BreakPointErrors>(*this, m_break_points, tolerance);
  check_segments();
}

void igs112::check_segments() const {
  const auto count = static_cast<std::size_t>(number_of_segments());
  for (std::size_t i = 0; i < count; ++i) {
    if (igs_piece_is_unset<4>(m_coefficients, i)) tag<igs112UnsetCoefficient>(static_cast<int>(i));
  }
  const double tolerance = kel_resource_table_inquire().value(kelTolMinValue);
  for (std::size_t i = 0; m_dimension == 2 && i < count; ++i) {
    if (!leaves_plane(i, tolerance)) continue;
    tag<igs112NotPlanar>(static_cast<int>(i));
    break;
  }
}

bool igs112::leaves_plane(std::size_t segment, double tolerance) const {
  const double* const z = m_coefficients.data() + (segment + 1) * igsCubicSegment::size - 4;
  return std::any_of(
      z + 1, z + 4, [tolerance](double value) { return !igs_is_undefined_real(value) && std::abs(value) > tolerance; });
}
