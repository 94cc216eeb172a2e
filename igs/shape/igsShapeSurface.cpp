#include "igs/shape/igsShapeSurface.h"

#include <cmath>
#include <utility>

namespace {
void complete_breaks(igsSurfaceDirection& direction) {
  if (direction.breaks.empty() && direction.range.is_finite()) {
    direction.breaks = {direction.range.low, direction.range.high};
  }
}

double in_range(const igsSurfaceDirection& direction, double t, igsSide& side) {
  const igsRange& range = direction.range;
  if (t >= range.low && t <= range.high) return t;
  if (!direction.is_closed) return range.clamp(t);
  const double period = range.length();
  const double moved = t - period * std::floor((t - range.low) / period);
  if (moved == range.low && side == igsSide::before) return range.high;
  return range.clamp(moved);
}

constexpr int num_samples = 9;
using SidePoints = igsVec3[num_samples];

double extent(const SidePoints& points) {
  igsBox box;
  for (const igsVec3& point : points) box.add(point);
  return box.diagonal();
}

double farthest(const SidePoints& a, const SidePoints& b) {
  double most = 0;
  for (int i = 0; i < num_samples; ++i) most = std::max(most, (a[i] - b[i]).length());
  return most;
}
}  // namespace

igsShapeSurface::~igsShapeSurface() = default;

igsShapeSurface::igsShapeSurface(igsSurfaceDirection u, igsSurfaceDirection v) : m_u(std::move(u)), m_v(std::move(v)) {
  complete_breaks(m_u);
  complete_breaks(m_v);
}

igsSurfacePoint igsShapeSurface::at(double u, double v, igsSide side_u, igsSide side_v) const {
  u = in_range(m_u, u, side_u);
  v = in_range(m_v, v, side_v);
  return evaluate(u, v, side_u, side_v);
}

igsVec3 igsShapeSurface::point(double u, double v, igsSide side_u, igsSide side_v) const {
  u = in_range(m_u, u, side_u);
  v = in_range(m_v, v, side_v);
  return evaluate_point(u, v, side_u, side_v);
}

igsVec3 igsShapeSurface::evaluate_point(double u, double v, igsSide side_u, igsSide side_v) const {
  return evaluate(u, v, side_u, side_v).point;
}

void igsShapeSurface::find_seams_and_poles() {
  if (!is_finite()) return;
  SidePoints low_u, high_u, low_v, high_v, middle_u, middle_v;
  for (int i = 0; i < num_samples; ++i) {
    const double fraction = i / (num_samples - 1.0);
    const double u = m_u.range.at(fraction), v = m_v.range.at(fraction);
    low_u[i] = evaluate_point(m_u.range.low, v, igsSide::after, igsSide::after);
    high_u[i] = evaluate_point(m_u.range.high, v, igsSide::before, igsSide::after);
    middle_u[i] = evaluate_point(m_u.range.at(0.41), v, igsSide::after, igsSide::after);
    low_v[i] = evaluate_point(u, m_v.range.low, igsSide::after, igsSide::after);
    high_v[i] = evaluate_point(u, m_v.range.high, igsSide::after, igsSide::before);
    middle_v[i] = evaluate_point(u, m_v.range.at(0.41), igsSide::after, igsSide::after);
  }
  igsBox box;
  for (const SidePoints* side : {&low_u, &high_u, &middle_u, &low_v, &high_v, &middle_v}) {
    for (const igsVec3& point : *side) box.add(point);
  }
  const double same = 5e-6 * box.diagonal();  // as senders round single-precision surfaces
  m_u.has_pole_low = extent(low_u) <= same;
  m_u.has_pole_high = extent(high_u) <= same;
  m_v.has_pole_low = extent(low_v) <= same;
  m_v.has_pole_high = extent(high_v) <= same;
  m_u.is_closed = farthest(low_u, high_u) <= same && farthest(low_u, middle_u) > same;
  m_v.is_closed = farthest(low_v, high_v) <= same && farthest(low_v, middle_v) > same;
}
