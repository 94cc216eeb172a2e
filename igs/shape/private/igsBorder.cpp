#include "igs/shape/private/igsBorder.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "igs/shape/igsShapeNearest.h"
#include "igs/shape/private/igsLine.h"
#include "igs/shape/private/igsLoopChain.h"
#include "igs/shape/private/igsTrack.h"

namespace {
using BorderPoints = std::vector<igsBorderPoint>;

double period_of(const igsSurfaceDirection& direction) { return direction.is_closed ? direction.range.length() : 0; }

void turn_round(BorderPoints& points) {
  std::reverse(points.begin(), points.end());
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const std::array<igsVec2, 3>& way = points[i + 1].between;
    points[i].between = {way[2], way[1], way[0]};
  }
}

void move_by(igsBorderPoint& point, const igsVec2& shift) {
  point.uv = point.uv + shift;
  for (igsVec2& uv : point.between) uv = uv + shift;
}

/// The distance of a point from lines that join others.
double distance_from(const std::vector<igsPolylinePoint>& line, const igsVec3& point) {
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 1; i < line.size(); ++i) {
    least = std::min(least, igs_distance_from_line(point, line[i - 1].point, line[i].point));
  }
  return least;
}

/// Makes the loops of one face.
class BorderMaker {
 public:
  BorderMaker(const igsShapeFace& face, const igsShapeEdgePoints* edges, const igsShapeTolerance& tolerance)
      : m_face(face), m_surface(*face.surface), m_edges(edges), m_tolerance(tolerance) {
    find_poles();
  }

  bool make(const igsShapeLoop& loop, igsBorderLoop& border) {
    const std::vector<igsChainLink> model = igs_chain(loop.model, nullptr);
    const std::vector<igsChainLink> parameter = igs_chain(loop.parameter, &m_surface);
    bool has_shared_edges = false;
    for (const igsShapePiece& piece : loop.model) has_shared_edges |= piece.edge >= 0;
    if (!parameter.empty() && (model.empty() || !has_shared_edges)) {
      border = from_parameter(parameter);
      if (model.empty() || (!border.points.empty() && is_image(border, model, loop.prefers_model))) {
        return !border.points.empty();
      }
    }
    if (model.empty()) return false;
    const igsBorderLoop given = std::move(border);
    border = from_model(model, loop);
    // What neither fits the curves nor lies on the surface, or comes to nothing there, is taken as the parameter curves
    // have it.
    const bool is_off = border.points.empty() || m_farthest > 0.05 * size_of(model);
    const bool is_nothing = std::abs(igs_twice_area(border)) < 0.05 * std::abs(igs_twice_area(given));
    if (!given.points.empty() && (is_off || (is_nothing && border.winding == igsVec2{}))) border = given;
    settle_between_poles(loop, border);
    return !border.points.empty();
  }

 private:
  struct SurfacePole {
    int kind;      // 1 where all u are one point, 2 where all v are
    double value;  // of the other parameter
    igsVec3 point;
  };

  void find_poles() {
    const igsSurfaceDirection &u = m_surface.u(), &v = m_surface.v();
    const double some_u = std::isfinite(u.range.low) ? u.range.low : 0;
    const double some_v = std::isfinite(v.range.low) ? v.range.low : 0;
    const auto add = [&](bool exists, int kind, double value) {
      if (!exists) return;
      const igsVec2 uv = kind == 1 ? igsVec2{some_u, value} : igsVec2{value, some_v};
      m_poles.push_back({kind, value, m_surface.point(uv)});
    };
    add(v.has_pole_low, 1, v.range.low);
    add(v.has_pole_high, 1, v.range.high);
    add(u.has_pole_low, 2, u.range.low);
    add(u.has_pole_high, 2, u.range.high);
  }

  int pole_at(const igsVec3& point, igsVec2& uv) const {
    for (const SurfacePole& pole : m_poles) {
      if ((point - pole.point).length() > 0.01 * m_tolerance.chord) continue;
      (pole.kind == 1 ? uv.y : uv.x) = pole.value;
      return pole.kind;
    }
    return 0;
  }

