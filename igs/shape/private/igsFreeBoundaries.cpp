#include "igs/shape/private/igsFreeBoundaries.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>

#include "igs/shape/private/igsBoxTree.h"
#include "igs/shape/private/igsLine.h"
#include "igs/shape/private/igsPieceInSpace.h"

namespace {
/// A boundary curve where it is placed.
struct PlacedBoundary {
  igsFreeBoundary place;
  igsPieceInSpace piece;

  double distance_near(const igsVec3& point, double t, double enough) const {
    constexpr int most_steps = 6;
    double closest = std::numeric_limits<double>::infinity();
    for (int i = 0; i < most_steps && closest > enough; ++i) {
      const igsCurvePoint here = piece.at(t);
      const igsVec3 away = here.point - point;
      closest = std::min(closest, away.length());
      const double speed = std::sqrt(here.first.dot(here.first));
      const double next = piece.curve->range().clamp(t - away.dot(here.first) / (speed * speed));
      if (!(std::abs(next - t) * speed > 0.1 * enough)) break;
      t = next;
    }
    return closest;
  }
};

struct Segment {
  std::size_t boundary;
  double from, to;
  igsVec3 start, end;
  double height;  ///< of the curve over the chord, about
};

class FreeBoundaries {
 public:
  FreeBoundaries(const igsShapeModel& model, double tolerance) : m_tolerance(tolerance) {
    for (std::size_t i = 0; i < model.faces().size(); ++i) {
      if (model.faces()[i].shell < 0) add(model.faces()[i], i);
    }
    std::vector<igsBox> boxes;
    m_inner.resize(m_boundaries.size());
    for (std::size_t i = 0; i < m_boundaries.size(); ++i) sample(i, boxes);
    sort_by_place(boxes);
    m_tree = igsBoxTree(boxes);
  }

  std::vector<igsFreeBoundary> find() const {
    std::vector<igsFreeBoundary> free;
    std::vector<std::size_t> partners(m_boundaries.size());
    std::iota(partners.begin(), partners.end(), std::size_t{0});
    for (std::size_t i = 0; i < m_boundaries.size(); ++i) {
      std::size_t partner = partners[i];
      if (!has_partner(i, partner)) free.push_back(m_boundaries[i].place);
      partners[partner] = i;
    }
    return free;
  }

 private:
  // Faces stand in a file in any order: what is near in space is brought together, by the bits of the coordinates in
  // turn.
  void sort_by_place(std::vector<igsBox>& boxes) {
    igsBox all;
    for (const igsBox& box : boxes) all.add(box);
    const auto code = [&](const igsBox& box) {
      constexpr int bits = 16;
      const auto cell = [](double low, double high, double from, double to) {
        const double part = high > low ? ((from + to) / 2 - low) / (high - low) : 0;
        return part >= 0 && part <= 1 ? static_cast<std::uint64_t>(part * ((1 << bits) - 1)) : 0;
      };
      const std::uint64_t cells[] = {cell(all.low.x, all.high.x, box.low.x, box.high.x),
                                     cell(all.low.y, all.high.y, box.low.y, box.high.y),
                                     cell(all.low.z, all.high.z, box.low.z, box.high.z)};
      std::uint64_t mixed = 0;
      for (int bit = bits - 1; bit >= 0; --bit) {
        for (const std::uint64_t value : cells) mixed = 2 * mixed + (value >> bit & 1);
      }
      return mixed;
    };
    std::vector<std::pair<std::uint64_t, std::size_t>> order;
    order.reserve(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) order.emplace_back(code(boxes[i]), i);
    std::sort(order.begin(), order.end());
    std::vector<igsBox> sorted_boxes;
    sorted_boxes.reserve(boxes.size());
    m_order.reserve(boxes.size());
    for (const auto& [place, i] : order) {
      sorted_boxes.push_back(boxes[i]);
      m_order.push_back(i);
    }
    boxes = std::move(sorted_boxes);
  }

