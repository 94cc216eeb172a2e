#include "igs/shape/igsShapeFigures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

#include "igs/file/igsFile.h"
#include "igs/objects/igsObject.h"
#include "igs/shape/igsShapeMesh.h"
#include "igs/shape/igsShapeModel.h"
#include "igs/shape/private/igsComposedCurves.h"
#include "igs/shape/private/igsDerivedTolerance.h"
#include "igs/shape/private/igsEachNumber.h"
#include "igs/shape/private/igsEdgePartners.h"
#include "igs/shape/private/igsEdgeUses.h"
#include "igs/shape/private/igsFaceBox.h"
#include "igs/shape/private/igsPlacedShapes.h"

namespace {
/// A line along which one parameter of a surface stays the same.
class ParameterLine final : public igsShapeCurve {
 public:
  ParameterLine(const igsVec3& at, const igsVec3& along, const igsSurfaceDirection& direction)
      : igsShapeCurve(direction.range, direction.breaks), m_at(at), m_along(along) {}

 protected:
  igsCurvePoint evaluate(double t, igsSide) const override { return {m_at + m_along * t, m_along, {}}; }

 private:
  igsVec3 m_at, m_along;
};

/// The sides of a surface as curves on it, without those that are a point; a seam once.
struct Side {
  igsShapeCurvePtr curve;
  bool is_seam = false;
};

std::vector<Side> sides_of(const igsShapeSurfacePtr& surface, igsShapes& shapes) {
  std::vector<Side> sides;
  const auto add = [&](const igsSurfaceDirection& across, const igsSurfaceDirection& along, const igsVec3& unit_across,
                       const igsVec3& unit_along) {
    const auto side = [&](double at) {
      const auto line = std::make_shared<ParameterLine>(unit_across * at, unit_along, along);
      sides.push_back({igs_curve_on_surface(surface, line, shapes), across.is_closed});
    };
    if (!across.has_pole_low) side(across.range.low);
    if (!across.has_pole_high && !across.is_closed) side(across.range.high);
  };
  add(surface->u(), surface->v(), {1, 0, 0}, {0, 1, 0});
  add(surface->v(), surface->u(), {0, 1, 0}, {1, 0, 0});
  return sides;
}

bool is_closed_somewhere(const igsShapeSurface& surface) {
  const auto is_closed = [](const igsSurfaceDirection& direction) {
    return direction.is_closed || direction.has_pole_low || direction.has_pole_high;
  };
  return is_closed(surface.u()) || is_closed(surface.v());
}

/// What the mesh of a face gives.
struct FaceResult {
  igsFaceFigures figures;
  double volume = 0;
  bool is_complete = false;
};

/// Puts the figures together; edges first, for the size of the model says how closely faces are to be measured.
class Measuring {
 public:
  explicit Measuring(const igsFile& file)
      : m_file(file), m_shapes(file), m_model(file, m_shapes), m_boundaries(m_model.faces().size()) {}

  igsShapeFigures measure(int threads) {
    add_listed_edges();
    for (std::size_t i = 0; i < m_boundaries.size(); ++i) add_edges_of_face(i);
    for (const igsShapeWire& wire : m_model.wires()) add_edge(wire.curve, wire.placement);
    measure_faces(threads);
    count_free_edges();
    add_volumes();
    return std::move(m_figures);
  }

 private:
  /// An edge as it was counted.
  struct Edge {
    igsBox box;         ///< placed; empty where there is none
    double length = 0;  ///< not finite where it is not known
  };

  Edge add_edge(const igsShapeCurvePtr& curve, const igsPlacement& placement);
  void add_listed_edges();
  void add_edges_of_face(std::size_t number);
  void add_loose_edge(const igsShapeFace& face, const igsShapeCurvePtr& curve, bool is_seam, igsBox& boundary);
  void measure_faces(int threads);
  FaceResult measure_face(std::size_t number, const igsShapeEdgePoints& edges, igsShapeTolerance tolerance) const;
  void count_free_edges();
  void add_volumes();
  double volume_of(const igsShapeShell& shell);

