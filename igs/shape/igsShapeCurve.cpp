#include "igs/shape/igsShapeCurve.h"

#include <utility>

igsShapeCurve::~igsShapeCurve() = default;

igsShapeCurve::igsShapeCurve(const igsRange& range, std::vector<double> breaks)
    : m_range(range), m_breaks(std::move(breaks)) {
  if (m_breaks.empty() && m_range.is_finite()) m_breaks = {m_range.low, m_range.high};
}

igsVec3 igsShapeCurve::evaluate_point(double t, igsSide side) const { return evaluate(t, side).point; }

bool igsShapeCurve::is_closed(double tolerance) const {
  return m_range.is_finite() && (end() - start()).length() <= tolerance;
}
