#include "igs/shape/private/igsFaceDomain.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include "igs/objects/igsCast.h"
#include "igs/solids/igs510.h"
#include "igs/surfaces/igs144.h"

namespace {
/// Of periods; 0 where the points are no numbers or too far off.
int whole_number(double value) { return std::abs(value) < 1e9 ? static_cast<int>(value) : 0; }

/// The loops cut along a way across all that wind round the surface, so that every line lies in one period: along s,
/// which is u or v, t being the other one.
class PeriodCut {
 public:
  PeriodCut(const igsShapeFace& face, const igsShapeTolerance& tolerance, bool is_along_v, igsFaceDomain& domain)
      : m_face(face),
        m_surface(*face.surface),
        m_tolerance(tolerance),
        m_is_along_v(is_along_v),
        m_period((is_along_v ? m_surface.v() : m_surface.u()).range.length()),
        m_domain(domain) {}

  bool run(std::vector<igsBorderLoop> loops, bool is_whole) {
    m_loops = std::move(loops);
    if (!find_winding() || !complete(is_whole) || m_winding.empty()) return false;
    sort_winding();
    choose_way();
    for (std::size_t i = 0; i < m_loops.size(); ++i) place(i);
    add_cut();
    return true;
  }

 private:
  struct Winding {
    std::size_t loop;
    bool was_forward;
    double t;            // on average
    std::size_t at = 0;  // the point where the way crosses
    igsVec2 st;          // the place of that, in the period of the way
    int turn = 0;        // the period where the point is, less that of the way
  };
  /// Where the way meets a loop.
  struct Station {
    double t;
    int left, right;  // points of the domain
  };

  // From u and v to s and t, and back.
  igsVec2 st(const igsVec2& uv) const { return m_is_along_v ? igsVec2{uv.y, uv.x} : uv; }
  const igsSurfaceDirection& across() const { return m_is_along_v ? m_surface.u() : m_surface.v(); }

  static void turn_loop(igsBorderLoop& loop) {
    std::vector<igsBorderPoint> points(loop.points.rbegin(), loop.points.rend());
    const std::size_t count = points.size();
    for (std::size_t i = 0; i < count; ++i) {
      const auto& way = loop.points[(2 * count - 2 - i) % count].between;
      points[i].between = {way[2], way[1], way[0]};
    }
    // The way back to the first point has crossed to the next period.
    for (igsVec2& uv : points.back().between) uv = uv - loop.winding;
    loop.points = std::move(points);
    loop.winding = loop.winding * -1;
  }

  bool find_winding() {
    for (std::size_t i = 0; i < m_loops.size(); ++i) {
      const igsVec2 winding = st(m_loops[i].winding);
      if (winding == igsVec2{}) continue;
      if (winding.y != 0 || std::abs(std::abs(winding.x) - m_period) > 0.01 * m_period) return false;
      if (winding.x < 0) turn_loop(m_loops[i]);
      m_winding.push_back({i, winding.x > 0, average_t(i), 0, {}, 0});
    }
    return true;
  }

  double average_t(std::size_t loop) const {
    double sum = 0;
    for (const igsBorderPoint& point : m_loops[loop].points) sum += st(point.uv).y;
    return sum / static_cast<double>(m_loops[loop].points.size());
  }

  void add_end(double t) {
    const double s = m_winding.empty() ? (m_is_along_v ? m_surface.v() : m_surface.u()).range.low
                                       : st(m_loops[m_winding.front().loop].points.front().uv).x;
    igsBorderLoop end{igs_straight_border(m_surface, st({s, t}), st({s + m_period, t}), m_tolerance),
                      st({m_period, 0})};
    if (end.points.empty()) return;
    m_loops.push_back(std::move(end));
    m_winding.push_back({m_loops.size() - 1, true, t, 0, {}, 0});
  }

