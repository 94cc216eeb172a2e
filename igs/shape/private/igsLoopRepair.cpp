#include "igs/shape/private/igsLoopRepair.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "igs/curves/igs102.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs126.h"
#include "igs/curves/igsPolyline.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/objects/igsCast.h"
#include "igs/shape/igsShapes.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"

namespace {
/// The list in which the members of a loop stand: of a composite curve, of an igs141 or of an igs508.
class MemberList {
 public:
  /// The list that has the member with this DE number at this position; none where no list has.
  static std::optional<MemberList> with(igsObject& loop, int position, int de) {
    std::vector<MemberList> lists;
    if (const auto* const curve = igs_cast<igs142>(&loop)) {
      for (const igsObjectPtr& form : {curve->curve_3d(), curve->curve_2d()}) {
        if (auto* const composite = igs_cast<igs102>(form.object())) lists.emplace_back(loop).m_composite = composite;
      }
    }
    if (auto* const boundary = igs_cast<igs141>(&loop)) lists.emplace_back(loop).m_boundary = boundary;
    if (auto* const edges = igs_cast<igs508>(&loop)) lists.emplace_back(loop).m_edges = edges;
    for (const MemberList& list : lists) {
      const igsObject* const curve = list.curve(position);
      if (curve != nullptr && curve->de_number() == de) return list;
    }
    return std::nullopt;
  }

  explicit MemberList(igsObject& loop) : m_loop(loop) {}

  int size() const {
    if (m_composite != nullptr) return m_composite->number_of_sub_curves();
    return m_boundary != nullptr ? m_boundary->number_of_model_space_curves() : m_edges->number_of_oriented_edges();
  }
  int beside(int position, int steps) const { return (position + steps + size()) % size(); }
  igsObject* curve(int position) const {
    if (position < 0 || position >= size()) return nullptr;
    const auto i = static_cast<std::size_t>(position);
    if (m_composite != nullptr) return m_composite->sub_curves()[i].object();
    if (m_boundary != nullptr) return m_boundary->model_space_curves()[i].curve().object();
    const igsOrientedEdge& use = m_edges->oriented_edge(position);
    const auto* const list = igs_cast<igs504>(use.list().object());
    return list != nullptr ? list->edge(use.index()).curve().object() : nullptr;
  }
  bool is_reversed(int position) const {
    if (m_composite != nullptr) return false;
    if (m_edges != nullptr) return m_edges->oriented_edge(position).orientation() == 0;
    const auto i = static_cast<std::size_t>(position);
    return m_boundary->model_space_curves()[i].sense() == igsModelSpaceCurve::reversed;
  }
  /// False where there is no flag.
  bool turn_flag(int position) {
    const bool is_turned = is_reversed(position);
    if (m_edges != nullptr) m_edges->oriented_edge_at(position)->set_orientation(is_turned ? 1 : 0);
    if (m_boundary != nullptr) {
      m_boundary->model_space_curves()[static_cast<std::size_t>(position)].set_sense(
          is_turned ? igsModelSpaceCurve::agrees : igsModelSpaceCurve::reversed);
    }
    return m_composite == nullptr;
  }
  bool has_matrix() const {
    const auto has = [](const igsObject* object) { return object != nullptr && object->directory_entry().matrix(); };
    return has(&m_loop) || has(m_composite);
  }
  /// In model space alone. The edges of an igs508 are those of other loops, too.
  bool has_one_form() const {
    if (const auto* const curve = igs_cast<igs142>(&m_loop)) return !curve->curve_2d();
    return m_boundary != nullptr && m_boundary->bounded_surface_representation() == 0;
  }

 private:
  igsObject& m_loop;
  igs102* m_composite = nullptr;
  igs141* m_boundary = nullptr;
  igs508* m_edges = nullptr;
};

struct MemberEnds {
  igsVec3 start, end;