  void add(const igsShapeFace& face, std::size_t position) {
    for (std::size_t i = 0; i < face.loops.size(); ++i) {
      const igsShapeLoop& loop = face.loops[i];
      const igsShapePiece* const first = (loop.model.empty() ? loop.parameter : loop.model).data();
      for (const igsPieceInSpace& piece : igs_pieces_in_space(face, loop)) {
        m_boundaries.push_back({{position, i, static_cast<std::size_t>(piece.piece - first)}, piece});
      }
    }
  }

  // The boxes hold the curve: over its chords it stands about as high as the bends at their ends show.
  void sample(std::size_t boundary, std::vector<igsBox>& boxes) {
    const igsPieceInSpace& piece = m_boundaries[boundary].piece;
    const std::size_t count = std::max(num_parts, piece.curve->breaks().size() / num_parts * num_parts);
    const auto parameter = [&](std::size_t i) {
      return piece.curve->range().at(static_cast<double>(i) / static_cast<double>(count));
    };
    std::vector<igsVec3> points;
    points.reserve(count + 1);
    for (std::size_t i = 0; i <= count; ++i) points.push_back(piece.point(parameter(i)));
    const auto bend = [&](std::size_t i) {
      return i == 0 || i == count ? 0 : (points[i - 1] + points[i + 1] - points[i] * 2).length();
    };
    for (std::size_t i = 0; i < count; ++i) {
      igsBox box;
      box.add(points[i]);
      box.add(points[i + 1]);
      const double more = std::max(bend(i), bend(i + 1)) / 4;
      boxes.push_back({box.low - igsVec3{more, more, more}, box.high + igsVec3{more, more, more}});
      m_segments.push_back({boundary, parameter(i), parameter(i + 1), points[i], points[i + 1], more});
    }
    for (std::size_t k = 1; k < num_parts; ++k) m_inner[boundary][k - 1] = points[k * count / num_parts];
  }

  /// `last`: the one that is tried first, and that met it last; the boundary itself for none.
  bool has_partner(std::size_t boundary, std::size_t& last) const {
    return std::all_of(m_inner[boundary].begin(), m_inner[boundary].end(),
                       [&](const igsVec3& point) { return !point.is_finite() || is_met(point, boundary, last); });
  }

  // `last` met another point of the boundary; most often it has the same points. Where very many curves run through one
  // place, one of them is taken for a partner, so that the time stays in proportion to their number.
  bool is_met(const igsVec3& point, std::size_t boundary, std::size_t& last) const {
    const auto is_same = [&](const igsVec3& other) { return (other - point).length() <= m_tolerance; };
    if (last != boundary && std::any_of(m_inner[last].begin(), m_inner[last].end(), is_same)) return true;
    double bound = std::nextafter(m_tolerance, std::numeric_limits<double>::infinity());
    bool is_found = false;
    int tries_left = most_tries;
    m_tree.visit_near(point, bound, [&](std::size_t i) {
      const Segment& segment = m_segments[m_order[i]];
      if (is_found || segment.boundary == boundary) return bound;
      if (--tries_left < 0) is_found = true;
      if (is_found) return bound = 0;
      const double part = igs_part_of_line(point, segment.start, segment.end);
      const igsVec3 away = segment.start + (segment.end - segment.start) * part - point;
      const double reach = segment.height + m_tolerance;
      if (away.dot(away) > reach * reach) return bound;
      const double t = igsRange{segment.from, segment.to}.at(part);
      if (m_boundaries[segment.boundary].distance_near(point, t, m_tolerance) > m_tolerance) return bound;
      last = segment.boundary;
      is_found = true;
      return bound = 0;
    });
    return is_found;
  }

  static constexpr std::size_t num_parts = 4;
  static constexpr int most_tries = 200;

  double m_tolerance;
  std::vector<PlacedBoundary> m_boundaries;
  std::vector<std::array<igsVec3, num_parts - 1>> m_inner;  ///< by boundary, points that are looked for on others
  std::vector<Segment> m_segments;
  std::vector<std::size_t> m_order;  ///< of the segments, as the tree has them
  igsBoxTree m_tree;
};
}  // namespace

std::vector<igsFreeBoundary> igs_free_boundaries(const igsShapeModel& model, double tolerance) {
  return FreeBoundaries(model, tolerance).find();
}
