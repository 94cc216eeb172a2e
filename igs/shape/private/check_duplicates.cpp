#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <unordered_map>
#include <vector>

#include "igs/shape/private/igsPieceInSpace.h"
#include "igs/shape/private/igsShapeChecking.h"

namespace {
constexpr double part_of_size = 1e-3;
constexpr int most_candidates = 8;

/// What tells one thing from another at first sight. It does not depend on the direction of curves: two things whose
/// points differ by a distance have marks whose points differ by no more than that, and the doubled ones by twice it.
struct Mark {
  igsVec3 middle;
  igsVec3 ends;  ///< the start and the end added
  double size = 0;

  static Mark of(const std::vector<igsPieceInSpace>& pieces) {
    Mark mark;
    igsBox box;
    const double share = 1.0 / static_cast<double>(pieces.size());
    for (const igsPieceInSpace& piece : pieces) {
      const igsRange range = piece.curve->range();
      const igsVec3 start = piece.point(range.low), middle = piece.point(range.at(0.5)), end = piece.point(range.high);
      mark.middle += middle * share;
      mark.ends += (start + end) * share;
      for (const igsVec3& point : {start, middle, end}) box.add(point);
    }
    mark.size = box.diagonal();
    return mark;
  }
};

/// Finds things with nearly the same mark in constant time: two coordinates of the mark in skew directions, rounded.
class MarkedThings {
 public:
  MarkedThings(double tolerance, std::size_t most) : m_margin(3 * tolerance), m_cell(4 * m_margin) {
    m_latest.reserve(most);
  }

  /// The number of a thing that was added earlier and that `is_same`, -1 for none.
  template <class Same>
  int find(const Mark& mark, Same is_same) const {
    const std::array<double, 2> at = coordinates(mark);
    for (const double x : {std::floor(at[0]), neighbour(at[0])}) {
      for (const double y : {std::floor(at[1]), neighbour(at[1])}) {
        const auto cell = std::isnan(x) || std::isnan(y) ? m_latest.end() : m_latest.find(key(x, y));
        int thing = cell != m_latest.end() ? cell->second : -1;
        for (int i = 0; i < most_candidates && thing >= 0; ++i) {
          if (is_same(thing)) return thing;
          thing = m_earlier[static_cast<std::size_t>(thing)];
        }
      }
    }
    return -1;
  }
  /// Numbers count from 0.
  void add(const Mark& mark) {
    const std::array<double, 2> at = coordinates(mark);
    const auto number = static_cast<int>(m_earlier.size());
    const auto [cell, is_new] = m_latest.try_emplace(key(std::floor(at[0]), std::floor(at[1])), number);
    m_earlier.push_back(is_new ? -1 : cell->second);
    cell->second = number;
  }

 private:
  // Each direction is of length 1, so that a coordinate changes by the margin at most.
  std::array<double, 2> coordinates(const Mark& mark) const {
    constexpr igsVec3 a{0.3578, 0.5411, 0.7611}, b{0.8019, 0.2673, 0.5343};
    return {(mark.middle.dot(a) + mark.ends.dot(b)) / m_cell, (mark.ends.dot(a) - mark.middle.dot(b)) / m_cell};
  }
  // The cell that is no farther than the margin; not a number where there is none.
  static double neighbour(double coordinate) {
    const double cell = std::floor(coordinate), part = coordinate - cell;
    return part <= 0.25 ? cell - 1 : part >= 0.75 ? cell + 1 : std::numeric_limits<double>::quiet_NaN();
  }
  static std::size_t key(double x, double y) {
    constexpr std::size_t spread = 0x9E3779B9;
    const std::hash<double> hash;
    return hash(x) * spread + hash(y);
  }

