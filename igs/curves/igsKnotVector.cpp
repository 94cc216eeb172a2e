#include "igs/curves/igsKnotVector.h"

#include <cstddef>
#include <cstdint>

#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsListAccess.h"
#include "igs/support/utOstream.h"

int igsKnotVector::knot(int i, double& value) const { return igs_get_element(m_knots, i, value); }

int igsKnotVector::set_knot(int i, double value) { return igs_set_element(m_knots, i, value); }

void igsKnotVector::range(double& low, double& high) const {
  if (m_knots.empty()) return;
  knot(m_order - 1, low);
  knot(number_of_knots() - m_order, high);
}

int igsKnotVector::set_limits(double start, double end) {
  if (!(end >= start)) return 0;
  m_start = start;
  m_end = end;
  return 1;
}

int igsKnotVector::start_at_range() {
  double low = m_start, high = m_end;
  range(low, high);
  return set_limits(low, m_end);
}

int igsKnotVector::end_at_range() {
  double low = m_start, high = m_end;
  range(low, high);
  return set_limits(m_start, high);
}

int igsKnotVector::limit_to_range() {
  double low = m_start, high = m_end;
  range(low, high);
  return set_limits(low, high);
}

int igsKnotVector::raise_knot(int i, double previous, double tolerance) {
  return igs_raise_knot(m_knots, i, previous, tolerance);
}

void igsKnotVector::snap_knots(double tolerance) {
  if (m_knots.empty()) return;
  const auto order = static_cast<std::size_t>(m_order);
  const std::size_t last = m_knots.size() - order;  // T(N)
  for (std::size_t i = last; i > order; --i) {
    const double distance = m_knots[i] - m_knots[i - 1];
    if (!(distance > 0 && distance < tolerance)) break;
    m_knots[i - 1] = m_knots[i];
  }
  for (std::size_t i = order; i < last; ++i) {
    const double distance = m_knots[i + 1] - m_knots[i];
    if (distance > 0 && distance < tolerance) m_knots[i + 1] = m_knots[i];
  }
}

void igsKnotVector::make(int order, int count) {
  m_knots.assign(static_cast<std::size_t>(order) + static_cast<std::size_t>(count), igs_undefined_real);
  m_order = order;
}

int igsKnotVector::read_knots(igsInStream& in, int order, int count) {
  m_order = order;
  return igs_read_reals(in, std::int64_t{order} + count, m_knots);
}

void igsKnotVector::read_limits(igsInStream& in) {
  m_start = igs_read_supplied(in);
  m_end = igs_read_supplied(in);
}

void igsKnotVector::print_knots(utOstream& os, const char* label) const {
  os << label << " = {" << utEndl;
  utOstream inner(os, 1);
  for (std::size_t i = 0; i < m_knots.size(); ++i) {
    if (i > 0 && m_knots[i] == m_knots[i - 1]) inner << ',';
    if (i > 0 && m_knots[i] != m_knots[i - 1]) inner << utEndl;
    inner << m_knots[i];
  }
  if (!m_knots.empty()) inner << utEndl;
  os << '}' << utEndl;
}