  // As the natural boundary completes it: to both ends of the surface, or of one loop to the end where the face is.
  bool complete(bool is_whole) {
    const igsSurfaceDirection& ends = across();
    if (is_whole) {
      if (ends.is_closed || !ends.range.is_finite()) return false;
      add_end(ends.range.low);
      add_end(ends.range.high);
    } else if (m_winding.size() % 2 == 1) {
      if (ends.is_closed) return false;
      const double end = is_above() ? ends.range.high : ends.range.low;
      if (!std::isfinite(end)) return false;
      add_end(end);
    } else if (ends.is_closed && m_winding.size() == 2) {
      put_on_side(m_winding[0], m_winding[1], ends.range.length());
    }
    return m_winding.size() % 2 == 0;
  }

  // The face is to the left of its loops. Of trimmed surfaces nothing says so: there a pole counts for more.
  bool is_above() const {
    const Winding& loop = m_winding.front();
    const igsSurfaceDirection& ends = across();
    const double length = ends.range.length();
    if (!std::isfinite(ends.range.high) || !std::isfinite(ends.range.low)) return std::isfinite(ends.range.high);
    constexpr double at_end = 1e-6;
    if (ends.range.high - loop.t <= at_end * length) return false;
    if (loop.t - ends.range.low <= at_end * length) return true;
    const bool is_directed = m_face.entity != nullptr && igs_cast<igs510>(m_face.entity) != nullptr;
    if (!is_directed && ends.has_pole_low != ends.has_pole_high) return ends.has_pole_high;
    return loop.was_forward;
  }

  void put_on_side(const Winding& loop, Winding& other, double period) {
    const double distance = loop.was_forward ? other.t - loop.t : loop.t - other.t;
    const double shift = -period * std::floor(distance / period) * (loop.was_forward ? 1 : -1);
    for (igsBorderPoint& point : m_loops[other.loop].points) {
      point.uv = point.uv + st({0, shift});
      for (igsVec2& uv : point.between) uv = uv + st({0, shift});
    }
    other.t += shift;
  }

  void sort_winding() {
    std::sort(m_winding.begin(), m_winding.end(), [](const Winding& a, const Winding& b) { return a.t < b.t; });
  }

  // Through a point of every winding loop, if possible where no other loop is in the way.
  void choose_way() {
    constexpr std::size_t most_tries = 32;
    const std::size_t count = m_loops[m_winding.front().loop].points.size();
    const std::size_t tries = std::min(count, most_tries);
    std::size_t least = std::numeric_limits<std::size_t>::max();
    std::vector<Winding> best;
    for (std::size_t i = 0; i < tries && least > 0; ++i) {
      lay_way(i * count / tries);
      const std::size_t crossings = count_crossings();
      if (crossings >= least) continue;
      least = crossings;
      best = m_winding;
    }
    m_winding = best;
  }

  void lay_way(std::size_t first) {
    double s = st(m_loops[m_winding.front().loop].points[first].uv).x;
    for (Winding& winding : m_winding) {
      const std::vector<igsBorderPoint>& points = m_loops[winding.loop].points;
      const auto distance = [&](std::size_t i) { return std::abs(std::remainder(st(points[i].uv).x - s, m_period)); };
      winding.at = &winding == &m_winding.front() ? first : 0;
      for (std::size_t i = 0; i < points.size(); ++i) {
        if (&winding != &m_winding.front() && distance(i) < distance(winding.at)) winding.at = i;
      }
      const igsVec2 place = st(points[winding.at].uv);
      winding.turn = whole_number(std::round((place.x - s) / m_period));
      winding.st = {place.x - winding.turn * m_period, place.y};
      s = winding.st.x;
    }
  }

  /// How far a place is to the right of the way, in periods.
  double beyond_way(const igsVec2& uv) const {
    const igsVec2 place = st(uv);
    std::size_t i = 1;
    while (i + 1 < m_winding.size() && m_winding[i].st.y < place.y) ++i;
    const igsVec2 &from = m_winding[i - 1].st, &to = m_winding[i].st;
    const double height = to.y - from.y;
    const double share = height > 0 ? std::clamp((place.y - from.y) / height, 0.0, 1.0) : 0;
    return (place.x - from.x - share * (to.x - from.x)) / m_period;
  }

