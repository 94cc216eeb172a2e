#include "igs/shape/private/igsSplineBasis.h"

#include <algorithm>
#include <cmath>

#include "igs/curves/igsKnotVector.h"
#include "igs/shape/private/igsSpanOf.h"

namespace {
// Spans that rounding has left between knots that were meant to be one: the part of the range that they are.
constexpr double negligible_span = 1e-13;

bool is_usable_knot(double knot) { return std::isfinite(knot) && !igs_is_undefined_real(knot); }
}  // namespace

std::optional<igsSplineBasis> igsSplineBasis::make(const igsKnotVector& knots, int num_points) {
  const int order = knots.order();
  if (order < 1 || order > highest_degree + 1 || num_points < order) return std::nullopt;
  if (knots.number_of_knots() != order + num_points) return std::nullopt;
  if (!std::all_of(knots.knots().begin(), knots.knots().end(), is_usable_knot) ||
      !std::is_sorted(knots.knots().begin(), knots.knots().end())) {
    return std::nullopt;
  }
  igsSplineBasis basis;
  basis.m_degree = order - 1;
  basis.m_knots.assign(knots.knots().begin(), knots.knots().end());
  if (!basis.find_range(knots, static_cast<std::size_t>(num_points))) return std::nullopt;
  basis.find_spans(static_cast<std::size_t>(num_points));
  return basis;
}

bool igsSplineBasis::find_range(const igsKnotVector& knots, std::size_t num_points) {
  const igsRange all{m_knots[static_cast<std::size_t>(m_degree)], m_knots[num_points]};
  m_range = {all.clamp(knots.start()), all.clamp(knots.end())};
  const bool has_limits = is_usable_knot(knots.start()) && is_usable_knot(knots.end());
  if (!has_limits || !(m_range.low < m_range.high)) m_range = all;
  return m_range.low < m_range.high && std::isfinite(m_range.length());
}

void igsSplineBasis::find_spans(std::size_t num_points) {
  const double shortest = negligible_span * m_range.length();
  m_breaks.push_back(m_range.low);
  for (auto i = static_cast<std::size_t>(m_degree); i < num_points; ++i) {
    const double end = std::min(m_knots[i + 1], m_range.high);
    if (!(end - std::max(m_knots[i], m_range.low) > shortest)) continue;
    m_spans.push_back(i);
    m_breaks.push_back(end);
  }
  m_breaks.back() = m_range.high;
}

// By the recurrence of Cox and de Boor. The steps that lead from one degree to the next lead to its derivatives, too,
// when they are made of differences.
void igsSplineBasis::evaluate(double t, igsSide side, Values& values) const {
  const std::size_t span = m_spans[igs_span_of(m_breaks, t, side)];
  values.first_point = span - static_cast<std::size_t>(m_degree);
  double *const value = values.value, *const first = values.first, *const second = values.second;
  value[0] = 1;
  first[0] = second[0] = 0;
  for (int degree = 1; degree <= m_degree; ++degree) {
    const double* const high = m_knots.data() + span + 1;
    const double* const low = high - degree;
    double carried = 0, carried_first = 0, carried_second = 0;
    for (int i = 0; i < degree; ++i) {
      const double inverse = 1 / (high[i] - low[i]);
      const double part = value[i] * inverse, slope = first[i] * inverse;
      value[i] = carried + (high[i] - t) * part;
      carried = (t - low[i]) * part;
      second[i] = degree * (carried_second - slope);
      carried_second = slope;
      first[i] = degree * (carried_first - part);
      carried_first = part;
    }
    value[degree] = carried;
    second[degree] = degree * carried_second;
    first[degree] = degree * carried_first;
  }
}

void igsSplineBasis::evaluate_values(double t, igsSide side, Values& values) const {
  const std::size_t span = m_spans[igs_span_of(m_breaks, t, side)];
  values.first_point = span - static_cast<std::size_t>(m_degree);
  double* const value = values.value;
  value[0] = 1;
  for (int degree = 1; degree <= m_degree; ++degree) {
    const double* const high = m_knots.data() + span + 1;
    const double* const low = high - degree;
    double carried = 0;
    for (int i = 0; i < degree; ++i) {
      const double part = value[i] * (1 / (high[i] - low[i]));
      value[i] = carried + (high[i] - t) * part;
      carried = (t - low[i]) * part;
    }
    value[degree] = carried;
  }
}