  const igsShapeFace& face_at(std::size_t face) const { return m_model.faces()[face]; }

  const igsFile& m_file;
  igsShapes m_shapes;
  igsShapeModel m_model;
  igsShapeFigures m_figures;
  std::vector<igsBox> m_boundaries;          // of the boundary of each face, placed
  std::vector<Edge> m_listed;                // of the model's edges
  std::vector<igsPlacedEdge> m_loose_edges;  // that may have partners
  std::vector<double> m_loose_lengths;
  std::vector<FaceResult> m_results;
};

Measuring::Edge Measuring::add_edge(const igsShapeCurvePtr& curve, const igsPlacement& placement) {
  if (curve == nullptr || !curve->range().is_finite()) return {};
  const igsShapeCurvePtr placed = igs_placed(curve, placement);
  const Edge edge{igs_box(*placed), igs_length(*placed)};
  ++m_figures.edges;
  if (std::isfinite(edge.length)) m_figures.edge_length += edge.length;
  m_figures.box.add(edge.box);
  return edge;
}

void Measuring::add_listed_edges() {
  for (const igsShapeEdge& edge : m_model.edges()) {
    const Edge counted = m_listed.emplace_back(add_edge(edge.curve, edge.placement));
    for (const int face : edge.faces) m_boundaries[static_cast<std::size_t>(face)].add(counted.box);
    if (edge.faces.size() != 1 || face_at(static_cast<std::size_t>(edge.faces[0])).shell >= 0) continue;
    m_loose_edges.push_back({edge.curve, &edge.placement, counted.box});
    m_loose_lengths.push_back(counted.length);
  }
}

void Measuring::add_edges_of_face(std::size_t number) {
  const igsShapeFace& face = face_at(number);
  igsBox& boundary = m_boundaries[number];
  for (const igsShapeLoop& loop : face.loops) {
    for (const igsShapePiece& piece : loop.model) {
      if (piece.edge < 0) add_loose_edge(face, piece.curve, false, boundary);
    }
    if (!loop.model.empty()) continue;
    for (const igsShapePiece& piece : loop.parameter) {
      add_loose_edge(face, igs_curve_on_surface(face.surface, piece.curve, m_shapes), false, boundary);
    }
  }
  if (!face.is_bounded_by_surface || face.surface == nullptr) return;
  for (const Side& side : sides_of(face.surface, m_shapes)) add_loose_edge(face, side.curve, side.is_seam, boundary);
}

void Measuring::add_loose_edge(const igsShapeFace& face, const igsShapeCurvePtr& curve, bool is_seam,
                               igsBox& boundary) {
  const Edge edge = add_edge(curve, face.placement);
  boundary.add(edge.box);
  if (is_seam || edge.box.is_empty()) return;
  m_loose_edges.push_back({curve, &face.placement, edge.box});
  m_loose_lengths.push_back(edge.length);
}

// What the chord must not exceed of a face is a part of its own size: of its boundary, or of its surface where that may
// reach much farther.
void Measuring::measure_faces(int threads) {
  constexpr double chord_of_size = 1e-3, least_chord = 1e-9;
  constexpr std::size_t most_points = 50'000;
  constexpr int num_parts = 8;
  std::vector<double> sizes;
  igsBox all = m_figures.box;
  for (std::size_t i = 0; i < m_boundaries.size(); ++i) {
    const igsShapeFace& face = face_at(i);
    igsBox box = m_boundaries[i];
    if (face.surface != nullptr && (face.is_bounded_by_surface || is_closed_somewhere(*face.surface))) {
      box.add(igs_rough_box_of_surface(face, num_parts));
    }
    sizes.push_back(box.diagonal());
    if (face.is_bounded_by_surface) all.add(box);
  }
  const double size = all.diagonal();
  const auto tolerance = [&](double own) {
    const double chord = chord_of_size * (own > 0 ? std::min(own, size) : size);
    return igsShapeTolerance{.chord = chord > 0 && std::isfinite(chord) ? chord : least_chord, .most = most_points};
  };
  const igsShapeEdgePoints edges(m_model, tolerance(size));
  m_results.resize(sizes.size());
  igs_for_each_number(sizes.size(), threads,
                      [&](std::size_t i) { m_results[i] = measure_face(i, edges, tolerance(sizes[i])); });
  for (const FaceResult& result : m_results) {
    m_figures.area += result.figures.area;
    m_figures.box.add(result.figures.box);
    m_figures.by_face.push_back(result.figures);
    if (!result.is_complete) m_figures.unmeshed.push_back(result.figures.de);
  }
  m_figures.faces = static_cast<int>(m_results.size());
  std::sort(m_figures.unmeshed.begin(), m_figures.unmeshed.end());
  m_figures.left_out = m_model.left_out();
}

// The chord is that of the surface as it stands, before it is placed.
FaceResult Measuring::measure_face(std::size_t number, const igsShapeEdgePoints& edges,
                                   igsShapeTolerance tolerance) const {
  const igsShapeFace& face = face_at(number);
  const double scale = face.placement.scale();
  const igsBox& boundary = m_boundaries[number];
  FaceResult result;
  const double chord = tolerance.chord;
  if (scale > 0 && std::isfinite(scale)) tolerance.chord /= scale;
  const igsShapeMesh mesh = igs_mesh(face, edges, tolerance);
  result.figures.de = face.entity->de_number();
  result.figures.area = mesh.area;
  result.figures.box = igs_face_box(face, mesh, boundary, chord);
  result.volume = mesh.volume;
  result.is_complete = mesh.is_complete;
  return result;
}

void Measuring::count_free_edges() {
  const double tolerance = igs_derived_tolerance(m_file.global_section(), m_figures.box.diagonal());
  std::vector<bool> is_free(m_listed.size());
  for (const igsShapeShell& shell : m_model.shells()) {
    igs_visit_edges(igs_edge_uses(m_model, shell), [&](auto first, auto end) {
      const auto i = static_cast<std::size_t>(first->piece->edge);
      if (end - first == 1 && m_listed[i].length > tolerance) is_free[i] = true;
    });
  }
  m_figures.free_edges = static_cast<int>(std::count(is_free.begin(), is_free.end(), true));
  const std::vector<bool> has_partner = igs_have_partners(m_loose_edges, tolerance);
  for (std::size_t i = 0; i < m_loose_edges.size(); ++i) {
    if (!has_partner[i] && m_loose_lengths[i] > tolerance) ++m_figures.free_edges;
  }
}

// Not a number where the shell is not closed.
double Measuring::volume_of(const igsShapeShell& shell) {
  const std::vector<igsEdgeUse> uses = igs_edge_uses(m_model, shell);
  bool is_closed = !uses.empty();
  igs_visit_edges(uses, [&](auto first, auto end) { is_closed = is_closed && end - first == 2; });
  double volume = is_closed ? 0 : std::numeric_limits<double>::quiet_NaN();
  for (std::size_t i = shell.first_face; i < shell.end_face; ++i) {
    volume += m_results[i].is_complete ? m_results[i].volume : std::numeric_limits<double>::quiet_NaN();
  }
  return std::abs(volume);
}

// The voids of a solid follow its outer shell.
void Measuring::add_volumes() {
  const igsObject* solid = nullptr;
  for (const igsShapeShell& shell : m_model.shells()) {
    if (shell.is_void && shell.solid != solid) continue;
    const double volume = volume_of(shell);
    if (!shell.is_void) solid = std::isfinite(volume) ? shell.solid : nullptr;
    if (std::isfinite(volume)) m_figures.volume = m_figures.volume.value_or(0) + (shell.is_void ? -volume : volume);
  }
}
}  // namespace

igsShapeFigures igs_measure(const igsFile& file, int threads) { return Measuring(file).measure(threads); }
