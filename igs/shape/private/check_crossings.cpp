#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "igs/objects/igsCast.h"
#include "igs/shape/private/igsBoxTree.h"
#include "igs/shape/private/igsLine.h"
#include "igs/shape/private/igsLoopChecking.h"
#include "igs/solids/igs508.h"

namespace {
/// On which side of the line from a to b c lies: 1 left, -1 right, 0 where rounding leaves it open.
int side_of(const igsVec2& a, const igsVec2& b, const igsVec2& c) {
  const double left = (a.x - c.x) * (b.y - c.y), right = (a.y - c.y) * (b.x - c.x);
  constexpr double rounding = 4e-16;
  const double doubt = rounding * (std::abs(left) + std::abs(right));
  return left - right > doubt ? 1 : left - right < -doubt ? -1 : 0;
}

// What lies on a line counts as left of it, so that of two segments that follow each other one crosses it.
bool do_cross(const igsVec2& a, const igsVec2& b, const igsVec2& c, const igsVec2& d) {
  return (side_of(a, b, c) < 0) != (side_of(a, b, d) < 0) && (side_of(c, d, a) < 0) != (side_of(c, d, b) < 0);
}

igsVec3 flat(const igsVec2& uv) { return {uv.x, uv.y, 0}; }

/// A loop as a polygon in parameter space, brought to where the first loop of the face is.
class Outline {
 public:
  Outline(igsLoopChecking& loop, const igsBox& first) : m_loop(loop), m_winds(winds(loop)) {
    for (const igsTracePoint& at : loop.trace) m_box.add(flat(at.uv));
    const igsShapeSurface& surface = *loop.face.surface;
    m_shift = {shift(surface.u(), m_box.low.x, m_box.high.x, first.low.x),
               shift(surface.v(), m_box.low.y, m_box.high.y, first.low.y)};
    m_box = {m_box.low + flat(m_shift), m_box.high + flat(m_shift)};
  }

  /// Of segments. A loop that winds round the surface is not closed here.
  std::size_t size() const { return m_loop.trace.size() - (m_winds ? 1 : 0); }
  const igsTracePoint& at(std::size_t i) const {
    return m_loop.trace[i < m_loop.trace.size() ? i : i - m_loop.trace.size()];
  }
  igsVec2 uv(std::size_t i) const { return at(i).uv + m_shift; }
  /// Of a segment, in the chain.
  std::size_t link(std::size_t i) const { return static_cast<std::size_t>(at(i + 1).link); }
  /// The point `steps` before or behind; the end of a loop that is not closed here.
  std::size_t beside(std::size_t i, int steps) const {
    const auto count = static_cast<std::ptrdiff_t>(m_loop.trace.size());
    const std::ptrdiff_t there = static_cast<std::ptrdiff_t>(i) + steps;
    if (m_winds) return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(there, 0, count - 1));
    return static_cast<std::size_t>((there % count + count) % count);
  }
  bool winds() const { return m_winds; }
  igsLoopChecking& loop() const { return m_loop; }
  const igsBox& box() const { return m_box; }
  /// Of the boxes of the segments; made when it is needed.
  const igsBoxTree& tree() const {
    if (m_tree) return *m_tree;
    std::vector<igsBox> boxes(size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      boxes[i].add(flat(uv(i)));
      boxes[i].add(flat(uv(i + 1)));
    }
    return m_tree.emplace(boxes);
  }
  int de() const { return m_loop.loop.entity->de_number(); }

  /// True for a loop that bends one way only, once round: it cannot cross itself.
  bool is_convex() const {
    constexpr double straight = 1e-9;
    if (m_winds) return false;
    bool bends_left = false, bends_right = false;
    int num_turns = 0, last_sign = 0;
    igsVec2 last;
    for (std::size_t i = 0; i <= size(); ++i) {
      const igsVec2 along = uv(i % size() + 1) - uv(i % size());
      const double square = along.dot(along);
      if (square == 0) continue;
      const double bend = last.cross(along), least = straight * std::sqrt(last.dot(last) * square);
      if (std::abs(bend) <= least && last.dot(along) < 0) return false;
      (bend < 0 ? bends_right : bends_left) |= std::abs(bend) > least;
      const int sign = std::abs(along.x) <= straight * std::abs(along.y) ? last_sign : along.x < 0 ? -1 : 1;
      num_turns += sign != last_sign && last_sign != 0 ? 1 : 0;
      last_sign = sign;
      last = along;
    }
    return bends_left != bends_right && num_turns <= 2;
  }

  /// Twice the area, above 0 for a loop that runs counterclockwise.
  double twice_area() const {
    double sum = 0;
    for (std::size_t i = 0; i < size(); ++i) sum += (uv(i) - uv(0)).cross(uv(i + 1) - uv(0));
    return sum;
  }