  igsVec2 in_domain(igsVec2 uv) const {
    if (!m_surface.u().is_closed) uv.x = m_surface.u().range.clamp(uv.x);
    if (!m_surface.v().is_closed) uv.y = m_surface.v().range.clamp(uv.y);
    return uv;
  }

  igsTrackPoint on_surface(double parameter, const igsVec2& uv, igsSide side) const {
    const igsSurfacePoint at = m_surface.at(uv.x, uv.y, side, side);
    return {parameter, uv, at.point, igs_normal_near(m_surface, uv, at), 0};
  }

  igsBorderLoop from_parameter(const std::vector<igsChainLink>& chain) {
    std::vector<BorderPoints> ways;
    for (const igsChainLink& link : chain) {
      const igsShapeCurve& curve = *link.piece->curve;
      const igsLocate locate = [&](double t, igsSide side, const igsTrackPoint*) {
        const igsVec3 at = curve.point(t, side);
        return on_surface(t, in_domain({at.x, at.y}), igsSide::after);
      };
      ways.push_back(igs_follow(curve.breaks(), m_surface, m_tolerance, locate));
      if (link.is_reversed) turn_round(ways.back());
    }
    return joined(ways);
  }

  igsBorderLoop from_model(const std::vector<igsChainLink>& chain, const igsShapeLoop& loop) {
    std::vector<BorderPoints> ways;
    m_farthest = m_farthest_of_all = 0;
    for (const igsChainLink& link : chain) {
      const igsShapePiece& piece = *link.piece;
      const std::optional<igsVec2> hint = start_in(loop, static_cast<int>(link.piece - loop.model.data()));
      const igsLocate locate = [&](double t, igsSide side, const igsTrackPoint* near) {
        return projected(t, piece.curve->at(t, side).point, near, hint);
      };
      if (piece.edge >= 0 && m_edges != nullptr) {
        ways.push_back(igs_follow(m_edges->of(piece.edge), m_surface, m_tolerance, locate));
      } else {
        ways.push_back(igs_follow(piece.curve->breaks(), m_surface, m_tolerance, locate));
      }
      if (link.is_reversed) turn_round(ways.back());
    }
    return joined(ways);
  }

  /// Where the parameter curve of a model-space piece has the start of that.
  std::optional<igsVec2> start_in(const igsShapeLoop& loop, int model) const {
    for (const igsShapePiece& piece : loop.parameter) {
      if (piece.model != model || piece.curve == nullptr || !piece.curve->range().is_finite()) continue;
      const bool is_reversed = piece.is_reversed != loop.model[static_cast<std::size_t>(model)].is_reversed;
      const igsVec3 at = is_reversed ? piece.curve->end() : piece.curve->start();
      if (at.is_finite()) return in_domain({at.x, at.y});
    }
    return std::nullopt;
  }

  igsTrackPoint projected(double parameter, const igsVec3& point, const igsTrackPoint* near,
                          const std::optional<igsVec2>& hint) {
    if (!m_nearest) m_nearest.emplace(m_surface);
    // Little more than the curve was found to be off the whole surface so far: another sheet of that may be near.
    const double enough = std::max(0.01 * m_tolerance.chord, 2 * m_farthest_of_all);
    igsNearestOnSurface found;
    if (near != nullptr && near->pole == 0) {
      found = m_nearest->near(point, near->uv, enough);
    } else if (near == nullptr && hint) {
      found = m_nearest->near(point, *hint, enough);
    } else {
      found = (*m_nearest)(point);
    }
    if (std::isfinite(found.distance)) {
      m_farthest = std::max(m_farthest, found.distance);
      if (found.distance > enough) m_farthest_of_all = std::max(m_farthest_of_all, found.distance);
    }
    igsTrackPoint place = on_surface(parameter, found.uv, igsSide::after);
    place.point = point;
    place.pole = pole_at(point, place.uv);
    place.is_projected = true;
    return place;
  }

