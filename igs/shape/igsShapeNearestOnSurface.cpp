#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "igs/shape/igsShapeNearest.h"
#include "igs/shape/private/igsSpanOf.h"

namespace {
constexpr double out_of_reach = std::numeric_limits<double>::infinity();
constexpr std::size_t least_samples = 12, most_samples = 96;  // along u, and along v
constexpr double beside_pole = 0.2;                           // of the way to the next sample
constexpr int most_surface_steps = 40, most_half_steps = 8;
// Steps as parts of the surface's size. Each is about the square of the one before.
constexpr double last_step = 1e-7, negligible_step = 1e-14;
constexpr std::size_t most_starts = 8;

/// One direction without ends has samples where there is something to be seen: not far from 0.
igsRange seen_range(const igsSurfaceDirection& direction) {
  if (direction.range.is_finite()) return direction.range;
  const double low = direction.range.clamp(-1);
  return {low, direction.range.clamp(low + 2)};
}

/// The parameters at which samples are taken, about alike between any two breaks.
std::vector<double> sample_parameters(const igsSurfaceDirection& direction) {
  std::vector<double> breaks = direction.breaks;
  if (breaks.empty()) breaks = {seen_range(direction).low, seen_range(direction).high};
  const std::size_t pieces = breaks.size() - 1;
  const std::size_t count = std::clamp(2 * pieces, least_samples, most_samples) + 1;
  std::vector<double> parameters;
  for (std::size_t i = 0; i < count; ++i) {
    const double place = static_cast<double>(i * pieces) / static_cast<double>(count - 1);
    const std::size_t piece = std::min(static_cast<std::size_t>(place), pieces - 1);
    parameters.push_back(igsRange{breaks[piece], breaks[piece + 1]}.at(place - static_cast<double>(piece)));
  }
  // All samples at a pole would be one.
  if (direction.has_pole_low) parameters.front() = igsRange{parameters[0], parameters[1]}.at(beside_pole);
  if (direction.has_pole_high)
    parameters.back() = igsRange{parameters[count - 1], parameters[count - 2]}.at(beside_pole);
  if (direction.is_closed) parameters.pop_back();
  return parameters;
}

struct DescentState {
  igsVec2 uv;
  igsSurfacePoint at;
  igsVec3 away;  ///< from the target
  double square;
};

/// The parameters that may be gone to.
struct DescentRoom {
  igsRange u, v;
};

/// Goes from parameters downhill to where the distance from a point is least.
class Descent {
 public:
  Descent(const igsShapeSurface& surface, const igsVec3& target, double size)
      : m_surface(surface), m_target(target), m_size(size) {}

  igsNearestOnSurface from(const igsVec2& start) const;

 private:
  using State = DescentState;
  using Room = DescentRoom;

  State at(const igsVec2& uv, igsSide side_u = igsSide::after, igsSide side_v = igsSide::after) const {
    const igsSurfacePoint there = m_surface.at(uv.x, uv.y, side_u, side_v);
    const igsVec3 away = there.point - m_target;
    return {uv, there, away, away.dot(away)};
  }
  /// False, the state left alone, where no part of the step leads to anything nearer.
  bool try_step(State& state, const Room& room, const igsVec2& by, int halvings) const;
  bool cross_edge(State& state) const;