  bool holds(const igsVec2& point) const {
    bool is_inside = false;
    const auto meets = [&](const igsBox& box) {
      return box.low.y <= point.y && point.y <= box.high.y && point.x <= box.high.x;
    };
    tree().visit_if(meets, [&](std::size_t i) {
      const igsVec2 a = uv(i), b = uv(i + 1);
      if ((a.y > point.y) == (b.y > point.y)) return;
      if ((b.y > a.y) == (side_of(a, b, point) > 0)) is_inside = !is_inside;
    });
    return is_inside;
  }

  /// How far a point of the surface is from the loop, in model units.
  double distance(const igsTracePoint& from, const igsVec2& at_uv) const {
    double closest = std::numeric_limits<double>::infinity(), distance = closest;
    tree().visit_near(flat(at_uv), closest, [&](std::size_t i) {
      const double found = igs_distance_from_line(flat(at_uv), flat(uv(i)), flat(uv(i + 1)));
      if (found < closest) {
        closest = found;
        distance = igs_distance_from_line(from.point, at(i).point, at(i + 1).point);
      }
      return closest;
    });
    return distance;
  }

 private:
  static bool winds(const igsLoopChecking& loop) {
    const igsVec2 step = loop.trace.back().uv - loop.trace.front().uv;
    const auto is_turn = [](const igsSurfaceDirection& direction, double along) {
      return direction.is_closed && std::abs(along) > direction.range.length() / 2;
    };
    return is_turn(loop.face.surface->u(), step.x) || is_turn(loop.face.surface->v(), step.y);
  }
  static double shift(const igsSurfaceDirection& direction, double low, double high, double first) {
    if (!direction.is_closed || !std::isfinite(first)) return 0;
    const double period = direction.range.length();
    return -period * std::floor((low + (high - low) / 2 - first) / period);
  }

  igsLoopChecking& m_loop;
  bool m_winds;
  igsVec2 m_shift;
  igsBox m_box;
  mutable std::optional<igsBoxTree> m_tree;
};

/// Where two segments cross, with lengths about there as they are in model space.
class Crossing {
 public:
  Crossing(const Outline& a, std::size_t i, const Outline& b, std::size_t j) : m_a(a), m_b(b), m_i(i), m_j(j) {
    const igsVec2 along = a.uv(i + 1) - a.uv(i), other = b.uv(j + 1) - b.uv(j);
    constexpr double least_sine = 1e-6;
    m_is_crossing = std::abs(along.cross(other)) > least_sine * along.length() * other.length();
    if (!m_is_crossing) return;
    const igsVec2 uv = a.uv(i) + along * ((b.uv(j) - a.uv(i)).cross(other) / along.cross(other));
    const igsSurfacePoint at = a.loop().face.surface->at(uv);
    m_point = at.point;
    m_scale = {at.u.length(), at.v.length()};
  }

  const igsVec3& point() const { return m_point; }

  /// Both loops really go to the other side of each other: by more than the tolerance and the height of the arcs over
  /// the segments.
  bool is_clear() const {
    if (!m_is_crossing) return false;
    const double least = m_a.loop().checking.options.tolerance + height(m_a, m_i) + height(m_b, m_j);
    return passes(m_a, m_i, m_b, m_j, least) && passes(m_b, m_j, m_a, m_i, least);
  }

 private:
  igsVec2 scaled(const igsVec2& uv) const { return {uv.x * m_scale.x, uv.y * m_scale.y}; }

  double height(const Outline& outline, std::size_t i) const {
    double most = 0;
    for (const std::size_t centre : {outline.beside(i, 0), outline.beside(i, 1)}) {
      const std::size_t before = outline.beside(centre, -1), behind = outline.beside(centre, 1);
      if (outline.at(centre).link != outline.at(behind).link) continue;
      const igsVec2 bend = outline.uv(before) + outline.uv(behind) - outline.uv(centre) * 2;
      most = std::max(most, scaled(bend).length() / 8);
    }
    return most;
  }

  /// The side of the line along `direction` to which the loop goes: -1 or 1, 0 where it does not leave it soon.
  int side_beyond(const Outline& outline, std::size_t start, int step, const igsVec2& from, const igsVec2& direction,
                  double least) const {
    constexpr int farthest = 8;
    for (int k = 0; k < farthest; ++k) {
      const double height = direction.cross(scaled(outline.uv(outline.beside(start, k * step)) - from));
      if (std::abs(height) > least * direction.length()) return height < 0 ? -1 : 1;
    }
    return 0;
  }
  bool passes(const Outline& outline, std::size_t i, const Outline& other, std::size_t j, double least) const {
    const igsVec2 from = other.uv(j), direction = scaled(other.uv(j + 1) - from);
    return side_beyond(outline, outline.beside(i, 0), -1, from, direction, least) *
               side_beyond(outline, outline.beside(i, 1), 1, from, direction, least) <
           0;
  }