  /// The Winding whose point of the way this is; null for any other point.
  const Winding* winding_at(std::size_t loop, std::size_t point) const {
    for (const Winding& winding : m_winding) {
      if (winding.loop == loop && winding.at == point) return &winding;
    }
    return nullptr;
  }

  struct Ends {
    igsVec2 from, to;
    int from_period, to_period;
  };

  // A point on the way is in the period of what is beside it.
  Ends ends_of(std::size_t loop, std::size_t i) const {
    const igsBorderLoop& all = m_loops[loop];
    const std::size_t next = (i + 1) % all.points.size();
    Ends ends{all.points[i].uv, all.points[next].uv + (next == 0 ? all.winding : igsVec2{}), 0, 0};
    const auto period = [&](const igsVec2& uv) { return whole_number(std::floor(beyond_way(uv))); };
    ends.from_period = period(ends.from);
    ends.to_period = period(ends.to);
    const bool is_from_on_way = winding_at(loop, i) != nullptr, is_to_on_way = winding_at(loop, next) != nullptr;
    if (is_from_on_way && is_to_on_way) {
      ends.from_period = ends.to_period = period(all.points[i].between[1]);
    } else if (is_from_on_way) {
      ends.from_period = ends.to_period;
    } else if (is_to_on_way) {
      ends.to_period = ends.from_period;
    }
    return ends;
  }

  std::size_t count_crossings() const {
    std::size_t count = 0;
    for (std::size_t loop = 0; loop < m_loops.size(); ++loop) {
      for (std::size_t i = 0; i < m_loops[loop].points.size(); ++i) {
        const Ends ends = ends_of(loop, i);
        if (ends.from_period != ends.to_period) ++count;
      }
    }
    return count;
  }

  /// The point of the domain that a point of a loop is in a period, taken back to the first one.
  int point_in(std::size_t loop, std::size_t i, const igsVec2& uv, int period) {
    const auto [entry, is_new] = m_points.try_emplace(
        {loop, i, whole_number(std::round(st(uv - m_loops[loop].points[i].uv).x / m_period)) - period},
        static_cast<int>(m_domain.points.size()));
    if (is_new) m_domain.points.push_back({uv - st({period * m_period, 0}), m_loops[loop].points[i].point});
    return entry->second;
  }

  void add_line(int from, int to, std::array<igsVec2, 3> between, int period) {
    for (igsVec2& uv : between) uv = uv - st({period * m_period, 0});
    m_domain.lines.push_back({from, to, between});
  }

  void place(std::size_t loop) {
    std::vector<int> boundary;
    const std::vector<igsBorderPoint>& points = m_loops[loop].points;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const std::size_t next = (i + 1) % points.size();
      const Ends ends = ends_of(loop, i);
      const int from = point_in(loop, i, ends.from, ends.from_period);
      const int to = point_in(loop, next, ends.to, ends.to_period);
      boundary.push_back(from);
      if (ends.from_period == ends.to_period) {
        add_line(from, to, points[i].between, ends.from_period);
      } else {
        cut_line(ends, from, to);
      }
      const Winding* const winding = winding_at(loop, i);
      if (winding != nullptr) {
        const igsVec2 on_way = st(winding->st);
        m_stations.push_back(
            {winding->st.y, own_point(loop, i, on_way), own_point(loop, i, on_way + st({m_period, 0}))});
      }
    }
    m_domain.boundaries.push_back(std::move(boundary));
  }

  int own_point(std::size_t loop, std::size_t i, const igsVec2& uv) { return point_in(loop, i, uv, 0); }