  const igsShapeSurface& m_surface;
  igsVec3 m_target;
  double m_size;
};

/// In the range, where the surface is closed.
double within_period(const igsSurfaceDirection& direction, double t) {
  if (!direction.is_closed) return t;
  const double period = direction.range.length();
  return direction.range.clamp(t - period * std::floor((t - direction.range.low) / period));
}

bool has_pole(const igsSurfaceDirection& direction) { return direction.has_pole_low || direction.has_pole_high; }

igsRange whole_room(const igsSurfaceDirection& direction) {
  return direction.is_closed ? igsRange{-out_of_reach, out_of_reach} : direction.range;
}

/// The piece between breaks that `t` lies in, or on that `side` of it.
igsRange piece_at(const igsSurfaceDirection& direction, double t, igsSide side) {
  if (direction.breaks.empty()) return whole_room(direction);
  const double inside = within_period(direction, t), periods = t - inside;
  const std::size_t i = igs_span_of(direction.breaks, inside, side);
  return {direction.breaks[i] + periods, direction.breaks[i + 1] + periods};
}

double stepped(const igsSurfaceDirection& direction, const igsRange& room, double t, double by) {
  const double most = direction.range.length() / 4;
  return room.clamp(t + std::clamp(by, -most, most));
}

bool is_at_end(const igsRange& room, double t, double by) {
  return (by < 0 && t <= room.low) || (by > 0 && t >= room.high);
}

// Where the distance has no minimum in all directions, the curvature is left out, and along a partial that vanishes
// there is no step.
igsVec2 free_step(const igsSurfacePoint& at, const igsVec3& away) {
  const igsVec2 slope{away.dot(at.u), away.dot(at.v)};
  const double uu = at.u.dot(at.u), uv = at.u.dot(at.v), vv = at.v.dot(at.v);
  double a = uu + away.dot(at.uu), b = uv + away.dot(at.uv), c = vv + away.dot(at.vv);
  double determinant = a * c - b * b;
  if (!(a > 0 && determinant > 1e-6 * uu * vv)) {
    a = uu, b = uv, c = vv;
    determinant = a * c - b * b;
  }
  if (determinant > 1e-12 * uu * vv) {
    return {(b * slope.y - c * slope.x) / determinant, (b * slope.x - a * slope.y) / determinant};
  }
  return {uu > 0 ? -slope.x / uu : 0, vv > 0 ? -slope.y / vv : 0};
}

/// As above in one direction alone.
double step_along(const igsVec3& first, const igsVec3& second, const igsVec3& away) {
  const double square = first.dot(first), curved = square + away.dot(second);
  const double divisor = curved > 1e-6 * square ? curved : square;
  return divisor > 0 ? -away.dot(first) / divisor : 0;
}

// At an end of the room that it would leave the step goes along the end. At a corner, where the partials may be nearly
// parallel, each direction is looked at for itself.
igsVec2 step_within(const DescentState& state, const DescentRoom& room) {
  const igsVec2 free = free_step(state.at, state.away);
  bool stops_u = is_at_end(room.u, state.uv.x, free.x), stops_v = is_at_end(room.v, state.uv.y, free.y);
  if (!stops_u && !stops_v) return free;
  const igsVec2 along{step_along(state.at.u, state.at.uu, state.away), step_along(state.at.v, state.at.vv, state.away)};
  if (stops_u && stops_v) {
    stops_u = is_at_end(room.u, state.uv.x, along.x);
    stops_v = is_at_end(room.v, state.uv.y, along.y);
  }
  return {stops_u ? 0 : along.x, stops_v ? 0 : along.y};
}

bool Descent::try_step(State& state, const Room& room, const igsVec2& by, int halvings) const {
  double factor = 2;
  for (int i = 0; i <= halvings; ++i) {
    factor /= 2;
    const State next = at({stepped(m_surface.u(), room.u, state.uv.x, by.x * factor),
                           stepped(m_surface.v(), room.v, state.uv.y, by.y * factor)});
    if (!(next.square < state.square)) continue;
    state = next;
    return true;
  }
  return false;
}

// Where the surface has an edge, what its derivatives promise ends there: each piece around is tried by itself.
bool Descent::cross_edge(State& state) const {
  for (const igsSide side_u : {igsSide::after, igsSide::before}) {
    for (const igsSide side_v : {igsSide::after, igsSide::before}) {
      const Room piece{piece_at(m_surface.u(), state.uv.x, side_u), piece_at(m_surface.v(), state.uv.y, side_v)};
      if (side_u == igsSide::before && state.uv.x != piece.u.high) continue;
      if (side_v == igsSide::before && state.uv.y != piece.v.high) continue;
      const State beside = at(state.uv, side_u, side_v);
      if (try_step(state, piece, step_within(beside, piece), most_half_steps)) return true;
    }
  }
  return false;
}

igsNearestOnSurface Descent::from(const igsVec2& start) const {
  const Room room{whole_room(m_surface.u()), whole_room(m_surface.v())};
  State now = at(start);
  for (int i = 0; i < most_surface_steps; ++i) {
    const igsVec2 by = step_within(now, room);
    const double length = (now.at.u * by.x).length() + (now.at.v * by.y).length();
    if (!(length > negligible_step * m_size)) break;
    const bool is_last = length <= last_step * m_size;
    if (is_last) {
      try_step(now, room, by, 0);
      break;
    }
    if (!try_step(now, room, by, most_half_steps) && !cross_edge(now)) break;
  }
  const double distance = std::sqrt(now.square);
  return {now.uv, now.at.point, std::isfinite(distance) ? distance : out_of_reach};
}

/// In the period that is nearest to `near`.
double in_period(const igsSurfaceDirection& direction, double t, double near) {
  const double period = direction.range.length();
  return direction.is_closed ? t + period * std::round((near - t) / period) : t;
}

/// The nearest samples, nearest first.
struct Starts {
  struct Start {
    double square;
    std::size_t sample;
  };
  std::array<Start, most_starts> starts;
  std::size_t count = 0;

  void add(const Start& start) {
    if (count == most_starts && !(start.square < starts[count - 1].square)) return;
    std::size_t i = count < most_starts ? count++ : count - 1;
    for (; i > 0 && start.square < starts[i - 1].square; --i) starts[i] = starts[i - 1];
    starts[i] = start;
  }
};
}  // namespace