  double m_margin, m_cell;
  std::unordered_map<std::size_t, int> m_latest;  ///< of each cell
  std::vector<int> m_earlier;                     ///< of each thing, the one before it in its cell
};

/// The breaks of two curves with as many, and the middles between them, have the same points, in the direction given.
bool has_same_points(const igsPieceInSpace& a, const igsPieceInSpace& b, bool is_turned, double tolerance) {
  const std::vector<double>&at_a = a.curve->breaks(), &at_b = b.curve->breaks();
  const std::size_t last = at_a.size() - 1;
  const auto are_near = [&](double t, double s) { return (a.point(t) - b.point(s)).length() <= tolerance; };
  for (std::size_t i = 0; i <= last; ++i) {
    const std::size_t j = is_turned ? last - i : i;
    if (!are_near(at_a[i], at_b[j])) return false;
    if (i == last) break;
    const std::size_t next = is_turned ? j - 1 : j + 1;
    for (const double part : {0.5, 0.25}) {
      if (!are_near(at_a[i] + (at_a[i + 1] - at_a[i]) * part, at_b[j] + (at_b[next] - at_b[j]) * part)) return false;
    }
  }
  return true;
}

bool are_same(const igsPieceInSpace& a, const igsPieceInSpace& b, double tolerance) {
  if (a.curve->breaks().size() != b.curve->breaks().size()) return false;
  return has_same_points(a, b, false, tolerance) || has_same_points(a, b, true, tolerance);
}

bool are_same_surfaces(const igsShapeFace& a, const igsShapeFace& b, double tolerance) {
  constexpr int num_steps = 4;
  const auto usable = [](const igsRange& range) { return range.is_finite() ? range : igsRange{}; };
  for (int i = 0; i <= num_steps; ++i) {
    for (int j = 0; j <= num_steps; ++j) {
      const auto point = [&](const igsShapeFace& face) {
        return face.placement.point(face.surface->point({usable(face.surface->u().range).at(i / double{num_steps}),
                                                         usable(face.surface->v().range).at(j / double{num_steps})}));
      };
      if (!((point(a) - point(b)).length() <= tolerance)) return false;
    }
  }
  return true;
}

bool is_of_class_of(const igsObject& a, const igsObject& b) { return a.objtype() == b.objtype(); }

igsPieceInSpace in_space(const igsShapeWire& wire) { return {nullptr, wire.curve.get(), &wire.placement}; }

void check_wires(igsShapeChecking& checking) {
  MarkedThings known(checking.options.tolerance, checking.model.wires().size());
  std::vector<const igsShapeWire*> different;
  for (const igsShapeWire& wire : checking.model.wires()) {
    if (wire.curve == nullptr || !wire.curve->range().is_finite()) continue;
    const Mark mark = Mark::of({in_space(wire)});
    const double tolerance = std::min(checking.options.tolerance, part_of_size * mark.size);
    const int first = known.find(mark, [&](int number) {
      const igsShapeWire& other = *different[static_cast<std::size_t>(number)];
      return is_of_class_of(*wire.entity, *other.entity) && are_same(in_space(wire), in_space(other), tolerance);
    });
    if (first < 0) {
      known.add(mark);
      different.push_back(&wire);
    } else if (const igsObject* const other = different[static_cast<std::size_t>(first)]->entity;
               other != wire.entity) {
      checking.tag<igsShapeDuplicateCurve>(*wire.entity, other->de_number());
    }
  }
}

/// A face with its boundary in space, loop by loop; one with four sides where it is a surface as a whole.
struct Bounded {
  const igsShapeFace* face;
  std::vector<igsPieceInSpace> pieces;
};

bool are_same(const Bounded& a, const Bounded& b, double tolerance) {
  if (!is_of_class_of(*a.face->entity, *b.face->entity) || a.face->loops.size() != b.face->loops.size()) return false;
  if (a.pieces.size() != b.pieces.size()) return false;
  for (std::size_t i = 0; i < a.pieces.size(); ++i) {
    if (!are_same(a.pieces[i], b.pieces[i], tolerance)) return false;
  }
  return are_same_surfaces(*a.face, *b.face, tolerance);
}

/// Of a surface as a whole.
Mark mark_of_surface(const igsShapeFace& face) {
  const igsRange u = face.surface->u().range, v = face.surface->v().range;
  const auto point = [&](double part_u, double part_v) {
    return face.placement.point(face.surface->point({u.at(part_u), v.at(part_v)}));
  };
  Mark mark{point(0.5, 0.5), point(0, 0) + point(1, 1), 0};
  igsBox box;
  for (const igsVec3& corner : {mark.middle, point(0, 0), point(0, 1), point(1, 0), point(1, 1)}) box.add(corner);
  mark.size = box.diagonal();
  return mark;
}

void check_faces(igsShapeChecking& checking) {
  const std::vector<igsShapeFace>& faces = checking.model.faces();
  MarkedThings known(checking.options.tolerance, faces.size());
  std::vector<Bounded> different;
  for (const igsShapeFace& face : faces) {
    if (face.shell >= 0 || face.surface == nullptr) continue;
    Bounded bounded{&face, {}};
    for (const igsShapeLoop& loop : face.loops) {
      const std::vector<igsPieceInSpace> pieces = igs_pieces_in_space(face, loop);
      bounded.pieces.insert(bounded.pieces.end(), pieces.begin(), pieces.end());
    }
    if (bounded.pieces.empty() && (!face.loops.empty() || !face.surface->is_finite())) continue;
    const Mark mark = bounded.pieces.empty() ? mark_of_surface(face) : Mark::of(bounded.pieces);
    const double tolerance = std::min(checking.options.tolerance, part_of_size * mark.size);
    const int first = known.find(
        mark, [&](int other) { return are_same(bounded, different[static_cast<std::size_t>(other)], tolerance); });
    if (first < 0) {
      known.add(mark);
      different.push_back(std::move(bounded));
    } else if (const igsObject* const other = different[static_cast<std::size_t>(first)].face->entity;
               other != face.entity) {
      checking.tag<igsShapeDuplicateFace>(*face.entity, other->de_number());
    }
  }
}
}  // namespace

// Edges of solids are shared, and loose faces that meet have a boundary curve each: neither is looked at.
void igs_check_duplicates(igsShapeChecking& checking) {
  if (!(checking.options.tolerance > 0)) return;
  check_wires(checking);
  check_faces(checking);
}