  bool is_same(const igsBorderPoint& a, const igsBorderPoint& b) const {
    constexpr double same_share = 1e-6;
    if ((a.point - b.point).length() > 0.01 * m_tolerance.chord) return false;
    const auto least = [&](const igsSurfaceDirection& direction) {
      return direction.range.is_finite() ? same_share * direction.range.length() : 0.01 * m_tolerance.chord;
    };
    return std::abs(a.uv.x - b.uv.x) <= least(m_surface.u()) && std::abs(a.uv.y - b.uv.y) <= least(m_surface.v());
  }

  // Where both are at one pole the way along it is not cut short by a period.
  bool is_pole_passed(const igsBorderPoint& from, const igsBorderPoint& to) const {
    if (is_same(from, to)) return false;
    igsVec2 ignored;
    const int pole = pole_at(from.point, ignored);
    return pole != 0 && pole == pole_at(to.point, ignored);
  }

  // The direction of a closed curve is not told by its ends: one that winds round the surface a second time is turned.
  igsBorderLoop joined(std::vector<BorderPoints> ways) const {
    igsBorderLoop loop = closed(ways);
    int turns_left = 8;  // more do not occur, but would take their number times the length of the loop
    for (std::size_t i = ways.size(); i-- > 0 && turns_left > 0 && winds_twice(loop.winding);) {
      const igsVec2 gain = ways[i].back().uv - ways[i].front().uv;
      if ((ways[i].back().point - ways[i].front().point).length() > 0.01 * m_tolerance.chord) continue;
      if (!(gain.dot(loop.winding) > 0.5 * gain.length() * loop.winding.length())) continue;
      turn_round(ways[i]);
      loop = closed(ways);
      --turns_left;
    }
    return loop;
  }

  bool winds_twice(const igsVec2& winding) const {
    return std::abs(winding.x) > 1.5 * period_of(m_surface.u()) || std::abs(winding.y) > 1.5 * period_of(m_surface.v());
  }

  igsBorderLoop closed(const std::vector<BorderPoints>& ways) const {
    igsBorderLoop loop;
    for (const BorderPoints& way : ways) {
      if (way.empty()) return {};
      append(loop.points, way);
    }
    if (loop.points.size() < 2) return {};
    close(loop);
    if (!(loop.winding == igsVec2{})) unwind_at_pole(loop);
    return loop;
  }

  void append(BorderPoints& all, BorderPoints points) const {
    if (all.empty()) {
      all = std::move(points);
      return;
    }
    if (!is_pole_passed(all.back(), points.front())) {
      const igsVec2 shift = igs_periods_between(m_surface, points.front().uv, all.back().uv);
      for (igsBorderPoint& point : points) move_by(point, shift);
    }
    if (is_same(all.back(), points.front())) {
      points.front().uv = all.back().uv;
      points.front().point = all.back().point;
      all.pop_back();
    } else {
      all.back().between = igs_straight_between(all.back().uv, points.front().uv);
    }
    all.insert(all.end(), points.begin(), points.end());
  }

  void close(igsBorderLoop& loop) const {
    const igsBorderPoint first = loop.points.front();
    igsBorderPoint& last = loop.points.back();
    if (!is_pole_passed(last, first)) loop.winding = igs_periods_between(m_surface, first.uv, last.uv);
    igsBorderPoint again = first;
    move_by(again, loop.winding);
    if (is_same(last, again)) {
      loop.points.pop_back();
    } else {
      last.between = igs_straight_between(last.uv, again.uv);
    }
  }

  // Round a pole the loop cannot be left open: the way along the pole takes the rest of the turn.
  void unwind_at_pole(igsBorderLoop& loop) const {
    for (std::size_t i = 0; i + 1 < loop.points.size(); ++i) {
      igsBorderPoint &from = loop.points[i], &to = loop.points[i + 1];
      if (!is_pole_passed(from, to)) continue;
      const igsVec2 back = loop.winding * -1;
      for (std::size_t k = i + 1; k < loop.points.size(); ++k) move_by(loop.points[k], back);
      from.between = igs_straight_between(from.uv, to.uv);
      loop.winding = {};
      return;
    }
  }