  double distance(const igsVec3& point) const { return std::min((start - point).length(), (end - point).length()); }
};

std::optional<MemberEnds> ends_of(const MemberList& list, int position) {
  const igsObject* const entity = list.curve(position);
  if (entity == nullptr) return std::nullopt;
  const igsShapeCurvePtr curve = igsShapes(entity->file()).curve(entity);
  if (curve == nullptr || !curve->range().is_finite()) return std::nullopt;
  MemberEnds ends{curve->start(), curve->end()};
  if (list.is_reversed(position)) std::swap(ends.start, ends.end);
  return ends;
}

bool is_used_once(const igsObject& curve) { return curve.num_references() == 1; }

// Curves that run the other way.

void reverse(igs110& line) {
  const giPoint3 start = line.start_point();
  line.set_start_point(line.end_point());
  line.set_end_point(start);
}

void reverse(igsPolyline& line) {
  const igsPolyline& source = line;
  for (int i = 0, k = line.number_of_points() - 1; i < k; ++i, --k) {
    const auto swap = [&](auto get, auto set) {
      const auto first = (source.*get)(i);
      (line.*set)(i, (source.*get)(k));
      (line.*set)(k, first);
    };
    if (line.layout() == igsCopiousData::planar) swap(&igsPolyline::planar_point, &igsPolyline::set_planar_point);
    if (line.layout() != igsCopiousData::planar) swap(&igsPolyline::point, &igsPolyline::set_point);
    if (line.layout() == igsCopiousData::with_vectors) swap(&igsPolyline::vector, &igsPolyline::set_vector);
  }
}

// The parameter runs from the end of the limits to their start; the limits themselves stay exactly.
void reverse(igs126& spline) {
  double low = 0, high = 0;
  spline.parametric_limits(low, high);
  std::vector<double> knots;
  for (int i = spline.number_of_knots() - 1; i >= 0; --i) {
    double knot = 0;
    spline.knot(i, knot);
    knots.push_back(knot == low ? high : knot == high ? low : low + high - knot);
  }
  for (std::size_t i = 0; i < knots.size(); ++i) spline.set_knot(static_cast<int>(i), knots[i]);
  for (int i = 0, k = spline.number_of_control_points() - 1; i < k; ++i, --k) {
    giPoint3 first, last;
    double first_weight = 0, last_weight = 0;
    spline.control_point(i, first);
    spline.control_point(k, last);
    spline.weight(i, first_weight);
    spline.weight(k, last_weight);
    spline.set_control_point(i, last);
    spline.set_control_point(k, first);
    spline.set_weight(i, last_weight);
    spline.set_weight(k, first_weight);
  }
}

bool reverse_curve(igsObject& curve) {
  if (!is_used_once(curve)) return false;
  if (auto* const line = igs_cast<igs110>(&curve)) return reverse(*line), true;
  if (auto* const line = igs_cast<igsPolyline>(&curve)) return reverse(*line), true;
  if (auto* const spline = igs_cast<igs126>(&curve)) return reverse(*spline), true;
  return false;
}

// Ends of curves that are moved.

bool is_clamped(const igs126& spline) {
  const int order = spline.order(), count = spline.number_of_control_points();
  double low = 0, high = 0;
  spline.parametric_limits(low, high);
  for (int i = 0; i < order; ++i) {
    double first = 0, last = 0;
    if (spline.knot(i, first) == 0 || spline.knot(count + i, last) == 0 || first != low || last != high) return false;
  }
  return order > 0;
}

bool can_move_ends(const igsObject& curve) {
  if (!is_used_once(curve) || curve.directory_entry().matrix()) return false;
  if (const auto* const line = igs_cast<igs110>(&curve)) return line->is_bounded();
  if (const auto* const spline = igs_cast<igs126>(&curve)) return is_clamped(*spline);
  const auto* const line = igs_cast<igsPolyline>(&curve);
  return line != nullptr && line->layout() != igsCopiousData::planar && line->number_of_points() > 1;
}

void move_end(igsObject& curve, bool is_start, const igsVec3& to) {
  const giPoint3 point(to.x, to.y, to.z);
  if (auto* const line = igs_cast<igs110>(&curve)) {
    if (is_start) line->set_start_point(point);
    if (!is_start) line->set_end_point(point);
  } else if (auto* const points = igs_cast<igsPolyline>(&curve)) {
    points->set_point(is_start ? 0 : points->number_of_points() - 1, point);
  } else if (auto* const spline = igs_cast<igs126>(&curve)) {
    spline->set_control_point(is_start ? 0 : spline->number_of_control_points() - 1, point);
  }
}
}  // namespace

