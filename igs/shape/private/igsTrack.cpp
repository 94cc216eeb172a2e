#include "igs/shape/private/igsTrack.h"

#include <cmath>
#include <utility>

#include "igs/shape/private/igsLine.h"

namespace {
constexpr int quarters = 4;

/// A part of a curve, seen at its ends and between them at the quarters.
struct TrackStretch {
  std::array<igsTrackPoint, quarters + 1> places;
  int depth = 0;

  const igsTrackPoint& first() const { return places.front(); }
  const igsTrackPoint& last() const { return places.back(); }
};

// What a pole leaves open is as next to it.
void settle_pole(igsTrackPoint& place, const igsTrackPoint& beside) {
  if (place.pole == 1) place.uv.x = beside.uv.x;
  if (place.pole == 2) place.uv.y = beside.uv.y;
}

class CurveFollower {
 public:
  CurveFollower(const igsShapeSurface& surface, const igsShapeTolerance& tolerance, const igsLocate& locate)
      : m_surface(surface), m_tolerance(tolerance), m_locate(locate) {}

  void add(double from, double to) {
    std::vector<TrackStretch> waiting{stretch_of(from, to)};
    while (!waiting.empty() && m_is_sound) {
      TrackStretch next = waiting.back();
      waiting.pop_back();
      put_in_line(next);
      if (is_fine(next)) {
        take(next);
      } else {
        waiting.push_back(half(next, 1));
        waiting.push_back(half(next, 0));
      }
    }
  }

  void add(const igsPolylinePoint& from, const igsPolylinePoint& to) {
    TrackStretch stretch = stretch_of(from.parameter, to.parameter);
    stretch.places.front().point = from.point;
    stretch.places.back().point = to.point;
    put_in_line(stretch);
    take(stretch);
  }

  std::vector<igsBorderPoint> finish() {
    if (m_is_begun) m_points.push_back({m_last.uv, m_last.point, {}});
    if (!m_is_sound) m_points.clear();
    return std::move(m_points);
  }

 private:
  TrackStretch stretch_of(double from, double to) {
    TrackStretch stretch;
    igsTrackPoint& first = stretch.places.front();
    first = m_locate(from, igsSide::after, m_is_begun ? &m_last : nullptr);
    if (m_is_begun && first.pole == 0 && (first.point - m_last.point).length() <= 0.01 * m_tolerance.chord) {
      first.uv = m_last.uv;
      first.point = m_last.point;
    }
    for (std::size_t i = 1; i <= quarters; ++i) {
      const double share = static_cast<double>(i) / quarters;
      stretch.places[i] = i == quarters ? m_locate(to, igsSide::before, &stretch.places[i - 1])
                                        : m_locate(from + (to - from) * share, igsSide::after, &stretch.places[i - 1]);
    }
    return stretch;
  }

  TrackStretch half(const TrackStretch& whole, std::size_t which) {
    TrackStretch part;
    part.depth = whole.depth + 1;
    for (std::size_t i = 0; i < 3; ++i) part.places[2 * i] = whole.places[2 * which + i];
    for (std::size_t i = 1; i < quarters; i += 2) {
      const double parameter = (part.places[i - 1].parameter + part.places[i + 1].parameter) / 2;
      part.places[i] = m_locate(parameter, igsSide::after, &part.places[i - 1]);
    }
    return part;
  }

  // In which period a projected place is, its neighbour tells, and the better the nearer that is.
  void put_in_line(TrackStretch& stretch) const {
    bool has_neighbour = m_is_begun;
    igsVec2 neighbour = m_last.uv;
    for (igsTrackPoint& place : stretch.places) {
      if (has_neighbour && place.is_projected) {
        place.uv = place.uv + igs_periods_between(m_surface, place.uv, neighbour);
      }
      has_neighbour = true;
      neighbour = place.uv;
    }
  }