  // Cut where it crosses the way, into two parts in neighbouring periods.
  void cut_line(const Ends& ends, int from, int to) {
    const int border = std::max(ends.from_period, ends.to_period);
    double low = 0, high = 1;
    const bool is_rising = ends.to_period > ends.from_period;
    constexpr int halvings = 60;
    for (int i = 0; i < halvings; ++i) {
      const double middle = (low + high) / 2;
      const bool is_beyond = beyond_way(ends.from + (ends.to - ends.from) * middle) >= border;
      (is_beyond == is_rising ? high : low) = middle;
    }
    const igsVec2 cut = ends.from + (ends.to - ends.from) * high - st({border * m_period, 0});
    const igsVec2 beyond = cut + st({m_period, 0});
    const auto left = static_cast<int>(m_domain.points.size()), right = left + 1;
    m_domain.points.push_back({cut, m_surface.point(cut)});
    m_domain.points.push_back({beyond, m_domain.points.back().point});
    m_stations.push_back({st(cut).y, left, right});
    const auto straight = [&](int a, int b) {
      m_domain.lines.push_back({a, b, igs_straight_between(uv_of(a), uv_of(b))});
    };
    straight(from, is_rising ? right : left);
    straight(is_rising ? left : right, to);
  }

  const igsVec2& uv_of(int point) const { return m_domain.points[static_cast<std::size_t>(point)].uv; }

  // Along the way the face is between every other two places where it meets a loop.
  void add_cut() {
    std::sort(m_stations.begin(), m_stations.end(), [](const Station& a, const Station& b) { return a.t < b.t; });
    for (std::size_t i = 1; i < m_stations.size(); i += 2) {
      const Station &from = m_stations[i - 1], &to = m_stations[i];
      std::vector<igsBorderPoint> way = igs_straight_border(m_surface, uv_of(from.left), uv_of(to.left), m_tolerance);
      int left = from.left, right = from.right;
      for (std::size_t k = 0; k < way.size(); ++k) {
        int next_left = to.left, next_right = to.right;
        if (k + 1 < way.size()) {
          next_left = static_cast<int>(m_domain.points.size());
          next_right = next_left + 1;
          m_domain.points.push_back({way[k + 1].uv, way[k + 1].point});
          m_domain.points.push_back({way[k + 1].uv + st({m_period, 0}), way[k + 1].point});
        }
        add_line(left, next_left, way[k].between, 0);
        add_line(right, next_right, way[k].between, -1);
        left = next_left;
        right = next_right;
      }
    }
  }

  const igsShapeFace& m_face;
  const igsShapeSurface& m_surface;
  const igsShapeTolerance& m_tolerance;
  bool m_is_along_v;
  double m_period;
  igsFaceDomain& m_domain;
  std::vector<igsBorderLoop> m_loops;
  std::vector<Winding> m_winding;
  std::vector<Station> m_stations;
  std::map<std::tuple<std::size_t, std::size_t, int>, int> m_points;
};

void add_loop(const igsBorderLoop& loop, const igsVec2& shift, igsFaceDomain& domain) {
  const auto first = static_cast<int>(domain.points.size()), count = static_cast<int>(loop.points.size());
  std::vector<int> boundary;
  for (int i = 0; i < count; ++i) {
    const igsBorderPoint& point = loop.points[static_cast<std::size_t>(i)];
    domain.points.push_back({point.uv + shift, point.point});
    const auto& way = point.between;
    domain.lines.push_back({first + i, first + (i + 1) % count, {way[0] + shift, way[1] + shift, way[2] + shift}});
    boundary.push_back(first + i);
  }
  domain.boundaries.push_back(std::move(boundary));
}

igsBorderLoop natural_boundary(const igsShapeSurface& surface, const igsShapeTolerance& tolerance) {
  const igsRange &u = surface.u().range, &v = surface.v().range;
  igsBorderLoop loop;
  if (!u.is_finite() || !v.is_finite()) return loop;
  const igsVec2 corners[] = {{u.low, v.low}, {u.high, v.low}, {u.high, v.high}, {u.low, v.high}};
  for (int i = 0; i < 4; ++i) {
    const std::vector<igsBorderPoint> side = igs_straight_border(surface, corners[i], corners[(i + 1) % 4], tolerance);
    if (side.empty()) return {};
    loop.points.insert(loop.points.end(), side.begin(), side.end());
  }
  return loop;
}