// The neighbours may be the next to be turned: what counts is that the member's ends come to theirs.
int igs_turn_member(igsObject& loop, int position, int de) {
  std::optional<MemberList> list = MemberList::with(loop, position, de);
  if (!list) return 0;
  const auto ends = ends_of(*list, position);
  const auto before = ends_of(*list, list->beside(position, -1)), behind = ends_of(*list, list->beside(position, 1));
  if (!ends || !before || !behind) return 0;
  constexpr double much_better = 0.1;
  const double given = before->distance(ends->start) + behind->distance(ends->end);
  const double turned = before->distance(ends->end) + behind->distance(ends->start);
  if (!(turned <= much_better * given)) return 0;
  return list->turn_flag(position) || reverse_curve(*list->curve(position)) ? 1 : 0;
}

int igs_join_members(igsObject& loop, int position, int de, int next_de, double tolerance) {
  std::optional<MemberList> list = MemberList::with(loop, position, de);
  if (!list || list->has_matrix() || !list->has_one_form()) return 0;
  const int next = list->beside(position, 1);
  igsObject *const curve = list->curve(position), *const next_curve = list->curve(next);
  if (next_curve == nullptr || next_curve == curve || next_curve->de_number() != next_de) return 0;
  const auto ends = ends_of(*list, position), next_ends = ends_of(*list, next);
  if (!ends || !next_ends || !can_move_ends(*curve) || !can_move_ends(*next_curve)) return 0;
  const double gap = (next_ends->start - ends->end).length();
  if (!(gap <= tolerance) || !(gap < (ends->end - ends->start).length()) ||
      !(gap < (next_ends->end - next_ends->start).length())) {
    return 0;
  }
  const igsVec3 between = ends->end + (next_ends->start - ends->end) * 0.5;
  move_end(*curve, list->is_reversed(position), between);
  move_end(*next_curve, !list->is_reversed(next), between);
  return 1;
}

int igs_move_to_vertex(const igs504& edges, int position, int de, bool is_start, double tolerance) {
  const igsEdge& edge = edges.edge(position);
  igsObject* const curve = edge.curve().object();
  const auto* const vertices = igs_cast<igs502>((is_start ? edge.first_list() : edge.second_list()).object());
  if (curve == nullptr || curve->de_number() != de || vertices == nullptr || !can_move_ends(*curve)) return 0;
  const igsShapeCurvePtr shape = igsShapes(curve->file()).curve(curve);
  const giPoint3& vertex = vertices->vertex(is_start ? edge.first_offset() : edge.second_offset());
  if (shape == nullptr || vertex.is_undefined()) return 0;
  const igsVec3 to{vertex.x(), vertex.y(), vertex.z()};
  const igsVec3 end = is_start ? shape->start() : shape->end(), other = is_start ? shape->end() : shape->start();
  const double distance = (to - end).length();
  if (!(distance <= tolerance) || !(distance < (other - end).length())) return 0;
  move_end(*curve, is_start, to);
  return 1;
}

int igs_turn_loop(igs508& loop) {
  if (!is_used_once(loop)) return 0;
  igsOrientedEdgecoDynArr& edges = loop.oriented_edges();
  for (const igsOrientedEdge& edge : edges) {
    if (edge.num_half_edges() > 0 && edge.orientation() != 0) return 0;
  }
  std::reverse(edges.begin(), edges.end());
  for (igsOrientedEdge& edge : edges) edge.set_orientation(edge.orientation() == 0 ? 1 : 0);
  return 1;
}