  bool is_fine(const TrackStretch& stretch) const {
    constexpr int deepest = 14;
    constexpr std::size_t least_left = 64;
    if (stretch.depth >= deepest || m_points.size() + least_left > m_tolerance.most) return true;
    const auto& at = stretch.places;
    if (at[1].pole != 0 || at[2].pole != 0 || at[3].pole != 0) return at[0].pole != 0 && at[4].pole != 0;
    if (runs_round(stretch)) return false;
    for (std::size_t i = 1; i < quarters; ++i) {
      if (igs_distance_from_line(at[i].point, at[0].point, at[4].point) > m_tolerance.chord) return false;
    }
    const double smallest = 0.01 * m_tolerance.chord;
    const igsVec3 begin = at[1].point - at[0].point, end = at[4].point - at[3].point;
    if ((at[4].point - at[0].point).length() <= smallest) return true;
    constexpr double seen = 0.75;  // of the turn, between the first quarter and the last
    if (begin.angle_to(end) > seen * m_tolerance.angle) return false;
    return at[0].normal.angle_to(at[4].normal) <= m_tolerance.angle;
  }

  // A closed direction is followed in steps that leave no doubt which way it goes.
  bool runs_round(const TrackStretch& stretch) const {
    constexpr double largest = 0.25;
    const igsVec2 way = stretch.last().uv - stretch.first().uv;
    const auto is_long = [](double step, const igsSurfaceDirection& direction) {
      return direction.is_closed && std::abs(step) > largest * direction.range.length();
    };
    return (is_long(way.x, m_surface.u()) || is_long(way.y, m_surface.v()));
  }

  void take(TrackStretch stretch) {
    settle_pole(stretch.places.front(), stretch.places[1]);
    settle_pole(stretch.places.back(), stretch.places[3]);
    for (const igsTrackPoint& place : stretch.places) {
      if (!place.uv.is_finite() || !place.point.is_finite()) m_is_sound = false;
    }
    const igsTrackPoint& first = stretch.first();
    // A pole that is passed, or a jump of the curve.
    if (m_is_begun && !(m_last.uv == first.uv)) {
      m_points.push_back({m_last.uv, m_last.point, igs_straight_between(m_last.uv, first.uv)});
    }
    m_points.push_back({first.uv, first.point, {stretch.places[1].uv, stretch.places[2].uv, stretch.places[3].uv}});
    m_last = stretch.last();
    m_is_begun = true;
  }

  const igsShapeSurface& m_surface;
  igsShapeTolerance m_tolerance;
  const igsLocate& m_locate;
  std::vector<igsBorderPoint> m_points;
  igsTrackPoint m_last;
  bool m_is_begun = false, m_is_sound = true;
};
}  // namespace

igsVec2 igs_periods_between(const igsShapeSurface& surface, const igsVec2& from, const igsVec2& to) {
  const auto periods = [](double distance, const igsSurfaceDirection& direction) {
    const double period = direction.range.length();
    return direction.is_closed ? period * std::round(distance / period) : 0;
  };
  return {periods(to.x - from.x, surface.u()), periods(to.y - from.y, surface.v())};
}

std::vector<igsBorderPoint> igs_follow(const std::vector<double>& breaks, const igsShapeSurface& surface,
                                       const igsShapeTolerance& tolerance, const igsLocate& locate) {
  CurveFollower follower(surface, tolerance, locate);
  for (std::size_t i = 1; i < breaks.size(); ++i) {
    if (breaks[i] > breaks[i - 1]) follower.add(breaks[i - 1], breaks[i]);
  }
  return follower.finish();
}

std::vector<igsBorderPoint> igs_follow(const std::vector<igsPolylinePoint>& polyline, const igsShapeSurface& surface,
                                       const igsShapeTolerance& tolerance, const igsLocate& locate) {
  CurveFollower follower(surface, tolerance, locate);
  for (std::size_t i = 1; i < polyline.size(); ++i) {
    follower.add(polyline[i - 1], polyline[i]);
  }
  return follower.finish();
}