  // From pole to pole and back the curves do not tell on which side the face is: it is on the left, and the whole
  // surface where both ways are the same.
  void settle_between_poles(const igsShapeLoop& loop, igsBorderLoop& border) const {
    if (m_poles.size() < 2 || &loop != m_face.loops.data() || !(border.winding == igsVec2{})) return;
    std::vector<std::size_t> passed;
    for (std::size_t i = 0; i < border.points.size(); ++i) {
      if (is_pole_passed(border.points[i], border.points[(i + 1) % border.points.size()])) passed.push_back(i);
    }
    if (passed.empty() && !is_back_and_forth(border, passed)) return;
    if (passed.size() != 2 || igs_twice_area(border) > 1e-9 * square_of_domain()) return;
    const int kind = m_poles.front().kind;
    const double period = period_of(kind == 1 ? m_surface.u() : m_surface.v());
    for (const double step : {period, -period}) {
      igsBorderLoop moved = border;
      const igsVec2 shift = kind == 1 ? igsVec2{step, 0} : igsVec2{0, step};
      for (std::size_t i = passed[0] + 1; i <= passed[1]; ++i) move_by(moved.points[i], shift);
      for (const std::size_t i : passed) {
        moved.points[i].between =
            igs_straight_between(moved.points[i].uv, moved.points[(i + 1) % moved.points.size()].uv);
      }
      if (igs_twice_area(moved) > 0) border = moved;
    }
  }

  // A seam that is run up and down: the poles are single points there, where the way along them has no length.
  bool is_back_and_forth(igsBorderLoop& border, std::vector<std::size_t>& passed) const {
    igsVec2 ignored;
    std::vector<std::size_t> at;
    for (std::size_t i = 0; i < border.points.size(); ++i) {
      if (pole_at(border.points[i].point, ignored) != 0) at.push_back(i);
    }
    if (at.size() != 2) return false;
    for (std::size_t k = 2; k-- > 0;) {
      const auto place = border.points.begin() + static_cast<std::ptrdiff_t>(at[k]);
      igsBorderPoint twice = *place;
      twice.between = {twice.uv, twice.uv, twice.uv};
      border.points.insert(place, twice);
    }
    passed = {at[0], at[1] + 1};
    return true;
  }

  double square_of_domain() const {
    const double square = m_surface.u().range.length() * m_surface.v().range.length();
    return std::isfinite(square) ? square : 0;
  }

  static double size_of(const std::vector<igsChainLink>& chain) {
    igsBox box;
    for (const igsChainLink& link : chain) {
      const igsRange range = link.piece->curve->range();
      for (const double share : {0.0, 0.25, 0.5, 0.75}) box.add(link.piece->curve->point(range.at(share)));
    }
    return box.diagonal();
  }

  /// Whether the loop from parameter curves follows the curves in model space, closely where those are preferred.
  bool is_image(const igsBorderLoop& border, const std::vector<igsChainLink>& model, bool closely) const {
    const double size = size_of(model);
    const double most = size * (closely ? 5e-5 : 2e-2);
    igsShapeTolerance fine = m_tolerance;
    fine.chord = std::max(most / 4, 1e-9 * size);
    if (!(fine.chord > 0)) return true;
    std::vector<std::vector<igsPolylinePoint>> lines;
    lines.reserve(model.size());
    for (const igsChainLink& link : model) lines.push_back(igs_polyline(*link.piece->curve, fine));
    std::vector<igsPolylinePoint> image;
    image.reserve(border.points.size() + 1);
    for (const igsBorderPoint& point : border.points) image.push_back({0, point.point});
    image.push_back(image.front());
    return follows(image, lines, most) && follows_back(lines, image, most + m_tolerance.chord);
  }

  static constexpr std::size_t samples_of_loop = 24, samples_of_piece = 3;

  static bool follows(const std::vector<igsPolylinePoint>& image,
                      const std::vector<std::vector<igsPolylinePoint>>& lines, double most) {
    const std::size_t step = std::max<std::size_t>(1, image.size() / samples_of_loop);
    for (std::size_t i = 0; i < image.size(); i += step) {
      const auto is_near = [&](const auto& line) { return distance_from(line, image[i].point) <= most; };
      if (std::none_of(lines.begin(), lines.end(), is_near)) return false;
    }
    return true;
  }