igsNearestPointOnSurface::igsNearestPointOnSurface(const igsShapeSurface& surface) : m_surface(surface) {
  const igsRange u = seen_range(surface.u()), v = seen_range(surface.v());
  igsBox box;
  for (const double part_u : {0.0, 0.4, 0.7, 1.0}) {
    for (const double part_v : {0.0, 0.4, 0.7, 1.0}) box.add(surface.point(u.at(part_u), v.at(part_v)));
  }
  m_size = box.diagonal();
}

void igsNearestPointOnSurface::take_samples() const {
  const std::vector<double> along_u = sample_parameters(m_surface.u()), along_v = sample_parameters(m_surface.v());
  m_count_u = along_u.size();
  m_samples.reserve(along_u.size() * along_v.size());
  for (const double v : along_v) {
    for (const double u : along_u) m_samples.push_back({{u, v}, m_surface.point(u, v)});
  }
  for (std::size_t k = 1; k < m_samples.size(); ++k) {
    const auto farther_than = [&](std::size_t other) {
      const double distance = (m_samples[k].point - m_samples[other].point).length();
      if (distance > m_spacing) m_spacing = distance;
    };
    if (k % m_count_u != 0) farther_than(k - 1);
    if (k >= m_count_u) farther_than(k - m_count_u);
  }
  m_squares.resize(m_samples.size());
}

// From every sample that is nearer than those beside it, as long as it may lead to something nearer than was found.
igsNearestOnSurface igsNearestPointOnSurface::operator()(const igsVec3& point) const {
  if (m_samples.empty()) take_samples();
  for (std::size_t k = 0; k < m_samples.size(); ++k) {
    const igsVec3 away = m_samples[k].point - point;
    m_squares[k] = away.dot(away);
  }
  Starts starts;
  const std::size_t count_v = m_samples.size() / m_count_u;
  for (std::size_t k = 0; k < m_samples.size(); ++k) {
    const std::size_t i = k % m_count_u, row = k - i, j = k / m_count_u;
    const auto no_nearer = [&](std::size_t other) { return !(m_squares[other] < m_squares[k]); };
    const bool wraps_u = m_surface.u().is_closed, wraps_v = m_surface.v().is_closed;
    const bool is_least = (i > 0 ? no_nearer(k - 1) : !wraps_u || no_nearer(row + m_count_u - 1)) &&
                          (i + 1 < m_count_u ? no_nearer(k + 1) : !wraps_u || no_nearer(row)) &&
                          (j > 0 ? no_nearer(k - m_count_u) : !wraps_v || no_nearer((count_v - 1) * m_count_u + i)) &&
                          (j + 1 < count_v ? no_nearer(k + m_count_u) : !wraps_v || no_nearer(i));
    if (is_least) starts.add({m_squares[k], k});
  }
  igsNearestOnSurface best{{}, {}, out_of_reach};
  for (std::size_t i = 0; i < starts.count; ++i) {
    const Starts::Start& start = starts.starts[i];
    if (std::sqrt(start.square) - m_spacing > best.distance) break;
    const igsNearestOnSurface found = Descent(m_surface, point, m_size).from(m_samples[start.sample].uv);
    if (found.distance < best.distance) best = found;
  }
  best.uv = {within_period(m_surface.u(), best.uv.x), within_period(m_surface.v(), best.uv.y)};
  return best;
}

// Most surfaces are bent so little that all ways lead downhill. Beside a pole the parameters depend on the start.
igsNearestOnSurface igsNearestPointOnSurface::within(const igsVec3& point, double enough) const {
  if (has_pole(m_surface.u()) || has_pole(m_surface.v())) return (*this)(point);
  const igsVec2 middle{seen_range(m_surface.u()).at(0.5), seen_range(m_surface.v()).at(0.5)};
  igsNearestOnSurface found = Descent(m_surface, point, m_size).from(middle);
  if (!(found.distance <= enough)) return (*this)(point);
  found.uv = {within_period(m_surface.u(), found.uv.x), within_period(m_surface.v(), found.uv.y)};
  return found;
}

igsNearestOnSurface igsNearestPointOnSurface::near(const igsVec3& point, const igsVec2& uv, double enough) const {
  const igsNearestOnSurface found = Descent(m_surface, point, m_size).from(uv);
  if (found.distance <= enough) return found;
  igsNearestOnSurface best = (*this)(point);
  if (!(best.distance < found.distance - last_step * m_size)) return found;
  best.uv = {in_period(m_surface.u(), best.uv.x, uv.x), in_period(m_surface.v(), best.uv.y, uv.y)};
  return best;
}