  const Outline &m_a, &m_b;
  std::size_t m_i, m_j;
  igsVec3 m_point;
  igsVec2 m_scale;
  bool m_is_crossing;  ///< and not next to parallel
};

class FaceOutlines {
 public:
  FaceOutlines(igsShapeChecking& checking, const igsShapeFace& face, std::vector<igsLoopChecking>& loops)
      : m_checking(checking), m_face(face) {
    igsBox first;
    for (const igsTracePoint& at : loops.front().trace) first.add(flat(at.uv));
    std::size_t num_segments = 0;
    for (igsLoopChecking& loop : loops) {
      if (loop.trace.size() < 3 || igs_largest_gap(loop.followed()) > checking.options.tolerance) continue;
      m_outlines.emplace_back(loop, first);
      num_segments += m_outlines.back().size();
    }
    m_has_outer = face.has_outer_loop && !m_outlines.empty() && &m_outlines.front().loop().loop == &face.loops.front();
    constexpr std::size_t steps_always = 10'000, steps_per_segment = 100;
    m_steps = steps_always + steps_per_segment * num_segments;
    m_crosses.resize(m_outlines.size(), false);
  }

  void check() {
    for (std::size_t i = 0; i < m_outlines.size(); ++i) check_itself(i);
    std::vector<igsBox> boxes;
    for (const Outline& outline : m_outlines) boxes.push_back(outline.box());
    std::vector<std::pair<std::size_t, std::size_t>> neighbours;
    const igsBoxTree tree(boxes);
    tree.visit_pairs(tree, m_steps, [&](std::size_t i, std::size_t j) { neighbours.emplace_back(i, j); });
    for (const auto& [i, j] : neighbours) check_pair(i, j);
    check_outer();
    for (const auto& [i, j] : neighbours) check_inner(i, j);
    for (std::size_t i = 0; i < m_outlines.size(); ++i) check_orientation(i);
  }

 private:
  /// Pairs of members that follow each other meet at their joint, as closely as they do.
  static bool is_at_joint(const Outline& outline, std::size_t i, std::size_t j, const igsVec3& point) {
    const std::vector<igsChainLink>& chain = outline.loop().followed();
    const std::size_t a = outline.link(i), b = outline.link(j);
    for (const auto& [before, behind] : {std::pair(a, b), std::pair(b, a)}) {
      if ((before + 1) % chain.size() != behind) continue;
      const igsChainLink& next = chain[behind];
      if ((next.start - point).length() <= 2 * next.gap + outline.loop().checking.options.tolerance) return true;
    }
    return false;
  }

  /// Segments that follow each other, or but for one or two that are next to nothing, share a point.
  static bool share_point(const Outline& outline, std::size_t i, std::size_t j, const igsVec3& point) {
    constexpr std::size_t most_between = 2;
    const double tolerance = outline.loop().checking.options.tolerance;
    for (const auto& [before, behind] : {std::pair(i, j), std::pair(j, i)}) {
      const std::size_t between = (behind + outline.size() - before - 1) % outline.size();
      if (between > most_between) continue;
      const igsVec3 &end = outline.at(before + 1).point, &start = outline.at(behind).point;
      if ((end - start).length() <= tolerance && (point - start).length() <= tolerance) return true;
    }
    return false;
  }

  void check_itself(std::size_t k) {
    const Outline& outline = m_outlines[k];
    if (outline.is_convex()) return;
    outline.tree().visit_pairs(outline.tree(), m_steps, [&](std::size_t i, std::size_t j) {
      if (m_crosses[k] || j == i + 1 || !do_cross(outline.uv(i), outline.uv(i + 1), outline.uv(j), outline.uv(j + 1)))
        return;
      const Crossing crossing(outline, i, outline, j);
      if (!crossing.is_clear() || is_at_joint(outline, i, j, crossing.point())) return;
      if (share_point(outline, i, j, crossing.point())) return;
      m_crosses[k] = true;
      const igsVec3& point = crossing.point();
      outline.loop().tag<igsShapeSelfIntersection>(de_of(outline, i), de_of(outline, j), point.x, point.y, point.z);
    });
  }

  static int de_of(const Outline& outline, std::size_t i) {
    const igsChainLink& link = outline.loop().followed()[outline.link(i)];
    return link.piece->entity->de_number();
  }

