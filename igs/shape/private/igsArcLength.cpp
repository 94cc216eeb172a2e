#include "igs/shape/private/igsArcLength.h"

#include <cmath>
#include <cstddef>

#include "igs/shape/private/igsSpanOf.h"

namespace {
// So many that what is left is short enough to be integrated in one step.
constexpr int steps_per_span = 8;
constexpr double same_place = 1e-12;  // of a range
}  // namespace

igsArcLength::igsArcLength(const igsShapeCurve& curve, const std::vector<double>& breaks)
    : m_curve(curve), m_parameters{breaks.front()}, m_fractions{0} {
  for (std::size_t i = 1; i < breaks.size(); ++i) {
    const igsRange span{breaks[i - 1], breaks[i]};
    for (int step = 1; step <= steps_per_span; ++step) {
      const double parameter = span.at(static_cast<double>(step) / steps_per_span);
      m_length += length_between(m_parameters.back(), parameter);
      m_parameters.push_back(parameter);
      m_fractions.push_back(m_length);
    }
  }
  const igsRange all{breaks.front(), breaks.back()};
  for (std::size_t i = 0; i < m_fractions.size(); ++i) {
    if (m_length > 0) m_fractions[i] /= m_length;
    const double even = (m_parameters[i] - all.low) / all.length();
    m_is_even = m_is_even && std::abs(m_fractions[i] - even) <= same_place;
  }
}

// Between two parameters of one step, by Gauss's rule with five points.
double igsArcLength::length_between(double from, double to) const {
  static constexpr double places[] = {0, 0.5384693101056831, 0.9061798459386640};
  static constexpr double weights[] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
  const double middle = (from + to) / 2, half = (to - from) / 2;
  double sum = weights[0] * m_curve.at(middle).first.length();
  for (int i = 1; i < 3; ++i) {
    const double speed =
        m_curve.at(middle - half * places[i]).first.length() + m_curve.at(middle + half * places[i]).first.length();
    sum += weights[i] * speed;
  }
  return sum * half;
}

double igsArcLength::fraction_at(double parameter) const {
  const std::size_t i = igs_span_of(m_parameters, parameter, igsSide::after);
  return m_fractions[i] + (m_length > 0 ? length_between(m_parameters[i], parameter) / m_length : 0);
}

// Newton's method from where the straight line between the ends of the step would have it.
double igsArcLength::parameter_at(double fraction, igsSide side) const {
  const std::size_t i = igs_span_of(m_fractions, fraction, side);
  const igsRange step{m_parameters[i], m_parameters[i + 1]};
  const double share = m_fractions[i + 1] - m_fractions[i];
  double parameter = share > 0 ? step.at((fraction - m_fractions[i]) / share) : step.high;
  for (int round = 0; round < 8; ++round) {
    const double speed = m_curve.at(parameter, side).first.length();
    const double missing = (fraction - m_fractions[i]) * m_length - length_between(step.low, parameter);
    const double next = speed > 0 ? step.clamp(parameter + missing / speed) : parameter;
    const double moved = std::abs(next - parameter);
    parameter = next;
    if (moved <= same_place * step.length()) break;
  }
  return parameter;
}
