#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "igs/shape/igsShapeMesh.h"
#include "igs/shape/private/igsLoopChain.h"
#include "igs/shape/private/igsPieceInSpace.h"
#include "igs/shape/private/igsShapeChecking.h"

namespace {
constexpr int few_chords = 8, many_chords = 64;
constexpr std::size_t most_triangles = 1000;

/// The length of a piece by chords; infinite once it is `enough`.
double chord_length(const igsPieceInSpace& piece, int num_chords, double enough) {
  double length = 0;
  const igsRange range = piece.curve->range();
  igsVec3 last = piece.point(range.low);
  for (int i = 1; i <= num_chords; ++i) {
    const igsVec3 next = piece.point(range.at(i / static_cast<double>(num_chords)));
    length += (next - last).length();
    if (!(length < enough)) return std::numeric_limits<double>::infinity();
    last = next;
  }
  return length;
}

double short_length(const igsPieceInSpace& piece, double enough) {
  const double rough = chord_length(piece, few_chords, enough);
  return rough < enough ? chord_length(piece, many_chords, enough) : rough;
}

/// Where all points of a side of the face's surface are one, a piece of the boundary may be short.
bool is_at_pole(const igsShapeFace& face, const igsVec3& point, double distance) {
  if (face.surface == nullptr) return false;
  const igsSurfaceDirection &u = face.surface->u(), &v = face.surface->v();
  const auto is_near = [&](bool is_pole, const igsVec2& uv) {
    return is_pole && (face.placement.point(face.surface->point(uv)) - point).length() <= distance;
  };
  return is_near(u.has_pole_low, {u.range.low, v.range.low}) || is_near(u.has_pole_high, {u.range.high, v.range.low}) ||
         is_near(v.has_pole_low, {u.range.low, v.range.low}) || is_near(v.has_pole_high, {u.range.low, v.range.high});
}

int number_of(const igsObject* entity) { return entity != nullptr ? entity->de_number() : 0; }

void check_edges(igsShapeChecking& checking) {
  const double tiny = checking.options.tiny;
  for (const igsShapeEdge& edge : checking.model.edges()) {
    if (edge.curve == nullptr || !edge.curve->range().is_finite()) continue;
    const igsPieceInSpace piece{nullptr, edge.curve.get(), &edge.placement};
    const double length = short_length(piece, tiny);
    if (!(length < tiny)) continue;
    const igsVec3 start = piece.point(edge.curve->range().low);
    const bool is_pole = std::any_of(edge.faces.begin(), edge.faces.end(), [&](int face) {
      return is_at_pole(checking.model.faces()[static_cast<std::size_t>(face)], start, tiny);
    });
    if (is_pole) continue;
    checking.tag<igsShapeShortEdge>(*edge.list, length, tiny, edge.position, number_of(edge.curve_entity));
  }
}

void check_pieces(igsShapeChecking& checking, const igsShapeFace& face, const igsShapeLoop& loop) {
  const double tiny = checking.options.tiny;
  const std::vector<igsShapePiece>& all = loop.model.empty() ? loop.parameter : loop.model;
  for (const igsPieceInSpace& piece : igs_pieces_in_space(face, loop)) {
    if (piece.piece->edge >= 0) continue;
    const double length = short_length(piece, tiny);
    if (!(length < tiny) || is_at_pole(face, piece.point(piece.curve->range().low), tiny)) continue;
    const auto position = static_cast<int>(piece.piece - all.data());
    checking.tag<igsShapeShortEdge>(*loop.entity, length, tiny, position, number_of(piece.piece->entity));
  }
}

/// What surrounds a face, or a part of it.
struct FaceOutline {
  igsVec3 flat_area;  ///< of a flat outline its area; of any other no more than that of every surface with this outline
  double length = 0;
};

/// A loop as it runs, by Gauss's rule; none where it cannot be followed.
std::optional<FaceOutline> outline_of(const igsShapeFace& face, const igsShapeLoop& loop, double tolerance) {
  constexpr double nodes[] = {0.1127016653792583, 0.5, 0.8872983346207417};
  constexpr double weights[] = {5.0 / 18, 8.0 / 18, 5.0 / 18};
  constexpr std::size_t least_panels = 2;
  const bool is_parametric = loop.model.empty();
  const igsShapeSurface* const surface = is_parametric ? face.surface.get() : nullptr;
  const std::vector<igsChainLink> chain =
      igs_chain_within(is_parametric ? loop.parameter : loop.model, surface, tolerance);
  if (chain.empty()) return std::nullopt;
  FaceOutline outline;
  const auto add = [&](const igsShapeCurve& curve, double t, double weight, bool is_reversed) {
    const igsCurvePoint at = is_parametric ? igs_image_of(*surface, curve.at(t)) : curve.at(t);
    const igsVec3 step = face.placement.vector(at.first) * weight;
    outline.length += step.length();
    outline.flat_area += face.placement.vector(at.point - chain.front().start).cross(step) * (is_reversed ? -0.5 : 0.5);
  };
  for (const igsChainLink& link : chain) {
    const std::vector<double>& breaks = link.piece->curve->breaks();
    const std::size_t num_panels = (least_panels + breaks.size() - 2) / (breaks.size() - 1);
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
      const double width = (breaks[i + 1] - breaks[i]) / static_cast<double>(num_panels);
      for (std::size_t panel = 0; panel < num_panels; ++panel) {
        for (std::size_t j = 0; j < 3; ++j) {
          const double t = breaks[i] + (static_cast<double>(panel) + nodes[j]) * width;
          add(*link.piece->curve, t, weights[j] * width, link.is_reversed);
        }
      }
    }
  }
  return outline;
}