  void check_pair(std::size_t first, std::size_t second) {
    const Outline &a = m_outlines[first], &b = m_outlines[second];
    bool is_found = m_crosses[first] || m_crosses[second];
    if (is_found) return;
    a.tree().visit_pairs(b.tree(), m_steps, [&](std::size_t i, std::size_t j) {
      if (is_found || !do_cross(a.uv(i), a.uv(i + 1), b.uv(j), b.uv(j + 1))) return;
      const Crossing crossing(a, i, b, j);
      if (!crossing.is_clear()) return;
      is_found = true;
      const igsVec3& point = crossing.point();
      m_checking.tag<igsShapeLoopsCross>(*m_face.entity, a.de(), b.de(), point.x, point.y, point.z);
    });
    if (is_found) m_crosses[first] = m_crosses[second] = true;
  }

  enum class Lie { inside, outside, unclear };
  /// Of a loop to another: points of it decide where they agree, and one of them is not too close.
  Lie lie(const Outline& loop, const Outline& other) const {
    constexpr std::size_t num_points = 8;
    std::size_t num_inside = 0;
    bool is_apart = false;
    for (std::size_t k = 0; k < num_points; ++k) {
      const std::size_t i = k * loop.size() / num_points;
      if (other.holds(loop.uv(i))) ++num_inside;
      is_apart = is_apart || other.distance(loop.at(i), loop.uv(i)) > m_checking.options.tolerance;
    }
    if (!is_apart || (num_inside != 0 && num_inside != num_points)) return Lie::unclear;
    return num_inside != 0 ? Lie::inside : Lie::outside;
  }

  bool can_be_judged(std::size_t i) const { return !m_crosses[i] && !m_outlines[i].winds(); }

  static bool is_within(const igsBox& inner, const igsBox& outer) {
    return inner.low.x >= outer.low.x && inner.low.y >= outer.low.y && inner.high.x <= outer.high.x &&
           inner.high.y <= outer.high.y;
  }

  void check_inner(std::size_t first, std::size_t second) {
    if (!m_has_outer || first == 0 || second == 0 || !can_be_judged(first) || !can_be_judged(second)) return;
    const bool turned = is_within(m_outlines[second].box(), m_outlines[first].box());
    const Outline &inner = m_outlines[turned ? second : first], &around = m_outlines[turned ? first : second];
    if (!is_within(inner.box(), around.box()) || lie(inner, around) != Lie::inside) return;
    m_crosses[turned ? second : first] = true;
    m_checking.tag<igsShapeLoopInLoop>(*m_face.entity, inner.de(), around.de());
  }

  void check_outer() {
    if (!m_has_outer || !can_be_judged(0)) return;
    for (std::size_t i = 1; i < m_outlines.size(); ++i) {
      if (!can_be_judged(i) || lie(m_outlines[i], m_outlines[0]) != Lie::outside) continue;
      m_crosses[i] = true;
      m_checking.tag<igsShapeLoopOutside>(*m_face.entity, m_outlines[i].de(), m_outlines[0].de());
    }
  }

  // A loop with next to no area, as one that runs along a seam and back, has no direction.
  void check_orientation(std::size_t i) {
    const Outline& outline = m_outlines[i];
    if (!m_has_outer || !can_be_judged(i) || igs_cast<igs508>(outline.loop().loop.entity) == nullptr) return;
    const igsVec3 size = outline.box().high - outline.box().low;
    const double twice_area = outline.twice_area();
    constexpr double least_share = 1e-3;
    if (!(std::abs(twice_area) > least_share * size.x * size.y)) return;
    const igsLoopSide side = m_checking.loop_side(m_face);
    const bool is_right = (twice_area > 0) == (i == 0);
    if (m_face.is_reversed && side != igsLoopSide::surface ? !is_right || side == igsLoopSide::either : is_right)
      return;
    outline.loop().tag<igsShapeLoopOrientation>(m_face.entity->de_number(), i == 0 ? 1 : 0,
                                                agrees_with_neighbours(outline.loop().loop) ? 0 : 1);
  }

  bool agrees_with_neighbours(const igsShapeLoop& loop) const {
    const auto& uses = m_checking.edge_uses();
    return std::any_of(loop.model.begin(), loop.model.end(), [&](const igsShapePiece& piece) {
      return piece.edge >= 0 && uses[static_cast<std::size_t>(piece.edge)] == std::array<int, 2>{1, 1};
    });
  }

  igsShapeChecking& m_checking;
  const igsShapeFace& m_face;
  std::vector<Outline> m_outlines;
  std::vector<bool> m_crosses;  ///< by outline: it has a fault that leaves others without meaning
  bool m_has_outer = false;     ///< the first outline is that of the outer loop
  std::size_t m_steps = 0;      ///< that may still be taken
};
}  // namespace

void igs_check_crossings(igsShapeChecking& checking, const igsShapeFace& face, std::vector<igsLoopChecking>& loops) {
  if (face.surface != nullptr && !loops.empty()) FaceOutlines(checking, face, loops).check();
}