/// A box in parameter space.
struct Extent {
  igsVec2 low, high;
  explicit Extent(const igsBorderLoop& loop) : low(loop.points.front().uv), high(low) {
    for (const igsBorderPoint& point : loop.points) {
      low = {std::min(low.x, point.uv.x), std::min(low.y, point.uv.y)};
      high = {std::max(high.x, point.uv.x), std::max(high.y, point.uv.y)};
    }
  }
};

// Loops within another one have their middle within its box.
double shift_into(double low, double high, double middle, const igsSurfaceDirection& direction) {
  if (!direction.is_closed) return 0;
  const double period = direction.range.length(), slack = 1e-9 * period;
  const double shift = -period * std::floor((middle - low + slack) / period);
  if (middle + shift <= high) return shift;
  return -period * std::round((middle - (low + high) / 2) / period);
}

void add_within(const std::vector<igsBorderLoop>& loops, std::size_t outer, const igsShapeSurface& surface,
                igsFaceDomain& domain) {
  const Extent bounds(loops[outer]);
  for (std::size_t i = 0; i < loops.size(); ++i) {
    igsVec2 shift;
    if (i != outer) {
      const Extent extent(loops[i]);
      const igsVec2 middle = (extent.low + extent.high) * 0.5;
      shift = {shift_into(bounds.low.x, bounds.high.x, middle.x, surface.u()),
               shift_into(bounds.low.y, bounds.high.y, middle.y, surface.v())};
    }
    add_loop(loops[i], shift, domain);
  }
}

bool winds(const std::vector<igsBorderLoop>& loops, bool along_v) {
  return std::any_of(loops.begin(), loops.end(),
                     [&](const igsBorderLoop& loop) { return (along_v ? loop.winding.y : loop.winding.x) != 0; });
}
// What a trimmed surface has no outer boundary for, though it should, is bounded by nothing else either.
bool is_bounded_by_surface(const igsShapeFace& face) {
  if (face.loops.empty()) return true;
  if (face.entity == nullptr || igs_cast<igs144>(face.entity) == nullptr) return false;
  return !face.has_outer_loop || (face.loops.front().model.empty() && face.loops.front().parameter.empty());
}
}  // namespace

bool igs_find_domain(const igsShapeFace& face, std::vector<igsBorderLoop> loops, const igsShapeTolerance& tolerance,
                     igsFaceDomain& domain) {
  const igsShapeSurface& surface = *face.surface;
  const bool is_within_natural = is_bounded_by_surface(face);
  const bool winds_u = winds(loops, false), winds_v = winds(loops, true);
  if (winds_u && winds_v) return false;
  const bool can_be_cut = surface.u().is_closed != surface.v().is_closed;
  if (winds_u || winds_v || (is_within_natural && can_be_cut && !loops.empty())) {
    const bool is_along_v = winds_v || (!winds_u && surface.v().is_closed);
    return PeriodCut(face, tolerance, is_along_v, domain).run(std::move(loops), is_within_natural);
  }
  std::size_t outer = 0;
  if (is_within_natural) {
    igsBorderLoop natural = natural_boundary(surface, tolerance);
    if (natural.points.empty()) return false;
    loops.insert(loops.begin(), std::move(natural));
  } else if (!face.has_outer_loop) {
    for (std::size_t i = 1; i < loops.size(); ++i) {
      if (std::abs(igs_twice_area(loops[i])) > std::abs(igs_twice_area(loops[outer]))) outer = i;
    }
  }
  if (loops.empty()) return false;
  add_within(loops, outer, surface, domain);
  return true;
}