  static bool follows_back(const std::vector<std::vector<igsPolylinePoint>>& lines,
                           const std::vector<igsPolylinePoint>& image, double most) {
    const std::size_t step = std::max<std::size_t>(1, lines.size() / samples_of_loop);
    for (std::size_t k = 0; k < lines.size(); k += step) {
      for (std::size_t i = 0; i < samples_of_piece && !lines[k].empty(); ++i) {
        const igsVec3& point = lines[k][(lines[k].size() - 1) * i / (samples_of_piece - 1)].point;
        if (distance_from(image, point) > most) return false;
      }
    }
    return true;
  }

  const igsShapeFace& m_face;
  const igsShapeSurface& m_surface;
  const igsShapeEdgePoints* m_edges;
  const igsShapeTolerance& m_tolerance;
  std::vector<SurfacePole> m_poles;
  std::optional<igsNearestPointOnSurface> m_nearest;
  double m_farthest = 0;         // of the points projected so far, from the surface
  double m_farthest_of_all = 0;  // likewise, of those for which the whole surface was looked at
};
}  // namespace

igsVec3 igs_normal_near(const igsShapeSurface& surface, const igsVec2& uv, const igsSurfacePoint& at) {
  constexpr double degenerate = 1e-9, step = 1e-4;
  const igsVec3 across = at.u.cross(at.v);
  const double size = std::max(at.u.length(), at.v.length());
  if (across.length() > degenerate * size * size) return across.unit();
  const auto inward = [](double t, const igsSurfaceDirection& direction) {
    const double middle = direction.range.is_finite() ? direction.range.at(0.5) : 0;
    return t + (middle - t) * step + (direction.range.is_finite() ? 0 : step);
  };
  return surface
      .at(surface.u().is_closed ? uv.x : inward(uv.x, surface.u()),
          surface.v().is_closed ? uv.y : inward(uv.y, surface.v()))
      .normal();
}

std::array<igsVec2, 3> igs_straight_between(const igsVec2& from, const igsVec2& to) {
  const igsVec2 way = to - from;
  return {from + way * 0.25, from + way * 0.5, from + way * 0.75};
}

std::vector<igsBorderPoint> igs_straight_border(const igsShapeSurface& surface, const igsVec2& from, const igsVec2& to,
                                                const igsShapeTolerance& tolerance) {
  const igsLocate locate = [&](double t, igsSide, const igsTrackPoint*) {
    const igsVec2 uv = t >= 1 ? to : from + (to - from) * t;
    const igsSurfacePoint at = surface.at(uv);
    return igsTrackPoint{t, uv, at.point, igs_normal_near(surface, uv, at), 0};
  };
  std::vector<igsBorderPoint> points = igs_follow({0, 1}, surface, tolerance, locate);
  if (!points.empty()) points.pop_back();
  return points;
}

double igs_twice_area(const igsBorderLoop& loop) {
  if (loop.points.empty()) return 0;
  double sum = 0;
  igsVec2 before{};
  const igsVec2 origin = loop.points.front().uv;
  for (const igsBorderPoint& point : loop.points) {
    for (const igsVec2& uv : {point.uv, point.between[0], point.between[1], point.between[2]}) {
      sum += before.cross(uv - origin);
      before = uv - origin;
    }
  }
  return sum + before.cross(loop.winding);
}

bool igs_find_borders(const igsShapeFace& face, const igsShapeEdgePoints* edges, const igsShapeTolerance& tolerance,
                      std::vector<igsBorderLoop>& loops) {
  BorderMaker maker(face, edges, tolerance);
  bool is_sound = true;
  for (const igsShapeLoop& loop : face.loops) {
    if (loop.model.empty() && loop.parameter.empty()) continue;
    igsBorderLoop border;
    if (maker.make(loop, border)) {
      loops.push_back(std::move(border));
    } else {
      is_sound = false;
    }
  }
  return is_sound;
}