/// About what a face measures at least.
struct RoughSize {
  double area = 0, length = 0;
};

/// Of a surface as a whole, from a few samples.
RoughSize rough_size(const igsShapeFace& face) {
  const igsRange u = face.surface->u().range, v = face.surface->v().range;
  RoughSize size;
  if (!face.surface->is_finite()) return size;
  for (const double part_u : {0.25, 0.75}) {
    for (const double part_v : {0.25, 0.75}) {
      const igsSurfacePoint at = face.surface->at(u.at(part_u), v.at(part_v));
      const igsVec3 along_u = face.placement.vector(at.u) * u.length();
      const igsVec3 along_v = face.placement.vector(at.v) * v.length();
      size.area += along_u.cross(along_v).length() / 4;
      size.length += (along_u.length() + along_v.length()) / 2;
    }
  }
  return size;
}

/// Sees to the areas of faces of which their outlines do not tell that they are large.
class FaceSizes {
 public:
  explicit FaceSizes(igsShapeChecking& checking) : m_checking(checking) {}

  void check(const igsShapeFace& face) {
    constexpr double certain = 4;
    if (face.surface == nullptr) return;
    const double tiny = m_checking.options.tiny;
    const bool is_framed = face.loops.empty() || face.is_bounded_by_surface;
    RoughSize size = is_framed ? rough_size(face) : RoughSize();
    double outer = size.area;
    for (const igsShapeLoop& loop : face.loops) {
      const std::optional<FaceOutline> outline = outline_of(face, loop, m_checking.options.tolerance);
      if (!outline) return;
      size.length += outline->length;
      size.area += outline->flat_area.length();
      outer = std::max(outer, outline->flat_area.length());
    }
    const double least_area = 2 * outer - size.area;  // the others are taken for holes
    if (least_area > certain * tiny * tiny && least_area > certain * tiny * size.length / 2) return;
    judge(face, size.length);
  }

 private:
  void judge(const igsShapeFace& face, double length) {
    const double tiny = m_checking.options.tiny;
    const igsShapeTolerance coarse{m_checking.diagonal / 10, 1.0, most_triangles};
    if (!m_edges) m_edges.emplace(m_checking.model, coarse);
    const igsShapeMesh mesh = igs_mesh(face, *m_edges, coarse);
    if (!mesh.is_complete || !(length > 0)) return;
    if (mesh.area < tiny * tiny) {
      m_checking.tag<igsShapeTinyFace>(*face.entity, mesh.area, tiny * tiny);
    } else if (2 * mesh.area / length < tiny) {
      m_checking.tag<igsShapeNarrowFace>(*face.entity, 2 * mesh.area / length, tiny);
    }
  }

  igsShapeChecking& m_checking;
  std::optional<igsShapeEdgePoints> m_edges;  ///< made when they are needed, which is rare
};
}  // namespace

void igs_check_sizes(igsShapeChecking& checking) {
  check_edges(checking);
  FaceSizes sizes(checking);
  for (const igsShapeFace& face : checking.model.faces()) {
    for (const igsShapeLoop& loop : face.loops) check_pieces(checking, face, loop);
    sizes.check(face);
  }
}
